// A text as the codecs see it.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_text.h"

struct XML_TEXT {
    voObj base;
    voString *value;            ///< Escaped: satisfies xmlValueTextOk().
    voParserLocation *location; ///< Null when it was not recorded.

    auto fields() { return std::tie(value, location); }
};

extern "C" {
// The predefined entity references, as code points without a terminator.
extern const uint32_t xml___EntityLt[4];
extern const uint32_t xml___EntityGt[4];
extern const uint32_t xml___EntityAmp[5];
extern const uint32_t xml___EntityQuot[6];
extern const uint32_t xml___EntityApos[6];

/// The value as a quoted attribute value, delimiters included: in quotation marks unless it holds
/// more of those than apostrophes.
voString *xml___TextAttributify(XML_TEXT *text);
}
