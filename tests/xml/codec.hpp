// Documents in and out of text, for tests.
#pragma once

#include "tests/support.hpp"
#include "xml/xml.h"

#include <filesystem>
#include <functional>

namespace test {

/// What came of decoding: a document, or an error and its place.
struct Decoded {
    Ref<XML_DOCUMENT> document;
    std::string error; ///< The code's name without its prefix; empty when there is none.
    int64_t offset = -1, line = -1, column = -1;

    std::string place() const { return std::to_string(line) + ":" + std::to_string(column); }
};
Decoded decode(std::string_view bytes, XML_FLAGS flags = 0);

struct NsDecoded {
    Ref<XML_NS_DOCUMENT> document;
    std::string error;
    int64_t offset = -1;
};
NsDecoded nsDecode(XML_DOCUMENT *document);

/// The canonical text in the document's character set; "<null>" when it cannot hold the text.
std::string encode(XML_DOCUMENT *document, XML_FLAGS flags = 0);

/// The text as UTF-8 and without the declaration, whatever the document's character set.
std::string encodeItemsAsUtf8(XML_DOCUMENT *document);

/// One line for each node: E element, N declared prefix=namespace, A attribute, T text, P
/// processing instruction, C comment, D CDATA section; two blanks for each level.
std::string dump(XML_DOCUMENT *document);
std::string dump(XML_NS_DOCUMENT *document);

/// Calls `visit` for every item of the tree in document order.
void visitItems(XML_DOCUMENT *document, const std::function<void(XML_ITEM *)> &visit);

std::string readFile(const std::filesystem::path &path);

} // namespace test
