/** @file
 *  Character data: the content of a text node and the value of an attribute.
 *
 *  A text is held in escaped form, as it stands between markup: without a raw "<", and with a
 *  reference behind every "&". Names tell which form they deal in: `...Value` is the escaped form,
 *  `...Escape` takes plain characters and escapes them, `...TryUnescape` gives plain characters. */
#ifndef XML_XML_TEXT_H
#define XML_XML_TEXT_H

#include "vo/vo.h"

VO_BEGIN_DECLS

typedef struct XML_TEXT XML_TEXT; /**< A text. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlTextSort(void);
VO_API XML_TEXT *xmlTextRetain(XML_TEXT *obj);
VO_API void xmlTextRelease(XML_TEXT *obj);
VO_API voObj *xmlTextObj(XML_TEXT *obj);
VO_API XML_TEXT *xmlTextFrom(voObj *obj);
VO_NEW voString *xmlTextToString(XML_TEXT *obj);
VO_API int64_t xmlTextCompare(XML_TEXT *objA, XML_TEXT *objB);
VO_API int xmlTextEquals(XML_TEXT *objA, XML_TEXT *objB);
VO_NEW XML_TEXT *xmlTextCreateFrom(XML_TEXT *source);
/** @} */

/** Makes an empty text. */
VO_NEW XML_TEXT *xmlTextCreate(void);

/** Makes a text of the escaped `value`, which must satisfy xmlValueTextOk(). */
VO_NEW XML_TEXT *xmlTextCreateValue(voString *value);

/** Makes a text of the plain characters `vos`. */
VO_NEW XML_TEXT *xmlTextCreateEscape(voString *vos);

/** The escaped form, as it is stored: references are not resolved. */
VO_NEW voString *xmlTextValue(XML_TEXT *text);

/** Stores the escaped `value` as it is. It must satisfy xmlValueTextOk(). */
VO_API void xmlTextSetValue(XML_TEXT **text, voString *value);

/** Stores the plain characters `vos`, "<" and "&" escaped and everything else unchanged. Decoding
 *  gives them back; other parsers refuse "]]>" in text and most control characters, and read line
 *  ends as U+000A, in attributes as blanks. */
VO_API void xmlTextSetEscape(XML_TEXT **text, voString *vos);

/** The plain characters: references replaced by what they stand for. Null when the text refers to
 *  an entity other than lt, gt, amp, quot and apos. */
VO_NEW voString *xmlTextTryUnescape(XML_TEXT *text);

/** @name Location
 *  Where the text of an element begins in the decoded input, see XML_FLAG_DECODE_LOCATION. Null
 *  when that was not recorded, and for the value of an attribute. @{ */
VO_NEW voParserLocation *xmlTextLocation(XML_TEXT *text);
VO_API int xmlTextHasLocation(XML_TEXT *text);
VO_API void xmlTextSetLocation(XML_TEXT **text, voParserLocation *loc);
VO_API void xmlTextDelLocation(XML_TEXT **text);
/** @} */

VO_END_DECLS

#endif
