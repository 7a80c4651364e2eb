/** @file
 *  Which strings the nodes of a tree may hold.
 *
 *  Constructors and setters demand what these checks tell; a decoder asks them about its input.
 *  They look for what would break the markup and nothing else: control characters, surrogates and
 *  the like pass. Each gives 1 or 0, allocates nothing and takes time in proportion to the length.
 *  The string must not be null. */
#ifndef XML_XML_VALUE_H
#define XML_XML_VALUE_H

#include "vo/vo.h"

VO_BEGIN_DECLS

/** An XML name, colons allowed: a name start character and any number of name characters. */
VO_API int xmlValueNameOk(voString *name);

/** What may stand between <? and ?>: a name (the target) at the very start, and no ?> after the
 *  target and the white space behind it. The target "xml" is not excluded. */
VO_API int xmlValueProcessingInstructionValueOk(voString *value);

/** What a comment may hold: it is not empty, no hyphen first or last, no two in a row. */
VO_API int xmlValueCommentOk(voString *commentText);

/** The version number of an XML declaration: "1." and one or more decimal digits. */
VO_API int xmlValueVersionNumOk(voString *versionNum);

/** What may stand in a CDATA section: anything, also nothing, that does not contain ]]>. For null
 *  it aborts with the condition of voStringFindChars(). */
VO_API int xmlValueCdataOk(voString *value);

/** Escaped character data, possibly empty: no < and no & but at the start of a reference. Any
 *  entity name is accepted, and so is a character reference, although decoding accepts one in
 *  attribute values only: a text between tags that holds one is encoded as it stands, and what is
 *  written then does not decode. xmlTextCreateEscape() never makes one. */
VO_API int xmlValueTextOk(voString *text);

VO_END_DECLS

#endif
