// A piece of a text.
#pragma once

#include "vo/vo_buffer.h"
#include "vo/vo_string.h"

#include <cstdint>
#include <string_view>

namespace xml {

/// A run of bytes of a UTF-8 text, borrowed.
struct Piece {
    const uint8_t *begin;
    const uint8_t *end;

    int64_t size() const { return end - begin; }
    std::string_view bytes() const {
        return {reinterpret_cast<const char *>(begin), size_t(size())};
    }
};

inline Piece pieceOf(voBuffer *buffer) {
    const uint8_t *begin = voBufferBacking(buffer);
    return {begin, begin + voBufferLength(buffer)};
}

/// A UTF-8 text behind its byte-order mark, if it has one.
inline Piece behindMark(Piece text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return {text.begin + (text.bytes().starts_with(mark) ? mark.size() : 0), text.end};
}

/// A new string with the text of the piece.
inline voString *createString(Piece piece) {
    return voStringTryCreateFromUtf8(piece.bytes().data(), piece.size());
}

/// What stands around the value of a node that is no element, by the node's type.
inline constexpr struct {
    std::string_view before, after;
} enclosing[] = {
    {"", ""},             // an element
    {"<?", "?>"},         // a processing instruction
    {"<!--", "-->"},      // a comment
    {"", ""},             // a text
    {"<![CDATA[", "]]>"}, // a CDATA section
    {"", ""},             // an attribute, in an outline
};

} // namespace xml
