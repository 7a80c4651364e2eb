/** @file
 *  Messages for people. */
#ifndef VO_VO_MESSAGE_H
#define VO_VO_MESSAGE_H

#include "vo/vo_location.h"

VO_BEGIN_DECLS

/** A text with a kind and, when it is about a place, the place. As a string it reads
 *  `source:line:column: error: text`, less what is absent. Messages compare by content: kind,
 *  location (none first), text. */
typedef struct voMessage voMessage;

/** @name Kinds
 *  Other values are allowed; a message of such a kind is written without a word for it. @{ */
#define VO_MESSAGE_NOTE INT64_C(1)
#define VO_MESSAGE_WARNING INT64_C(2)
#define VO_MESSAGE_ERROR INT64_C(3)
/** @} */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *voMessageSort(void);
VO_API voMessage *voMessageRetain(voMessage *obj);
VO_API void voMessageRelease(voMessage *obj);
VO_API voObj *voMessageObj(voMessage *obj);
VO_API voMessage *voMessageFrom(voObj *obj);
VO_NEW voString *voMessageToString(voMessage *obj);
VO_API int64_t voMessageCompare(voMessage *a, voMessage *b);
VO_API int voMessageEquals(voMessage *a, voMessage *b);
VO_NEW voMessage *voMessageCreateFrom(voMessage *source);
/** @} */

/** A message whose text is formatted as voStringAppendFormatCstr() formats, which takes over the
 *  references of the placeholders' arguments. */
VO_NEW voMessage *voMessageCreateFormatCstr(int64_t kind, voParserLocation *optionalLocation,
                                            const char *format, int64_t length, ...);

/** The kind, as it was given. */
VO_API int64_t voMessageKind(voMessage *message);
/** The place, or null. */
VO_NEW voParserLocation *voMessageLocation(voMessage *message);
/** The text alone, without the kind and the place. */
VO_NEW voString *voMessageText(voMessage *message);

VO_END_DECLS

#endif
