// Depth must cost memory and no stack.
#include "tests/xml/codec.hpp"

using test::decode;
using test::str;

namespace {

const std::string declaration = "<?xml version='1.0'?>";

std::string repeated(std::string_view piece, int64_t count) {
    std::string all;
    all.reserve(piece.size() * size_t(count));
    for (; count > 0; --count)
        all += piece;
    return all;
}

TEST(Depth, OfAMillionLevelsNeedsNoStack) {
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

} // namespace
