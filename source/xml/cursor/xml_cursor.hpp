// What the library itself asks a cursor.
#pragma once

#include "source/xml/base/xml_piece.hpp"
#include "source/xml/outline/xml_outline.hpp"
#include "xml/xml_cursor.h"

namespace xml {

/// Whether every name, namespace and value that the cursor has given was exact: none held a code
/// point that UTF-8 cannot express.
bool wasExact(XML_CURSOR *cursor);

/// The type of the item to which xmlCursorNext() would move; -1 where it would not. The cursor must
/// stand on an item.
XML_ITEM_TYPE typeOfNext(XML_CURSOR *cursor);

/// A node of a decoded tree of which no objects are made: its outline and the number of its record,
/// or Outline::root for the document.
struct RecordPlace {
    const Outline *outline; ///< Kept by the cursor; null where the document is empty.
    uint64_t number;
};
RecordPlace recordOf(XML_CURSOR *cursor);

inline Piece pieceOf(XML_UTF8 text) {
    const auto *begin = reinterpret_cast<const uint8_t *>(text.bytes);
    return {begin, begin + text.length};
}

} // namespace xml
