// The importer, and how other readers of XML see a document.
#pragma once

#include "tests/xml/codec.hpp"
#include "xml/xml_import.h"

#include <string>
#include <string_view>
#include <vector>

namespace test {

/// What is wrong with a document: Expat's code, and where.
struct Refusal {
    int64_t code = 0; ///< 0: nothing.
    int64_t line = 0, column = 0, byteOffset = 0;

    bool operator==(const Refusal &) const = default;
};
std::ostream &operator<<(std::ostream &out, const Refusal &refusal);

/// A document, or why it is refused.
struct Imported {
    Ref<XML_DOCUMENT> document;
    Refusal refusal;
    std::string message; ///< As it is shown to people.
};
Imported import(std::string_view bytes, const XML_IMPORT_OPTIONS &options = {});

/// What Expat by itself finds wrong. Columns do not count a byte-order mark.
Refusal refusalByExpat(std::string_view bytes);

/// Canonical XML with comments, as libxml2 makes it without looking outside the document; empty
/// where it refuses the document. Comments that a tree cannot hold get their space.
std::string c14n(std::string_view bytes);

/// Documents with everything that the decoder refuses and the importer takes.
extern const std::vector<std::string> documentsForImport;

} // namespace test
