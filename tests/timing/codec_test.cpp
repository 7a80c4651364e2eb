// Decoding, encoding and reading take time in proportion to the text, and refusing it little
// memory.
#include "tests/timing/growth.hpp"
#include "tests/xml/codec.hpp"

#include <sys/resource.h>

using namespace test;

namespace {

const std::string declaration = "<?xml version='1.0'?>";

/// Decoding, encoding and releasing, but not the making of the text.
void expectLinearCodec(int64_t n, const std::function<std::string(int64_t)> &textOf) {
    expectLinear(n, [&](int64_t count) {
        const Ref text = buffer(declaration + textOf(count));
        const Ref options(xmlOptionsCreate());
        return secondsOf([&] {
            Ref result(xmlDocumentDecode(text, options, nullptr));
            Ref document(xmlDecodeResultDocument(result));
            ASSERT_TRUE(document);
            Ref encoded(xmlDocumentTryEncode(document, options));
            EXPECT_GE(voBufferLength(encoded) + 2, voBufferLength(text));
        });
    });
}

std::string manyAttributes(int64_t n) {
    return "<a" + numbered(n, [](const auto &i) { return " name" + i + "=\"v\""; });
}

/// Reads a document, changes another holder's root, and encodes both.
template <class Layer>
void readAndChange(Ref<typename Layer::Document> document, const std::string &text, auto encode) {
    int64_t items = 0;
    visitItems<Layer>(Ref(Layer::documentItems(document)), [&](auto *) { ++items; });
    EXPECT_GT(items, 0);
    EXPECT_TRUE(encode(document) == text);
    Ref changed(Layer::copyDocument(document));
    Ref list(Layer::documentItems(document));
    Ref root(Layer::elementAt(list, 0));
    Layer::appendElementComment(root.edit(), comment("c"));
    Layer::setElementInItems(list.edit(), 0, root);
    Layer::setDocumentItems(changed.edit(), list);
    EXPECT_EQ(encode(changed).size(), text.size() + 8);
    EXPECT_TRUE(encode(document) == text);
}

/// Everything that programs do with a document; nothing of it may need stack in proportion.
void use(const std::string &text) {
    const auto encoded = [](XML_DOCUMENT *document) {
        return encode(document, XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
    };
    auto document = decode(declaration + text).document;
    ASSERT_TRUE(document);
    EXPECT_TRUE(encoded(document) == text);
    readAndChange<Namespaced>(nsDecode(document).document, text, [&](XML_NS_DOCUMENT *resolved) {
        return encoded(Ref(xmlNsDocumentEncode(resolved)));
    });
    readAndChange<Plain>(std::move(document), text, encoded);
}

int64_t peakMemory() {
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return int64_t{usage.ru_maxrss} * 1024;
}

[[noreturn]] void refuseOpenTags(int64_t count) {
    Ref text = buffer(declaration + repeated("<a>", count));
    Ref options(xmlOptionsCreate());
    const int64_t before = peakMemory();
    Ref result(xmlDocumentDecode(text, options, nullptr));
    const int64_t perTag = (peakMemory() - before) / count;
    std::fprintf(stderr, "%ld bytes a tag\n", long(perTag));
    std::_Exit(xmlDecodeResultHasDocument(result) || perTag > 40);
}

} // namespace

TEST(CodecTiming, IsLinearInTheWidth) {
    expectLinearCodec(300000, [](int64_t n) { return manyAttributes(n) + "/>"; });
    expectLinearCodec(300000, [](int64_t n) { return repeated("<b>text</b>", n); });
    expectLinearCodec(300000, [](int64_t n) { return repeated("<!--c--> ", n); });
    expectLinearCodec(30000000, [](int64_t n) { return std::string(size_t(n), 'x'); });
    expectLinearCodec(10000000, [](int64_t n) { return repeated("\u4E2D", n / 3); });
    expectLinearCodec(5000000, [](int64_t n) {
        return "<!-- " + repeated("- ", n / 2) + "--><?p " + repeated("? ", n / 2) + "?>";
    });
}

TEST(CodecTiming, OfRefusalsIsLinear) {
    expectLinear(10000000, [](int64_t n) {
        const std::string value = declaration + "<a b='" + repeated("&amp;", n / 5);
        const std::string text =
            declaration + repeated("]]", n / 2) + "<![CDATA[" + repeated("]]", n / 2);
        return secondsOf([&] {
            EXPECT_EQ(decode(value).error, "ATTRIBUTE_LIST");
            EXPECT_EQ(decode(text).error, "CDATA");
        });
    });
}

TEST(CodecTiming, OfAllThatProgramsDoIsLinearAndNeedsNoStack) {
    const std::function<std::string(int64_t)> shapes[] = {
        [](int64_t n) { return repeated("<a>", n) + "<b/>" + repeated("</a>", n); },
        [](int64_t n) { return "<a>" + repeated("<b>x</b>", n) + "</a>"; },
        [](int64_t n) { return manyAttributes(n) + ">x</a>"; },
        [](int64_t n) {
            return "<a>" + numbered(n, [](const auto &i) { return "<b" + i + "/>"; }) + "</a>";
        },
    };
    onSmallStack([&] {
        for (const auto &shape : shapes)
            expectLinear(200000, [&](int64_t n) {
                const std::string text = shape(n);
                return secondsOf([&] { use(text); });
            });
    });
}

/// Measured in a process of its own, whose memory nobody has used before.
TEST(CodecMemoryDeathTest, TagsWithoutEndTakeLittle) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(refuseOpenTags(2000000), testing::ExitedWithCode(0), "[1-9][0-9]* bytes a tag");
}
