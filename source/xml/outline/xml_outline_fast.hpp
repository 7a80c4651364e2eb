// The fast way through the ordinary parts of a text.
//
// It reads texts and tags in the layout that most documents use, and guesses each name from the one
// before. It leaves everything else to the grammar (xml_outline_builder.cpp): unusual white space
// in tags, references in texts, comments, errors, long names, the end of the text, and records,
// names or open elements for which room must be made first. So it writes exactly the records that
// the grammar would write, and never fails.
#pragma once

#include "source/xml/base/xml_skip.hpp"
#include "source/xml/outline/xml_outline_names.hpp"
#include "source/xml/outline/xml_outline_writer.hpp"

namespace xml {

/// How far a text has been read, and the records written so far.
template <class Word> struct ReadingState {
    using Rec = Record<Word>;

    /// An element whose end tag has not come.
    struct Open {
        Word record;
        uint32_t name;
    };

    explicit ReadingState(Piece decoded)
        : text(decoded.begin), at(decoded.begin), end(decoded.end),
          records(uint64_t(decoded.size())) {}

    Word placeOf(const uint8_t *place) const { return Word(place - text); }

    static Word tagOf(Kind kind, uint32_t name) {
        return Word(Word{name} << kindBits | Word(kind));
    }

    void addRecord(Kind kind, const uint8_t *begin, const uint8_t *valueEnd, uint32_t name) {
        records.add({placeOf(begin), placeOf(valueEnd), tagOf(kind, name)});
    }

    void addPatch(const uint8_t *tag) { patches.push(uint64_t(tag - text)); }

    void makeRoomToOpen() {
        if (depth < open.room()) return;
        open.resize(depth);
        open.grow();
    }

    /// Opens an element whose start tag ends at `at`. There must be room.
    void openElement(uint64_t record, uint32_t name) {
        open[depth++] = {Word(record), name};
        contentBegin = at;
    }

    void closeElement() {
        records[open[--depth].record].end = Word(records.number());
        contentBegin = nullptr; // The element around this one is not empty.
    }

    /// Notes that the innermost open element, which is empty, has two tags where the canonical
    /// layout has one.
    void patchEmptyElement() {
        const uint64_t begin = records[open[depth - 1].record].begin;
        if (!patches.size() || patches.back() != begin) patches.push(begin);
    }

    const uint8_t *text; ///< Where the text begins,
    const uint8_t *at;   ///< how far it has been read,
    const uint8_t *end;  ///< and where it ends.
    RecordWriter<Word> records;
    OutlineNames names;
    uint64_t lists = 0; ///< The number of attribute lists begun so far.
    vo::InlineVector<Open, 32> open;
    size_t depth = 0;                      ///< The number of open elements; `open` may be longer.
    const uint8_t *contentBegin = nullptr; ///< Behind the start tag of the last element opened.
    vo::InlineVector<uint64_t, 8> patches;
};

#if defined(__SSE2__)

/// Reads on from where `state` has come to. It copies what it uses all the time into fields of its
/// own, so that the compiler keeps them in registers.
///
/// It begins a production only before `last`, which is 64 bytes before the end of the text. A name
/// takes at most 32 bytes and the characters around it 3, so 16 bytes behind them can still be
/// loaded; in anything longer the place is compared with `last` before each load.
template <class Word> class FastReader {
  public:
    explicit FastReader(ReadingState<Word> &readingState)
        : state(readingState), at(state.at), last(state.end - 64), next(state.records.next),
          names(state.names.data()), guess(&names[0].follower) {}

    void run() {
        while (at < last && next < state.records.end && (*at == '<' ? tag() : characterData())) {
        }
        state.at = at;
        state.records.next = next;
    }

  private:
    using Rec = Record<Word>;
    using State = ReadingState<Word>;

#define XML_INLINE [[gnu::always_inline]]

    XML_INLINE bool characterData() {
        const uint8_t *stop = find('<', '&', '&', at);
        if (!stop || *stop != '<') return false;
        put(XML_ITEM_TYPE_TEXT, at, stop, 0);
        at = stop;
        return true;
    }

    XML_INLINE bool tag() { return at[1] == '/' ? endTag() : startTag(); }

    XML_INLINE bool endTag() {
        if (state.depth == 0) return false;
        const auto open = state.open[state.depth - 1];
        const OutlineName &name = names[open.name];
        if (!stands(at + 2, name)) return false;
        const uint8_t *nameEnd = at + 2 + name.size();
        if (*nameEnd != '>') return false;
        if (at == state.contentBegin) [[unlikely]]
            state.patchEmptyElement();
        state.records[open.record].end = number();
        --state.depth;
        guess = &names[open.name].sibling;
        at = nameEnd + 1;
        return true;
    }

    XML_INLINE bool startTag() {
        const uint8_t *begin = at;
        const uint32_t name = readName(begin + 1);
        if (!name || state.open.room() == state.depth) return false;
        Rec *const element = next;
        put(XML_ITEM_TYPE_ELEMENT, begin, begin, name);
        isCanonical = true;
        const uint8_t *tagEnd = attributes(begin + 1 + names[name].size());
        if (!tagEnd) return giveUp(element);
        if (*tagEnd == '/') {
            if (tagEnd[1] != '>') return giveUp(element);
            element->end = number();
            guess = &names[name].sibling;
            at = tagEnd + 2;
        } else {
            at = tagEnd + 1;
            state.open[state.depth++] = {number(element), name};
            state.contentBegin = at;
        }
        if (!isCanonical) [[unlikely]]
            state.addPatch(begin);
        return true;
    }

    bool giveUp(Rec *element) {
        next = element;
        return false;
    }

    /// Reads the attributes behind an element's name at `p`. Gives the place of the ">" or "/"
    /// behind them; null when the grammar must read the tag.
    XML_INLINE const uint8_t *attributes(const uint8_t *p) {
        ++state.lists;
        while (*p != '>' && *p != '/') {
            if (p >= last || next == state.records.end) return nullptr;
            if (*p == ' ' && p[1] > '/' && p[1] != '>') {
                ++p;
            } else {
                isCanonical = false;
                p = skipS(p, state.end);
                if (p >= last) return nullptr;
                if (*p == '>' || *p == '/') break;
            }
            p = attribute(p);
            if (!p) return nullptr;
        }
        return p;
    }

    /// Reads the attribute at `p` and gives the place behind it, or null.
    XML_INLINE const uint8_t *attribute(const uint8_t *begin) {
        char quote = '"';
        const uint8_t *value;
        uint32_t name = *guess;
        if ((OutlineNames::agreement(begin, names[name]) & names[name].attributeMask) ==
            names[name].attributeMask) {
            value = begin + names[name].size() + 2;
        } else {
            name = readName(begin);
            if (!name) return nullptr;
            value = skipToValue(begin + names[name].size(), quote);
            if (!value) return nullptr;
        }
        if (std::exchange(names[name].seenIn, state.lists) == state.lists) return nullptr;
        guess = &names[name].follower;
        const uint8_t *valueEnd = find(quote, '<', '&', value);
        if (valueEnd && *valueEnd != uint8_t(quote)) valueEnd = skipReferences(value);
        if (!valueEnd) return nullptr;
        put(attributeKind, begin, valueEnd, name);
        return valueEnd + 1;
    }

    /// Skips from behind an attribute's name to its value and tells its quote; null if there is
    /// none.
    XML_INLINE const uint8_t *skipToValue(const uint8_t *p, char &quote) {
        if (p[0] == '=' && p[1] == '"') return p + 2;
        isCanonical = false;
        const uint8_t *value = skipEq(p, state.end);
        if (value == p || value >= last || (*value != '"' && *value != '\'')) return nullptr;
        quote = char(*value);
        return value + 1;
    }

    /// The end of a value with references, or null.
    [[gnu::noinline]] const uint8_t *skipReferences(const uint8_t *value) const {
        const uint8_t *behind = skipAttValue(value - 1, state.end);
        return behind == value - 1 || behind >= last ? nullptr : behind - 1;
    }

    /// The number of the name at `p`; 0 when it must be left to the grammar.
    XML_INLINE uint32_t readName(const uint8_t *p) {
        uint32_t name = *guess;
        if (!stands(p, names[name]) || !endsName(p[names[name].size()])) {
            name = state.names.find(p);
            if (name) *guess = name;
        }
        guess = &names[name].follower;
        return name;
    }

    /// Whether `name`, which has at most 32 bytes, stands at `p`.
    XML_INLINE static bool stands(const uint8_t *p, const OutlineName &name) {
        const unsigned same = OutlineNames::agreement(p, name);
        if ((same & name.nameMask) == name.nameMask) return true;
        return same == 0xFFFF && standsLong(p, name);
    }

    static bool standsLong(const uint8_t *p, const OutlineName &name) {
        const size_t size = name.size();
        return size > 16 && size <= 32 &&
               std::memcmp(p + 16, name.bytes.begin + 16, size - 16) == 0;
    }

    static bool endsName(uint8_t c) { return c < 128 && !(asciiNameClasses[c] & nameBit); }

    /// The first of three characters from `p` on, or null where it is not before `last`.
    XML_INLINE const uint8_t *find(char a, char b, char c, const uint8_t *p) const {
        const __m128i as = _mm_set1_epi8(a), bs = _mm_set1_epi8(b), cs = _mm_set1_epi8(c);
        do {
            const __m128i bytes = vo::load16(p);
            const __m128i found =
                _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(bytes, as), _mm_cmpeq_epi8(bytes, bs)),
                             _mm_cmpeq_epi8(bytes, cs));
            if (const unsigned mask = vo::notAscii16(found)) return p + __builtin_ctz(mask);
            p += 16;
        } while (p < last);
        return nullptr;
    }

    XML_INLINE void put(Kind kind, const uint8_t *begin, const uint8_t *valueEnd, uint32_t name) {
        *next++ = {state.placeOf(begin), state.placeOf(valueEnd), State::tagOf(kind, name)};
    }

    /// The number of the next record, or of one of the block.
    XML_INLINE Word number() const { return number(next); }
    XML_INLINE Word number(const Rec *record) const { return Word(state.records.numberOf(record)); }

#undef XML_INLINE

    State &state;
    const uint8_t *at;
    const uint8_t *const last;
    Rec *next;
    OutlineName *const names;
    uint32_t *guess;         ///< Where the number of the name stands that is expected next.
    bool isCanonical = true; ///< Whether the current tag stands as the encoder would write it.
};

/// Reads on as far as everything is ordinary.
template <class Word> void readOrdinary(ReadingState<Word> &state) {
    if (state.end - state.at > 64) FastReader<Word>(state).run();
}

#else

template <class Word> void readOrdinary(ReadingState<Word> &) {}

#endif

} // namespace xml
