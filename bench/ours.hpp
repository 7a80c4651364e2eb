// This library in the race.
#pragma once

#include "bench/contestant.hpp"
#include "xml/xml.h"

namespace bench {

using Document = Owned<XML_DOCUMENT, xmlDocumentRelease>;
using Element = Owned<XML_ELEMENT, xmlElementRelease>;
using Items = Owned<XML_ITEMS, xmlItemsRelease>;
using String = Owned<voString, voStringRelease>;

/// The document in a file, null when it is refused.
Document decoded(const File &file);

/// The length of a document's encoded form.
uint64_t encodedLength(XML_DOCUMENT *document);

/// The works of `voxmlTree` and `voxmlGetters` that take more than a few lines.
uint64_t readByCursor(const File &file);
uint64_t readByGetters(const File &file);
uint64_t changeDeepElement(const File &file);

/// Whether the cursor and the getters read the same names and values. The measured readers count
/// lengths, in bytes and in code points; this check converts them to the same unit first.
bool readersAgree(const File &file);

} // namespace bench
