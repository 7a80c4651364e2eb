#include "source/vo/vo_buffer_builder.hpp"
#include "source/xml/cursor/xml_cursor_text.hpp"
#include "xml/xml_cursor.h"
#include "xml/xml_ns_value.h"
#include "xml/xml_shortcuts.h"
#include "xml/xml_value.h"

using vo::Ref;

namespace {

/// A block of its own with a NUL behind it.
char *createBlock(vo::Bytes text, int64_t *optionalLength) {
    const auto length = int64_t(text.size());
    auto *block = static_cast<char *>(voMemAllocN(length + 1, 1));
    voMemCopyN(block, text.data(), length, 1);
    block[length] = 0;
    if (optionalLength) *optionalLength = length;
    return block;
}

vo::Bytes bytesOf(XML_UTF8 text) {
    return {reinterpret_cast<const uint8_t *>(text.bytes), size_t(text.length)};
}

bool isContent(XML_ITEM_TYPE type) {
    return type == XML_ITEM_TYPE_TEXT || type == XML_ITEM_TYPE_CDATA;
}

/// Appends the content of the cursor's node; false when a reference in it cannot be resolved.
bool appendValue(vo::BufferBuilder &out, XML_CURSOR *cursor) {
    if (!isContent(xmlCursorType(cursor))) return true;
    const XML_UTF8 value = xmlCursorValueTryUnescape(cursor);
    if (!value.bytes) return false;
    out.append(bytesOf(value));
    return true;
}

/// Appends the content of all that is below the element on which the cursor stands.
bool appendContent(vo::BufferBuilder &out, XML_CURSOR *cursor) {
    int64_t depth = 0;
    do {
        if (!appendValue(out, cursor)) return false;
        if (xmlCursorFirstChild(cursor)) {
            ++depth;
            continue;
        }
        for (; depth > 0 && !xmlCursorNext(cursor); --depth)
            (void)xmlCursorParent(cursor);
    } while (depth > 0);
    return true;
}

voString *contentString(Ref<XML_CURSOR> cursor) {
    vo::BufferBuilder content;
    if (!appendContent(content, cursor)) return nullptr;
    const vo::Bytes bytes = content.written();
    return voStringTryCreateFromUtf8(reinterpret_cast<const char *>(bytes.data()),
                                     int64_t(bytes.size()));
}

char *contentBlock(Ref<XML_CURSOR> cursor, int64_t *optionalLength) {
    vo::BufferBuilder content;
    if (!appendContent(content, cursor)) return nullptr;
    return createBlock(content.written(), optionalLength);
}

char *valueBlock(Ref<voString> value, int64_t *optionalLength) {
    if (!value) return nullptr;
    xml::StringText text;
    return createBlock(bytesOf(text.of(value)), optionalLength);
}

} // namespace

voString *xmlElementTryContent(XML_ELEMENT *el) {
    VO_ASSERT(el);
    return contentString(Ref(xmlCursorCreateElement(el)));
}

voString *xmlNsElementTryContent(XML_NS_ELEMENT *el) {
    VO_ASSERT(el);
    return contentString(Ref(xmlCursorCreateNsElement(el)));
}

char *xmlElementTryContentUtf8(XML_ELEMENT *el, int64_t *optionalLength) {
    VO_ASSERT(el);
    return contentBlock(Ref(xmlCursorCreateElement(el)), optionalLength);
}

char *xmlNsElementTryContentUtf8(XML_NS_ELEMENT *el, int64_t *optionalLength) {
    VO_ASSERT(el);
    return contentBlock(Ref(xmlCursorCreateNsElement(el)), optionalLength);
}

char *xmlElementAttributeTryUtf8(XML_ELEMENT *el, const char *name, int64_t *optionalLength) {
    VO_ASSERT(el);
    VO_ASSERT(name);
    Ref string(voStringTryCreateFromUtf8(name, -1));
    if (!string || !xmlValueNameOk(string)) return nullptr;
    return valueBlock(Ref(xmlElementAttributeTextTryUnescape(el, string)), optionalLength);
}

char *xmlNsElementAttributeTryUtf8(XML_NS_ELEMENT *el, const char *localName,
                                   const char *optionalNs, int64_t *optionalLength) {
    VO_ASSERT(el);
    VO_ASSERT(localName);
    Ref string(voStringTryCreateFromUtf8(localName, -1));
    if (!string || !xmlNsValueLocalNameOk(string)) return nullptr;
    Ref ns(optionalNs ? voStringTryCreateFromUtf8(optionalNs, -1) : nullptr);
    if (optionalNs && (!ns || !xmlNsValueNamespaceOk(ns))) return nullptr;
    return valueBlock(Ref(xmlNsElementAttributeTextTryUnescape(el, string, ns)), optionalLength);
}
