// The places of a UTF-8 text as locations.
#pragma once

#include "source/vo/vo_newline.hpp"
#include "source/vo/vo_object.hpp"
#include "vo/vo.h"

namespace xml {

/// Makes locations of places in one text. Places are best asked for from front to back: each then
/// costs the distance from the one before; one that lies further back is counted from the start.
class Locator {
  public:
    /// `optionalStart` is where the text begins in a larger source; borrowed.
    Locator(const uint8_t *textBegin, const uint8_t *textEnd, voNlfFlags nlfFlags,
            voParserLocation *optionalStart)
        : begin(textBegin), end(textEnd), flags(nlfFlags), start(optionalStart), last(textBegin),
          counter(textBegin, textEnd, nlfFlags, startPlace()) {}

    /// The location of `at`, a new reference.
    vo::Ref<voParserLocation> locate(const uint8_t *at) {
        if (at < last) counter = Counter(begin, end, flags, startPlace());
        last = at;
        vo::Place place = counter.moveTo(at);
        vo::Ref source(start ? voParserLocationSource(start) : nullptr);
        return vo::Ref(voParserLocationCreate(source, place.offset, place.line, place.column));
    }

  private:
    using Counter = vo::LineCounter<uint8_t>;

    vo::Place startPlace() const {
        if (!start) return {};
        return {voParserLocationOffset(start), voParserLocationLine(start),
                voParserLocationColumn(start)};
    }

    const uint8_t *begin;
    const uint8_t *end;
    voNlfFlags flags;
    voParserLocation *start;
    const uint8_t *last; ///< Asked for last.
    Counter counter;
};

} // namespace xml
