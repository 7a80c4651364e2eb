#include "source/xml/outline/xml_outline_text.hpp"

#include "source/xml/base/xml_skip.hpp"

#include <algorithm>

namespace xml {
namespace {

/// Writes one tag as the encoder would. The text is known to be well-formed.
class TagWriter {
  public:
    TagWriter(const uint8_t *tag, const uint8_t *textEnd, Writer &writer)
        : at(tag + 1), end(textEnd), out(writer) {}

    /// Gives the place behind the tag, or behind the end tag of an element without content.
    const uint8_t *write() {
        if (*at == '/') return endTag();
        out.ascii("<");
        name();
        while (isNameStart(nextIgnoringSpace()))
            attribute();
        if (*at == '/') return close();
        ++at;
        if (at[0] != '<' || at[1] != '/') return out.ascii(">"), at;
        at = skipName(skipS(at + 2, end), end);
        return close();
    }

  private:
    const uint8_t *endTag() {
        ++at;
        out.ascii("</");
        name();
        out.ascii(">");
        return skipS(at, end) + 1;
    }

    /// Ends an empty-element tag, and skips the white space and the end of the tag in the text.
    const uint8_t *close() {
        out.ascii("/>");
        if (*at == '/') ++at;
        return skipS(at, end) + 1;
    }

    void attribute() {
        const uint8_t *begin = at;
        while (*at != '=' && !isSpace(*at))
            ++at;
        const Piece name{begin, at};
        const uint8_t *value = skipEq(at, end) + 1;
        const char quote = char(value[-1]);
        at = findAny(value, end, quote, quote, quote) + 1;
        if (quote == '"' && value == name.end + 2) return out.spaced({begin, at});
        out.spaced(name);
        out.ascii("=");
        out.quoted(Piece{value, at - 1});
    }

    void name() {
        at = skipS(at, end);
        const uint8_t *nameEnd = skipName(at, end);
        out.bytes({at, nameEnd});
        at = nameEnd;
    }

    uint32_t nextIgnoringSpace() {
        at = skipS(at, end);
        const uint8_t *next = at;
        return nextChar(next, end);
    }

    const uint8_t *at;
    const uint8_t *const end;
    Writer &out;
};

} // namespace

void writeText(const Outline &outline, uint64_t from, uint64_t to, Writer &out) {
    const auto &patches = outline.patches;
    const Piece text = outline.source.text;
    for (auto next = std::lower_bound(patches.begin(), patches.end(), from);
         next != patches.end() && *next < to; ++next) {
        if (*next < from) continue; // the end tag of an element without content
        out.bytes({outline.at(from), outline.at(*next)});
        from = uint64_t(TagWriter(outline.at(*next), text.end, out).write() - text.begin);
    }
    if (from < to) out.bytes({outline.at(from), outline.at(to)});
}

} // namespace xml
