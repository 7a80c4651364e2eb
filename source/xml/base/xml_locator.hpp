// The places of a UTF-8 text as locations.
#pragma once

#include "source/vo/vo_allocator.hpp"
#include "source/vo/vo_location.hpp"
#include "vo/vo.h"

namespace xml {

/// Finds lines and columns in one text, which must outlive it. Counts are remembered at regular
/// distances, so that finding a place means counting over at most one such distance.
class Locator {
  public:
    /// `optionalStart` is where the text begins in a larger source.
    Locator(const uint8_t *textBegin, const uint8_t *textEnd, voNlfFlags nlfFlags,
            voParserLocation *optionalStart)
        : begin(textBegin), last(textBegin),
          counter(textBegin, textEnd, nlfFlags, vo::placeOf(optionalStart)),
          source(optionalStart ? voParserLocationSource(optionalStart) : nullptr) {
        marks.push_back(counter);
    }

    vo::Place placeOf(const uint8_t *at) {
        if (at < last || at - last > distance) counter = markBefore(at);
        last = at;
        return counter.moveTo(at);
    }

    /// The location of `at`, a new reference.
    voParserLocation *locate(const uint8_t *at) {
        const vo::Place place = placeOf(at);
        return voParserLocationCreate(source, place.offset, place.line, place.column);
    }

  private:
    using Counter = vo::LineCounter<uint8_t>;

    static constexpr ptrdiff_t distance = 1024;

    const Counter &markBefore(const uint8_t *at) {
        const auto wanted = size_t((at - begin) / distance);
        while (marks.size() <= wanted) {
            Counter next = marks.back();
            next.moveTo(begin + ptrdiff_t(marks.size()) * distance);
            marks.push_back(next);
        }
        return marks[wanted];
    }

    const uint8_t *begin;
    const uint8_t *last; ///< The place that was asked for last.
    Counter counter;     ///< Has counted up to `last`.
    vo::Ref<voString> source;
    vo::Vec<Counter> marks; ///< One for each distance from the beginning.
};

} // namespace xml
