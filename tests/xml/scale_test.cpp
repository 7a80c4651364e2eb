// Depth must cost no stack, and ten times the input about ten times the time.
#include "tests/xml/codec.hpp"

#include <algorithm>

using test::decode;
using test::str;

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int64_t scale = 10; ///< Sanitizers slow everything down and keep freed memory.
#else
constexpr int64_t scale = 1;
#endif

const std::string declaration = "<?xml version='1.0'?>";

std::string repeated(std::string_view piece, int64_t count) {
    std::string all;
    all.reserve(piece.size() * size_t(count));
    for (; count > 0; --count)
        all += piece;
    return all;
}

TEST(Scale, a_million_levels_need_no_stack) {
    const int64_t depth = 1000000;
    test::onSmallStack([&] {
        const std::string text = repeated("<a>", depth - 1) + "<a/>" + repeated("</a>", depth - 1);
        auto decoded = decode(declaration + text, XML_FLAG_DECODE_LOCATION);
        ASSERT_TRUE(decoded.document) << decoded.error;
        EXPECT_EQ(test::encode(decoded.document, XML_FLAG_ENCODE_OMIT_XML_DECLARATION), text);
        Ref copy(xmlDocumentCreateFrom(decoded.document));
        Ref items(xmlDocumentItems(copy));
        Ref root(xmlItemsItemElementAt(items, 0));
        xmlElementAppendItemTextValue(root.edit(), str("last"));
        xmlItemsSetItemElementAt(items.edit(), 0, root);
        xmlDocumentSetItems(copy.edit(), items);
        decoded.document = {};
        const std::string changed = text.substr(0, text.size() - 4) + "last</a>";
        EXPECT_EQ(test::encode(copy, XML_FLAG_ENCODE_OMIT_XML_DECLARATION), changed);
        Ref resolved(xmlNsDocumentTryDecode(copy));
        copy = Ref(xmlNsDocumentEncode(Ref(xmlNsDecodeResultDocument(resolved))));
        EXPECT_EQ(test::encode(copy, XML_FLAG_ENCODE_OMIT_XML_DECLARATION), changed);
    });
    EXPECT_EQ(decode(declaration + repeated("<a>", depth)).error, "TAG_NOT_CLOSED");
}

/// The shortest of three runs in seconds of this thread's processor time, which other programs on
/// the machine do not stretch.
double secondsOf(const std::function<void()> &work) {
    double best = 1e9;
    for (int run = 0; run < 3; ++run) {
        const double begin = test::threadSeconds();
        work();
        best = std::min(best, test::threadSeconds() - begin);
    }
    return best;
}

void expectLinear(int64_t n, const std::function<void(int64_t)> &work) {
    n /= scale;
    const double small = secondsOf([&] { work(n / 10); });
    const double large = secondsOf([&] { work(n); });
    EXPECT_LT(large, small * test::tenfold + 0.02);
}

/// Times decoding, encoding and releasing, but not the making of the text.
void expectLinearCodec(int64_t n, const std::function<std::string(int64_t)> &textOf) {
    Ref options(xmlOptionsCreate());
    const auto buffers = [&](int64_t count) {
        return test::buffer(declaration + textOf(count / scale));
    };
    const auto seconds = [&](Ref<voBuffer> text) {
        return secondsOf([&] {
            Ref result(xmlDocumentDecode(text, options, nullptr));
            Ref document(xmlDecodeResultDocument(result));
            ASSERT_TRUE(document);
            Ref encoded(xmlDocumentTryEncode(document, options));
            EXPECT_GE(voBufferLength(encoded) + 2, voBufferLength(text));
        });
    };
    const double small = seconds(buffers(n / 10));
    EXPECT_LT(seconds(buffers(n)), small * test::tenfold + 0.02);
}

TEST(Scale, decoding_and_encoding_are_linear_in_the_width) {
    expectLinearCodec(1000000, [](int64_t n) {
        std::string text = "<a";
        for (int64_t i = 0; i < n; ++i)
            text += " name" + std::to_string(i) + "=\"v\"";
        return text + "/>";
    });
    expectLinearCodec(1000000, [](int64_t n) { return repeated("<b>text</b>", n); });
    expectLinearCodec(1000000, [](int64_t n) { return repeated("<!--c--> ", n); });
    expectLinearCodec(100000000, [](int64_t n) { return std::string(size_t(n), 'x'); });
    expectLinearCodec(30000000, [](int64_t n) { return repeated("\u4E2D", n / 3); });
    expectLinearCodec(10000000, [](int64_t n) {
        return "<!-- " + repeated("- ", n / 2) + "--><?p " + repeated("? ", n / 2) + "?>";
    });
}

TEST(Scale, refusals_are_linear_too) {
    expectLinear(20000000, [](int64_t n) {
        EXPECT_EQ(decode(declaration + "<a b='" + repeated("&amp;", n / 5)).error,
                  "ATTRIBUTE_LIST");
        EXPECT_EQ(
            decode(declaration + repeated("]]", n / 2) + "<![CDATA[" + repeated("]]", n / 2)).error,
            "CDATA");
    });
}

TEST(Scale, setters_are_linear_in_the_width) {
    expectLinear(1000000, [](int64_t n) {
        Ref el(xmlElementCreate(str("a")));
        Ref child(xmlElementCreate(str("b")));
        Ref value = str("text");
        for (int64_t i = 0; i < n; ++i) {
            xmlElementAppendItemElement(el.edit(), child);
            xmlElementAppendItemTextEscape(el.edit(), value);
        }
        EXPECT_EQ(xmlElementItemsLength(el), 2 * n);
    });
    expectLinear(1000000, [](int64_t n) {
        Ref vector(voVectorCreate());
        for (int64_t i = 0; i < n; ++i)
            voVectorAppendObj(
                vector.edit(),
                xmlAttributeObj(Ref(xmlAttributeCreate(str("name" + std::to_string(i))))));
        Ref attrs(xmlAttributesCreate());
        xmlAttributesSetVector(attrs.edit(), vector);
        xmlAttributesAppend(attrs.edit(), Ref(xmlAttributesCreateFrom(attrs)));
        EXPECT_EQ(xmlAttributesLength(attrs), n);
    });
    expectLinear(50000000, [](int64_t n) {
        Ref raw = str(repeated("a<b&", n / 4));
        Ref text(xmlTextCreateEscape(raw));
        Ref back(xmlTextTryUnescape(text));
        EXPECT_TRUE(voStringEquals(back, raw));
    });
}

} // namespace
