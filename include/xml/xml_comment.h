/** @file
 *  Comments. */
#ifndef XML_XML_COMMENT_H
#define XML_XML_COMMENT_H

#include "vo/vo.h"

VO_BEGIN_DECLS

/** A comment: <!--value-->. */
typedef struct XML_COMMENT XML_COMMENT;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlCommentSort(void);
VO_API XML_COMMENT *xmlCommentRetain(XML_COMMENT *obj);
VO_API void xmlCommentRelease(XML_COMMENT *obj);
VO_API voObj *xmlCommentObj(XML_COMMENT *obj);
VO_API XML_COMMENT *xmlCommentFrom(voObj *obj);
VO_NEW voString *xmlCommentToString(XML_COMMENT *obj);
VO_API int64_t xmlCommentCompare(XML_COMMENT *objA, XML_COMMENT *objB);
VO_API int xmlCommentEquals(XML_COMMENT *objA, XML_COMMENT *objB);
VO_NEW XML_COMMENT *xmlCommentCreateFrom(XML_COMMENT *source);
/** @} */

/** Makes a comment without a location. @param value see xmlValueCommentOk(). */
VO_NEW XML_COMMENT *xmlCommentCreate(voString *value);

/** The text between the delimiters, as it was given. */
VO_NEW voString *xmlCommentValue(XML_COMMENT *comment);

/** Replaces the text. @param value see xmlValueCommentOk(). */
VO_API void xmlCommentSetValue(XML_COMMENT **comment, voString *value);

/** @name Location
 *  Where the comment begins in the decoded input, see XML_FLAG_DECODE_LOCATION; null
 *  when that was not recorded. @{ */
VO_NEW voParserLocation *xmlCommentLocation(XML_COMMENT *comment);
VO_API int xmlCommentHasLocation(XML_COMMENT *comment);
VO_API void xmlCommentSetLocation(XML_COMMENT **comment, voParserLocation *loc);
VO_API void xmlCommentDelLocation(XML_COMMENT **comment);
/** @} */

VO_END_DECLS

#endif
