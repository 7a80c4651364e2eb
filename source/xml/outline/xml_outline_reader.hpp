// Reading an outline record by record.
#pragma once

#include "source/xml/outline/xml_outline.hpp"

namespace xml {

/// Reads records of one outline by their numbers. Made for records that mostly lie in the block of
/// the one before. For one thread.
class OutlineReader {
  public:
    OutlineReader() = default;
    explicit OutlineReader(const Outline *read) : outline(read) {}

    /// Whether the record lies in the current block, so that it can be read.
    bool isNear(uint64_t number) const { return number - first < count; }

    /// Makes the block of the record the current one.
    void seek(uint64_t number) {
        if (isNear(number)) return;
        if (outline->isWide)
            wide = blockWith<uint64_t>(number);
        else
            compact = blockWith<uint32_t>(number);
    }

    Node node(uint64_t number) const {
        return wide ? Outline::widened(wide[number - first])
                    : Outline::widened(compact[number - first]);
    }
    Kind kind(uint64_t number) const {
        return wide ? Outline::kindOf(wide[number - first])
                    : Outline::kindOf(compact[number - first]);
    }

    const Outline *operator->() const { return outline; }

  private:
    template <class Word> const Record<Word> *blockWith(uint64_t number) {
        first = number - number % Outline::perBlock<Word>;
        count = std::min(outline->count - first, Outline::perBlock<Word>);
        return outline->block<Word>(number / Outline::perBlock<Word>);
    }

    const Outline *outline = nullptr;
    const Record<uint32_t> *compact = nullptr; ///< The records of the current block;
    const Record<uint64_t> *wide = nullptr;    ///< one of the two is null.
    uint64_t first = 0;
    uint64_t count = 0;
};

} // namespace xml
