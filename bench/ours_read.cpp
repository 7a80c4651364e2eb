// Reading every name and value of a document: without making objects, and by counted objects.
#include "bench/ours.hpp"

#include "xml/xml_cursor.h"

#include <algorithm>

namespace bench {
namespace {

using Cursor = Owned<XML_CURSOR, xmlCursorRelease>;
using Measure = int64_t(XML_UTF8);

int64_t bytes(XML_UTF8 text) { return text.length; }

int64_t codePoints(XML_UTF8 text) {
    const auto beginsOne = [](char byte) { return (byte & 0xC0) != 0x80; };
    return std::count_if(text.bytes, text.bytes + text.length, beginsOne);
}

template <Measure measure> void readAttributes(XML_CURSOR *cursor, Checksum &sum) {
    if (!xmlCursorFirstAttribute(cursor)) return;
    do {
        sum.add(measure(xmlCursorName(cursor)));
        sum.add(measure(xmlCursorValue(cursor)));
    } while (xmlCursorNext(cursor));
    xmlCursorParent(cursor);
}

template <Measure measure> void readNode(XML_CURSOR *cursor, Checksum &sum) {
    if (xmlCursorType(cursor) != XML_ITEM_TYPE_ELEMENT) {
        sum.add(measure(xmlCursorValue(cursor)));
        return;
    }
    sum.add(measure(xmlCursorName(cursor)));
    readAttributes<measure>(cursor, sum);
}

/// To the next node in document order, attributes aside; false at the end.
bool advance(XML_CURSOR *cursor) {
    if (xmlCursorFirstChild(cursor)) return true;
    while (!xmlCursorNext(cursor))
        if (!xmlCursorParent(cursor)) return false;
    return true;
}

template <Measure measure> uint64_t sumByCursor(XML_DOCUMENT *document) {
    Checksum sum;
    const Cursor cursor(xmlCursorCreate(document));
    while (advance(cursor.get()))
        readNode<measure>(cursor.get(), sum);
    return sum.value;
}

void add(Checksum &sum, voString *taken) {
    sum.add(voStringLength(taken));
    voStringRelease(taken);
}

void readItems(XML_ITEMS *items, Checksum &sum);

void readElement(XML_ELEMENT *element, Checksum &sum) {
    add(sum, xmlElementName(element));
    const int64_t attributes = xmlElementAttributesLength(element);
    for (int64_t i = 0; i < attributes; ++i) {
        add(sum, xmlElementAttributeNameAt(element, i));
        add(sum, xmlElementAttributeTextValueAt(element, i));
    }
    const Items items(xmlElementItems(element));
    readItems(items.get(), sum);
}

voString *commentValue(XML_ITEMS *items, int64_t index) {
    const Owned<XML_COMMENT, xmlCommentRelease> comment(xmlItemsItemCommentAt(items, index));
    return xmlCommentValue(comment.get());
}

voString *cdataValue(XML_ITEMS *items, int64_t index) {
    const Owned<XML_CDATA, xmlCdataRelease> cdata(xmlItemsItemCdataAt(items, index));
    return xmlCdataValue(cdata.get());
}

voString *instructionValue(XML_ITEMS *items, int64_t index) {
    const Owned<XML_PROCESSING_INSTRUCTION, xmlProcessingInstructionRelease> instruction(
        xmlItemsItemProcessingInstructionAt(items, index));
    return xmlProcessingInstructionValue(instruction.get());
}

void readItem(XML_ITEMS *items, int64_t index, Checksum &sum) {
    switch (xmlItemsItemTypeAt(items, index)) {
    case XML_ITEM_TYPE_ELEMENT:
        return readElement(Element(xmlItemsItemElementAt(items, index)).get(), sum);
    case XML_ITEM_TYPE_TEXT:
        return add(sum, xmlItemsItemTextValueAt(items, index));
    case XML_ITEM_TYPE_CDATA:
        return add(sum, cdataValue(items, index));
    case XML_ITEM_TYPE_COMMENT:
        return add(sum, commentValue(items, index));
    default:
        return add(sum, instructionValue(items, index));
    }
}

void readItems(XML_ITEMS *items, Checksum &sum) {
    const int64_t length = xmlItemsLength(items);
    for (int64_t i = 0; i < length; ++i)
        readItem(items, i, sum);
}

uint64_t sumByGetters(XML_DOCUMENT *document) {
    Checksum sum;
    const Items items(xmlDocumentItems(document));
    readItems(items.get(), sum);
    return sum.value;
}

} // namespace

uint64_t readByCursor(const File &file) {
    const Document document = decoded(file);
    return document ? sumByCursor<bytes>(document.get()) : 0;
}

uint64_t readByGetters(const File &file) {
    const Document document = decoded(file);
    return document ? sumByGetters(document.get()) : 0;
}

bool readersAgree(const File &file) {
    const Document document = decoded(file);
    return sumByCursor<codePoints>(document.get()) == sumByGetters(document.get());
}

} // namespace bench
