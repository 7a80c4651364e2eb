// Text that is written out as UTF-8.
#pragma once

#include "source/vo/vo_buffer_builder.hpp"
#include "source/xml/base/xml_character_data.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "vo/vo.h"
#include "xml/xml_document.h"
#include "xml/xml_item_type.h"

namespace xml {

/// Collects a text in a growing buffer.
class Writer {
  public:
    [[gnu::always_inline]] void ascii(std::string_view text) {
        uint8_t *to = out.reserve(text.size());
        std::memcpy(to, text.data(), text.size());
        out.wrote(to + text.size());
    }
    void bytes(Piece piece) { out.append({piece.begin, size_t(piece.size())}); }
    /// Appends a blank and the piece.
    void spaced(Piece piece) {
        uint8_t *to = out.reserve(size_t(piece.size()) + 1);
        *to = ' ';
        std::memcpy(to + 1, piece.begin, size_t(piece.size()));
        out.wrote(to + 1 + piece.size());
    }
    /// The number of bytes written so far; and `count` of them from `from` on, written once more.
    size_t size() const { return out.written().size(); }
    void again(size_t from, size_t count) {
        uint8_t *to = out.reserve(count);
        std::memcpy(to, out.written().data() + from, count);
        out.wrote(to + count);
    }
    Piece written() const { return {out.written().data(), out.written().data() + size()}; }
    /// Takes back what was written behind the first `count` bytes.
    void cut(size_t count) { out.wrote(out.written().data() + count); }
    void string(voString *string) { chars(string->items(), string->items() + string->length); }
    void chars(const uint32_t *at, const uint32_t *end) {
        wellFormed = wellFormed && out.append(at, end);
    }

    void text(voString *text) { string(text); }
    void text(Piece text) { bytes(text); }

    template <class Text>
    void enclosed(std::string_view before, Text value, std::string_view after) {
        ascii(before);
        text(value);
        ascii(after);
    }

    /// A node that is no element, with what stands around its value.
    template <class Text> void characterData(XML_ITEM_TYPE type, Text value) {
        enclosed(enclosing[type].before, value, enclosing[type].after);
    }
    void characterData(XML_ITEM_TYPE type, voObj *node) {
        characterData(type, reinterpret_cast<CharacterData *>(node)->value);
    }

    void attribute(voString *name, voString *value) {
        ascii(" ");
        string(name);
        ascii("=");
        quoted(value);
    }

    /// The XML declaration of a document.
    void declaration(XML_DOCUMENT *document);

    /// The value of an attribute in quotes.
    void quoted(voString *value);
    void quoted(Piece value);

    /// The text, or null when a string held something that is not a character.
    vo::Ref<voBuffer> finish() { return vo::Ref(wellFormed ? out.take() : nullptr); }

  private:
    template <class Unit> void quotedAnyhow(const Unit *at, const Unit *end);
    void units(const uint32_t *at, const uint32_t *end) { chars(at, end); }
    void units(const uint8_t *at, const uint8_t *end) { bytes({at, end}); }
    void setting(std::string_view name, voString *value);

    vo::BufferBuilder out;
    bool wellFormed = true;
};

} // namespace xml
