// The fields of a text, for code that builds or reads it in place.
#pragma once

#include "source/xml/base/xml_character_data.hpp"
#include "xml/xml_text.h"

/// The value is escaped: it satisfies xmlValueTextOk().
struct XML_TEXT : xml::CharacterData {};

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
