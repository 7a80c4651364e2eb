// Writes the records of a text.
#pragma once

#include "source/vo/vo_chunk.hpp"
#include "source/xml/outline/xml_outline.hpp"

#include <algorithm>

namespace xml {

/// Writes records into blocks that never move.
template <class Word> class RecordWriter {
  public:
    using Rec = Record<Word>;

    /// A text has at most one record for each two of its bytes, so that the first block has room
    /// for all of a small one.
    explicit RecordWriter(uint64_t textBytes) {
        const uint64_t room = std::min(textBytes / 2 + 2, perBlock);
        roomInFirst = room * sizeof(Rec);
        outline = createOutlineMemory(roomInFirst);
        next = block = firstBlock();
        end = block + room;
    }
    RecordWriter(const RecordWriter &) = delete;
    RecordWriter &operator=(const RecordWriter &) = delete;
    ~RecordWriter() {
        vo::release(outline);
        for (void *chunk : blocks)
            vo___ChunkClose(chunk, 0);
    }

    /// The number that the next record gets.
    uint64_t number() const { return numberOf(next); }
    uint64_t numberOf(const Rec *inBlock) const { return before + uint64_t(inBlock - block); }

    Rec &operator[](uint64_t number) {
        if (number < perBlock) return firstBlock()[number];
        return recordsIn<Word>(blocks[number / perBlock - 1])[number % perBlock];
    }

    void add(const Rec &record) {
        if (next == end) openBlock();
        *next++ = record;
    }

    /// The outline with these records and room for `names` names. The writer cannot be used after.
    Outline *finish(uint64_t names) {
        const uint64_t count = number();
        const uint64_t inFirst = std::min(count, perBlock) * sizeof(Rec);
        Outline *made = makeOutline(std::exchange(outline, nullptr), roomInFirst, inFirst, names);
        made->isWide = sizeof(Word) > 4;
        made->count = count;
        made->blocks = std::move(blocks);
        blocks.clear();
        return made;
    }

    Rec *next; ///< Where the next record goes, if there is room,
    Rec *end;  ///< which ends here.

  private:
    static constexpr uint64_t perBlock = Outline::perBlock<Word>;

    Rec *firstBlock() { return reinterpret_cast<Rec *>(reinterpret_cast<Outline *>(outline) + 1); }

    [[gnu::noinline]] void openBlock() {
        before = number();
        blocks.push_back(vo___ChunkOpen(vo::Chunk::largest));
        next = block = recordsIn<Word>(blocks.back());
        end = block + perBlock;
    }

    voObj *outline;       ///< Memory that becomes the outline; the first block is behind it.
    uint64_t roomInFirst; ///< In bytes.
    Rec *block;
    uint64_t before = 0; ///< Records in the blocks before this one.
    vo::Vec<void *> blocks;
};

} // namespace xml
