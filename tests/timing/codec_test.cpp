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

/// Reads up to so many items in document order, with their attributes, and counts the items.
template <class Layer> int64_t read(typename Layer::Document *document, int64_t most) {
    struct Open {
        Ref<typename Layer::Items> list;
        int64_t next;
    };
    std::vector<Open> open;
    open.push_back({Ref(Layer::documentItems(document)), 0});
    int64_t count = 0;
    while (!open.empty() && count < most) {
        auto &[list, next] = open.back();
        if (next == Layer::itemsLength(list)) {
            open.pop_back();
            continue;
        }
        ++count;
        if (Ref el(Layer::elementAt(list, next++)); el) {
            Ref attrs(Layer::elementAttributes(el));
            Ref last(Layer::attributesLength(attrs) ? Layer::attributeAt(attrs, 0) : nullptr);
            open.push_back({Ref(Layer::elementItems(el)), 0});
        }
    }
    return count;
}

/// Reads a part of a document, changes another holder's root, and encodes both.
template <class Layer, class Encode> void readAndChange(Ref<typename Layer::Document> document,
                                                        const std::string &text, int64_t most,
                                                        Encode encode) {
    read<Layer>(document, most);
    EXPECT_TRUE(encode(document) == text);
    Ref changed(Layer::copyDocument(document));
    Ref items(Layer::documentItems(document));
    Ref root(Layer::elementAt(items, 0));
    Layer::appendElementComment(root.edit(), comment("c"));
    Layer::setElementInItems(items.edit(), 0, root);
    Layer::setDocumentItems(changed.edit(), items);
    EXPECT_EQ(encode(changed).size(), text.size() + 8);
    EXPECT_GT(read<Layer>(document, INT64_MAX), 0);
    EXPECT_TRUE(encode(document) == text);
}

/// Everything that programs do with a document; nothing of it may need stack in proportion.
void use(const std::string &text, int64_t half) {
    const auto encoded = [](XML_DOCUMENT *document) {
        return encode(document, XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
    };
    auto decoded = decode(declaration + text);
    ASSERT_TRUE(decoded.document) << decoded.error;
    EXPECT_TRUE(encoded(decoded.document) == text);
    readAndChange<Namespaced>(
        nsDecode(decoded.document).document, text, half,
        [&](XML_NS_DOCUMENT *document) { return encoded(Ref(xmlNsDocumentEncode(document))); });
    readAndChange<Plain>(std::move(decoded.document), text, half, encoded);
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
            expectLinear(300000, [&](int64_t n) {
                const std::string text = shape(n);
                return secondsOf([&] { use(text, n / 2); });
            });
    });
}

/// Measured in a process of its own, whose memory nobody has used before.
TEST(CodecMemoryDeathTest, TagsWithoutEndTakeLittle) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(refuseOpenTags(2000000), testing::ExitedWithCode(0), "[1-9][0-9]* bytes a tag");
}
