#include "vo/vo_location.h"

#include "source/vo/vo_format.hpp"
#include "source/vo/vo_int.hpp"
#include "source/vo/vo_location.hpp"
#include "source/vo/vo_newline.hpp"
#include "source/vo/vo_words.hpp"

#include <algorithm>

using namespace vo;

static int64_t compareLocations(voObj *objA, voObj *objB) {
    voParserLocation *a = voParserLocationFrom(objA);
    voParserLocation *b = voParserLocationFrom(objB);
    if (int64_t order = voObjCompare(obj(a->source), obj(b->source))) return order;
    auto places = [](voParserLocation *loc) {
        return std::tie(loc->offset, loc->line, loc->column);
    };
    if (places(a) == places(b)) return 0;
    return places(a) < places(b) ? -1 : 1;
}

static voString *locationToString(voObj *obj) {
    voParserLocation *location = voParserLocationFrom(obj);
    Ref str(voStringCreate());
    if (location->source) {
        voStringAppend(str.edit(), location->source);
        voStringAppendChar(str.edit(), ':');
    }
    appendInt(str.edit(), location->line);
    voStringAppendChar(str.edit(), ':');
    appendInt(str.edit(), location->column);
    return str.take();
}

VO_OBJECT(voParserLocation, voParserLocation, vo___sort_voParserLocation,
          vo___ParserLocationFreeFunc, nullptr, location, compareLocations, locationToString);

voParserLocation *voParserLocationCreate(voString *optionalSource, int64_t offset, int64_t line,
                                         int64_t column) {
    VO_ASSERT(offset >= 0);
    VO_ASSERT(line >= 1);
    VO_ASSERT(column >= 1);
    auto *location = create<voParserLocation>(voParserLocationSort());
    location->source = retained(optionalSource);
    location->offset = offset;
    location->line = line;
    location->column = column;
    return location;
}

voString *voParserLocationSource(voParserLocation *location) {
    return retained(VO_READ(location)->source);
}

int64_t voParserLocationOffset(voParserLocation *location) { return VO_READ(location)->offset; }

int64_t voParserLocationLine(voParserLocation *location) { return VO_READ(location)->line; }

int64_t voParserLocationColumn(voParserLocation *location) { return VO_READ(location)->column; }

// ---------------------------------------------------------------- maps

struct voParserLocationMap {
    voObj base;
    voParserLocation *start; ///< Of position 0; null: the beginning of a text without a source.
    voBuffer *lineStarts;    ///< The positions behind newlines, as words.
    int64_t count;

    auto fields() { return std::tie(start, lineStarts, count); }
};

VO_OBJECT(voParserLocationMap, voParserLocationMap, vo___sort_voParserLocationMap,
          vo___ParserLocationMapFreeFunc, nullptr, map);

voParserLocationMap *voParserLocationMapCreate(voParserLocation *optionalLocation,
                                               voNlfFlags nlfFlags, const uint32_t *chars,
                                               int64_t count) {
    VO_ASSERT(count >= 0);
    VO_ASSERT(chars || !count);
    auto *map = create<voParserLocationMap>(voParserLocationMapSort());
    map->start = retained(optionalLocation);
    map->lineStarts = voBufferCreate();
    map->count = count;
    for (int64_t position = 0; position < count;) {
        Newline newline = newlineAt(chars + position, chars + count, nlfFlags);
        position += newline.units ? newline.units : 1;
        if (newline.units) appendWord(&map->lineStarts, uint64_t(position));
    }
    return map;
}

voParserLocation *voParserLocationMapLookup(voParserLocationMap *map, int64_t position) {
    VO_ASSERT(map);
    VO_ASSERT(position >= 0 && position <= map->count);
    Place start = placeOf(map->start);
    VO_ASSERT(VO_INT_ADD_OK(start.offset, position));
    VO_ASSERT(VO_INT_ADD_OK(start.line, position));
    VO_ASSERT(VO_INT_ADD_OK(start.column, position));
    uint64_t *begin = words(map->lineStarts);
    uint64_t *behind =
        std::upper_bound(begin, begin + wordCount(map->lineStarts), uint64_t(position));
    bool onFirstLine = behind == begin;
    return voParserLocationCreate(map->start ? map->start->source : nullptr,
                                  start.offset + position, start.line + (behind - begin),
                                  onFirstLine ? start.column + position
                                              : position - int64_t(behind[-1]) + 1);
}
