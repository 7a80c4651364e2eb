/** @file
 *  Options of decoding and encoding.
 *
 *  There are five, each a flag word:
 *
 *      flags                see xml_flags.h                          default: none
 *      decodeCharsetFlags   conversion of the input                  VO_CHARSET_FLAG_BOM
 *      decodeNlfFlags       what counts as a newline in locations    every newline
 *      encodeCharsetFlags   conversion of the output                 none
 *      encodeNlfFlags       for programs' own use, not read here     VO_NLF_FLAG_LF
 *
 *  An option knows whether it was set or holds its default, so that a store record can be limited
 *  to what somebody chose. Setting an option to the default's value counts as setting it. */
#ifndef XML_XML_OPTIONS_H
#define XML_XML_OPTIONS_H

#include "xml/xml_flags.h"

VO_BEGIN_DECLS

/** The five options. */
typedef struct XML_OPTIONS XML_OPTIONS;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlOptionsSort(void);
VO_API XML_OPTIONS *xmlOptionsRetain(XML_OPTIONS *obj);
VO_API void xmlOptionsRelease(XML_OPTIONS *obj);
VO_API voObj *xmlOptionsObj(XML_OPTIONS *obj);
VO_API XML_OPTIONS *xmlOptionsFrom(voObj *obj);
VO_NEW voString *xmlOptionsToString(XML_OPTIONS *obj);
VO_API int64_t xmlOptionsCompare(XML_OPTIONS *objA, XML_OPTIONS *objB);
VO_API int xmlOptionsEquals(XML_OPTIONS *objA, XML_OPTIONS *objB);
VO_NEW XML_OPTIONS *xmlOptionsCreateFrom(XML_OPTIONS *source);
/** @} */

/** Makes options that all hold their defaults. */
VO_NEW XML_OPTIONS *xmlOptionsCreate(void);

/** @name Values
 *  The flags of an option, those of its default as long as it is not set. @{ */
VO_API XML_FLAGS xmlOptionsFlags(XML_OPTIONS *opt);
VO_API voCharsetFlags xmlOptionsDecodeCharsetFlags(XML_OPTIONS *opt);
VO_API voNlfFlags xmlOptionsDecodeNlfFlags(XML_OPTIONS *opt);
VO_API voCharsetFlags xmlOptionsEncodeCharsetFlags(XML_OPTIONS *opt);
VO_API voNlfFlags xmlOptionsEncodeNlfFlags(XML_OPTIONS *opt);
/** @} */

/** @name Setting
 *  Bits that are not flags of the option are dropped. Encoding writes line ends as the document
 *  holds them: the encode newline flags are kept for programs, and nothing here reads them. @{ */
VO_API void xmlOptionsSetFlags(XML_OPTIONS **opt, XML_FLAGS flags);
VO_API void xmlOptionsSetDecodeCharsetFlags(XML_OPTIONS **opt, voCharsetFlags flags);
VO_API void xmlOptionsSetDecodeNlfFlags(XML_OPTIONS **opt, voNlfFlags flags);
VO_API void xmlOptionsSetEncodeCharsetFlags(XML_OPTIONS **opt, voCharsetFlags flags);
VO_API void xmlOptionsSetEncodeNlfFlags(XML_OPTIONS **opt, voNlfFlags flags);
/** @} */

/** @name Whether an option holds its default
 *  1 until the option is set, and again after it has gone back. @{ */
VO_API int xmlOptionsFlagsDefault(XML_OPTIONS *opt);
VO_API int xmlOptionsDecodeCharsetFlagsDefault(XML_OPTIONS *opt);
VO_API int xmlOptionsDecodeNlfFlagsDefault(XML_OPTIONS *opt);
VO_API int xmlOptionsEncodeCharsetFlagsDefault(XML_OPTIONS *opt);
VO_API int xmlOptionsEncodeNlfFlagsDefault(XML_OPTIONS *opt);
/** @} */

/** @name Going back
 *  The option holds its default again, and counts as not set. @{ */
VO_API void xmlOptionsSetFlagsDefault(XML_OPTIONS **opt);
VO_API void xmlOptionsSetDecodeCharsetFlagsDefault(XML_OPTIONS **opt);
VO_API void xmlOptionsSetDecodeNlfFlagsDefault(XML_OPTIONS **opt);
VO_API void xmlOptionsSetEncodeCharsetFlagsDefault(XML_OPTIONS **opt);
VO_API void xmlOptionsSetEncodeNlfFlagsDefault(XML_OPTIONS **opt);
/** @} */

/** The options as a record: under each option's name, its flags as text. @param full 0 leaves out
 *  the options that hold their default, anything else writes all five. */
VO_NEW voStore *xmlOptionsStore(XML_OPTIONS *opt, int full);

/** Reads a record that xmlOptionsStore() wrote. An option that the record lacks holds its default;
 *  one that it has counts as set. Other keys and unknown flags are ignored, so this never fails. */
VO_NEW XML_OPTIONS *xmlOptionsRestore(voStore *store);

VO_END_DECLS

#endif
