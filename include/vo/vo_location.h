/** @file
 *  Places in a parsed text, and maps that find them. */
#ifndef VO_VO_LOCATION_H
#define VO_VO_LOCATION_H

#include "vo/vo_newline.h"

VO_BEGIN_DECLS

/** A place in a text: an optional name of the text, the offset in code points from 0, the line and
 *  the column, in code points, from 1. As a string it reads `source:line:column`, without a source
 *  `line:column`. Locations compare by content: source (none first), offset, line, column. */
typedef struct voParserLocation voParserLocation;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *voParserLocationSort(void);
VO_API voParserLocation *voParserLocationRetain(voParserLocation *obj);
VO_API void voParserLocationRelease(voParserLocation *obj);
VO_API voObj *voParserLocationObj(voParserLocation *obj);
VO_API voParserLocation *voParserLocationFrom(voObj *obj);
VO_NEW voString *voParserLocationToString(voParserLocation *obj);
VO_API int64_t voParserLocationCompare(voParserLocation *a, voParserLocation *b);
VO_API int voParserLocationEquals(voParserLocation *a, voParserLocation *b);
VO_NEW voParserLocation *voParserLocationCreateFrom(voParserLocation *source);
/** @} */

/** A location. An `offset` below 0, a `line` or a `column` below 1 abort. */
VO_NEW voParserLocation *voParserLocationCreate(voString *optionalSource, int64_t offset,
                                                int64_t line, int64_t column);

/** The name of the text, or null. */
VO_NEW voString *voParserLocationSource(voParserLocation *location);
/** Code points in front of the place. */
VO_API int64_t voParserLocationOffset(voParserLocation *location);
/** The line, from 1. */
VO_API int64_t voParserLocationLine(voParserLocation *location);
/** Code points between the beginning of the line and the place, plus 1. */
VO_API int64_t voParserLocationColumn(voParserLocation *location);

/** A table of the lines of one text. It does not keep the text. */
typedef struct voParserLocationMap voParserLocationMap;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *voParserLocationMapSort(void);
VO_API voParserLocationMap *voParserLocationMapRetain(voParserLocationMap *obj);
VO_API void voParserLocationMapRelease(voParserLocationMap *obj);
VO_API voObj *voParserLocationMapObj(voParserLocationMap *obj);
VO_API voParserLocationMap *voParserLocationMapFrom(voObj *obj);
VO_NEW voString *voParserLocationMapToString(voParserLocationMap *obj);
VO_API int64_t voParserLocationMapCompare(voParserLocationMap *a, voParserLocationMap *b);
VO_API int voParserLocationMapEquals(voParserLocationMap *a, voParserLocationMap *b);
VO_NEW voParserLocationMap *voParserLocationMapCreateFrom(voParserLocationMap *source);
/** @} */

/** Notes where the lines of the `count` code points at `chars` (null when there are none) begin.
 *  `optionalLocation` is the place of the first code point, for a text that is part of a larger
 *  one; without it the text begins at offset 0, line 1, column 1 of no source. */
VO_NEW voParserLocationMap *voParserLocationMapCreate(voParserLocation *optionalLocation,
                                                      voNlfFlags nlfFlags, const uint32_t *chars,
                                                      int64_t count);

/** The location of the code point at `position`; the text's length stands for its end, and a
 *  position outside aborts. A newline belongs to the line that it ends, with all of its code
 *  points. Takes time in proportion to the logarithm of the number of lines. */
VO_NEW voParserLocation *voParserLocationMapLookup(voParserLocationMap *map, int64_t position);

VO_END_DECLS

#endif
