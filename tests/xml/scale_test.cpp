// Depth must cost no stack, and ten times the input about ten times the time.
#include "tests/xml/codec.hpp"
#include "tests/xml/layers.hpp"

#include <algorithm>
#include <sys/resource.h>

using test::decode;
using test::str;

namespace {

#if TEST_SANITIZED
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

/// The shortest of some runs in seconds of this thread's processor time, which other programs on
/// the machine do not stretch.
double secondsOf(const std::function<void()> &work, int runs = 3) {
    double best = 1e9;
    for (; runs > 0; --runs) {
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

/// As many edits below one root as that has children. They go to the first few of those, which stay
/// in the caches, so that nothing but the work on the whole list can take longer with its length.
template <class Layer, class Take> void expectLinearTaking(Take take) {
    const auto secondsFor = [&](int64_t edits) {
        Ref root = Layer::element("root");
        for (int64_t i = 0; i < edits; ++i)
            Layer::appendElement(root.edit(), Layer::element("child"));
        const auto change = [&] {
            constexpr int64_t few = 100;
            for (int64_t i = 0; i < edits; ++i) {
                Ref child(take(root.edit(), i % few));
                Layer::renameElement(child.edit(), "changed");
                Layer::setElementAt(root.edit(), i % few, child);
            }
        };
        return secondsOf(change, 7);
    };
    constexpr int64_t edits = 20000;
    EXPECT_LT(secondsFor(10 * edits), secondsFor(edits) * test::tenfold);
}

TEST(Scale, changing_children_that_are_taken_out_is_linear) {
    expectLinearTaking<test::Plain>(xmlElementTakeItemElementAt);
    expectLinearTaking<test::Namespaced>(xmlNsElementTakeItemElementAt);
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
    Layer::appendElementComment(root.edit(), test::comment("c"));
    Layer::setElementInItems(items.edit(), 0, root);
    Layer::setDocumentItems(changed.edit(), items);
    EXPECT_EQ(encode(changed).size(), text.size() + 8);
    EXPECT_GT(read<Layer>(document, INT64_MAX), 0);
    EXPECT_TRUE(encode(document) == text);
}

/// Everything that programs do with a document; nothing of it may need stack in proportion.
void use(const std::string &text, int64_t half) {
    const auto encoded = [](XML_DOCUMENT *document) {
        return test::encode(document, XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
    };
    auto decoded = decode(declaration + text);
    ASSERT_TRUE(decoded.document) << decoded.error;
    EXPECT_TRUE(encoded(decoded.document) == text);
    readAndChange<test::Namespaced>(
        test::nsDecode(decoded.document).document, text, half,
        [&](XML_NS_DOCUMENT *document) { return encoded(Ref(xmlNsDocumentEncode(document))); });
    readAndChange<test::Plain>(std::move(decoded.document), text, half, encoded);
}

TEST(Scale, using_a_document_is_linear_and_needs_no_stack) {
    const std::function<std::string(int64_t)> shapes[] = {
        [](int64_t n) { return repeated("<a>", n) + "<b/>" + repeated("</a>", n); },
        [](int64_t n) { return "<a>" + repeated("<b>x</b>", n) + "</a>"; },
        [](int64_t n) {
            std::string text = "<a";
            for (int64_t i = 0; i < n; ++i)
                text += " name" + std::to_string(i) + "=\"v\"";
            return text + ">x</a>";
        },
        [](int64_t n) {
            std::string text = "<a>";
            for (int64_t i = 0; i < n; ++i)
                text += "<b" + std::to_string(i) + "/>";
            return text + "</a>";
        },
    };
    test::onSmallStack([&] {
        for (const auto &shape : shapes) {
            const int64_t n = 1000000 / scale;
            // Neither size fits the caches, so that the times differ in proportion, apart from
            // noise.
            const double small = secondsOf([&] { use(shape(n / 4), n / 8); });
            const double large = secondsOf([&] { use(shape(n), n / 2); }, 1);
            EXPECT_LT(large, 12 * small);
        }
    });
}

#if !TEST_SANITIZED

int64_t peakMemory() {
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return int64_t{usage.ru_maxrss} * 1024;
}

[[noreturn]] void refuseOpenTags(int64_t count) {
    Ref text = test::buffer(declaration + repeated("<a>", count));
    Ref options(xmlOptionsCreate());
    const int64_t before = peakMemory();
    Ref result(xmlDocumentDecode(text, options, nullptr));
    const int64_t perTag = (peakMemory() - before) / count;
    std::fprintf(stderr, "%ld bytes a tag\n", long(perTag));
    std::_Exit(xmlDecodeResultHasDocument(result) || perTag > 40);
}

/// Measured in a process of its own, whose memory nobody has used before.
TEST(ScaleDeathTest, tags_without_end_take_little_memory) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(refuseOpenTags(2000000), testing::ExitedWithCode(0), "[1-9][0-9]* bytes a tag");
}

#endif

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
