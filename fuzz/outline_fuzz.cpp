// Reads random texts as outlines, as trees made at once and on demand, and with namespaces, and
// compares the results.
//
//     outline_fuzz [--seconds N] [--seed N] [FILE|FOLDER...]
//
// Changes texts at random, those in the files among them, for so many seconds; 0 seconds only reads
// the files. Ends the process at the first difference or, under AddressSanitizer, invalid access;
// that input is then in the file outline_fuzz.input. Leaks are reported at the end.
// LLVMFuzzerTestOneInput() is for drivers that bring their own main().
#include "tests/xml/mutator.hpp"
#include "tests/xml/outline/guarded_memory.hpp"
#include "tests/xml/outline/reading_check.hpp"
#include "tests/xml/random_xml.hpp"
#include "xml/xml.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

using vo::Ref;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {

std::string_view input; ///< What is being read.

void keepInput() {
    if (input.empty()) return;
    std::ofstream("outline_fuzz.input", std::ios::binary) << input;
    std::fputs("outline_fuzz: the input is in outline_fuzz.input\n", stderr);
}

void expect(bool holds, const std::string &what) {
    if (holds) return;
    std::fprintf(stderr, "outline_fuzz: %s\n", what.c_str());
    keepInput();
    std::abort();
}

// ---------------------------------------------------------------- the outline

/// Every text ends where readable memory does. Long texts are left to the other checks.
void checkReading(std::string_view bytes) {
    static test::GuardedMemory memory(1 << 20);
    if (bytes.size() > memory.size()) return;
    const xml::Piece text = memory.place(bytes);
    if (!test::isUtf8(text)) return;
    const std::string found = test::differenceInReading(text);
    expect(found.empty(), found);
}

// ---------------------------------------------------------------- the trees

Ref<XML_DOCUMENT> decode(voBuffer *bytes) {
    Ref options(xmlOptionsCreate());
    if (voBufferLength(bytes) % 2) xmlOptionsSetFlags(options.edit(), XML_FLAG_DECODE_LOCATION);
    return Ref(xmlDecodeResultDocument(Ref(xmlDocumentDecode(bytes, options, nullptr))));
}

Ref<voBuffer> encode(XML_DOCUMENT *document) {
    return Ref(xmlDocumentTryEncode(document, Ref(xmlOptionsCreate())));
}

bool same(voBuffer *a, voBuffer *b) { return a && b ? voBufferEquals(a, b) : a == b; }

// Both layers under common names.
XML_ITEMS *itemsOf(XML_DOCUMENT *document) { return xmlDocumentItems(document); }
XML_ITEMS *itemsOf(XML_ELEMENT *el) { return xmlElementItems(el); }
XML_ELEMENT *elementAt(XML_ITEMS *items, int64_t i) { return xmlItemsItemElementAt(items, i); }
int64_t lengthOf(XML_ITEMS *items) { return xmlItemsLength(items); }
XML_NS_ITEMS *itemsOf(XML_NS_DOCUMENT *document) { return xmlNsDocumentItems(document); }
XML_NS_ITEMS *itemsOf(XML_NS_ELEMENT *el) { return xmlNsElementItems(el); }
XML_NS_ELEMENT *elementAt(XML_NS_ITEMS *items, int64_t i) {
    return xmlNsItemsItemElementAt(items, i);
}
int64_t lengthOf(XML_NS_ITEMS *items) { return xmlNsItemsLength(items); }

/// Asks for a few nodes, on random ways down.
template <class Document> void touch(Document *document, test::Mutator &chance) {
    for (size_t ways = chance.below(4); ways > 0; --ways) {
        Ref items(itemsOf(document));
        while (const int64_t length = lengthOf(items)) {
            Ref el(elementAt(items, int64_t(chance.below(size_t(length)))));
            if (!el || chance.below(8) == 0) break;
            items = Ref(itemsOf(el));
        }
    }
}

/// The document with its names resolved and prefixes chosen anew, or the error as text.
Ref<voBuffer> resolved(XML_DOCUMENT *document, test::Mutator &chance) {
    Ref result(xmlNsDocumentTryDecode(document));
    if (Ref names(xmlNsDecodeResultDocument(result)); names) {
        touch<XML_NS_DOCUMENT>(names, chance);
        touch(document, chance);
        return encode(Ref(xmlNsDocumentEncode(names)));
    }
    Ref message(xmlNsDecodeErrorToMessage(Ref(xmlNsDecodeResultError(result))));
    return Ref(voStringTryToUtf8(Ref(voMessageToString(message))));
}

/// A tree that is made on demand must come to the same as one that is made at once. False when the
/// text is not accepted.
bool checkTrees(std::string_view bytes) {
    Ref buffer(voBufferCreateFromBytesCopy(bytes.data(), int64_t(bytes.size())));
    Ref lazy = decode(buffer), whole = decode(buffer);
    expect(!lazy == !whole, "decoding");
    if (!whole) return false;
    xmlDocumentMakeAll(whole);
    Ref encoded = encode(whole);
    expect(same(encode(lazy), encoded), "encoding what is not made");
    test::Mutator chance(uint32_t(bytes.size()));
    touch<XML_DOCUMENT>(lazy, chance);
    expect(same(resolved(lazy, chance), resolved(whole, chance)), "namespaces");
    expect(same(encode(lazy), encoded), "encoding what is made in part");
    if (!encoded) return true;
    Ref again = decode(encoded);
    expect(again && same(encode(again), encoded), "decoding what was encoded");
    return true;
}

bool check(std::string_view bytes) {
    static const int started = voModuleStartup(xmlModule());
    input = bytes;
    expect(started, "starting");
    checkReading(bytes);
    return checkTrees(bytes);
}

// ---------------------------------------------------------------- texts

class Texts {
  public:
    explicit Texts(uint32_t seed) : documents(seed), mutator(seed) {
        for (int i = 0; i < 200; ++i)
            texts.push_back(documents.document(i % 40));
    }

    void add(const std::filesystem::path &path) {
        std::ifstream file(path, std::ios::binary);
        const std::string text{std::istreambuf_iterator(file), {}};
        if (check(text) && text.size() <= longest) texts.push_back(text);
    }
    void addAll(const std::filesystem::path &path) {
        if (!is_directory(path)) return add(path);
        for (const auto &entry : std::filesystem::recursive_directory_iterator(path))
            if (entry.is_regular_file()) add(entry);
    }

    /// Some changed texts are kept, to be changed further.
    void readNext() {
        std::string text = mutator.changed(any(), any());
        const bool isAccepted = check(text);
        if (mutator.below(50) == 0) any() = documents.document(int(mutator.below(100)));
        if (isAccepted && mutator.below(4) == 0 && text.size() <= longest) any() = std::move(text);
    }

  private:
    static constexpr size_t longest = 5000;

    std::string &any() { return texts[mutator.below(texts.size())]; }

    test::RandomXml documents;
    test::Mutator mutator;
    std::vector<std::string> texts;
};

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    check({reinterpret_cast<const char *>(data), size});
    return 0;
}

#ifndef VOXML_FUZZ_WITHOUT_MAIN

int main(int argc, char **argv) {
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback(keepInput);
#endif
    int seconds = 0, seed = 1, next = 1;
    for (; next + 1 < argc && std::string_view(argv[next]).starts_with("--"); next += 2)
        (std::string_view(argv[next]) == "--seed" ? seed : seconds) = std::atoi(argv[next + 1]);
    Texts texts{uint32_t(seed)};
    for (; next < argc; ++next)
        texts.addAll(argv[next]);
    int64_t count = 0;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    for (; std::chrono::steady_clock::now() < end; ++count)
        texts.readNext();
    input = {};
    std::printf("%lld texts changed with seed %d: no difference\n", static_cast<long long>(count),
                seed);
    return 0;
}

#endif
