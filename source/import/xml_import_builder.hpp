// From what Expat reports to a tree.
#pragma once

#include "source/import/xml_import_input.hpp"
#include "xml/xml_import.h"

namespace xml {

/// A document, or Expat's code and the place in what it reads.
struct ImportResult {
    vo::Ref<XML_DOCUMENT> document;
    int64_t code = 0;
    int64_t place = 0;
};

/// The options hold no zeros but for `locations`.
ImportResult buildImported(const ImportInput &input, const XML_IMPORT_OPTIONS &options,
                           voParserLocation *optionalLocation);

} // namespace xml
