#include "source/import/xml_import_text.hpp"

#include "source/vo/vo_object.hpp"
#include "source/vo/vo_utf.hpp"
#include "vo/vo_string.h"

#include <charconv>

using vo::Ref;

namespace xml {

bool Repertoire::has(uint32_t ch) {
    if (ch < 0x80 || charset >= VO_CHARSET_UTF_8) return true;
    const auto [entry, isNew] = known.try_emplace(ch);
    if (isNew) entry->second = lookUp(ch);
    return entry->second;
}

bool Repertoire::lookUp(uint32_t ch) const {
    Ref string(voStringCreateFromCharsCopy(&ch, 1));
    return Ref(voCharsetTryConvertStringToBufferWithFlags(charset, string, 0));
}

bool Repertoire::hasAll(std::string_view utf8) {
    if (charset >= VO_CHARSET_UTF_8) return true;
    const auto *at = reinterpret_cast<const uint8_t *>(utf8.data());
    for (const uint8_t *end = at + utf8.size(); (at = vo::skipAscii(at, end)) < end;)
        if (!has(vo::decodeUtf8(at, end))) return false;
    return true;
}

namespace {

constexpr uint32_t lastChar = 0x10FFFF;

void appendReference(Bytes &out, uint32_t ch) {
    char digits[10];
    const auto end = std::to_chars(digits, digits + sizeof digits, ch).ptr;
    out.append("&#").append(digits, end).append(";");
}

/// What an ASCII character is written as where it cannot stand for itself; else nothing. `before`
/// is the text up to it.
std::string_view escapeOf(char ch, std::string_view before, Within within) {
    switch (ch) {
    case '<':
        return "&lt;";
    case '&':
        return "&amp;";
    case '\r':
        return "&#13;";
    case '\n':
        return within == Within::quotes ? "&#10;" : "";
    case '\t':
        return within == Within::quotes ? "&#9;" : "";
    case '>': // It must not end "]]>", whose beginning may stand in a text in front of this one.
        return within == Within::content && (before.size() < 2 || before.ends_with("]]")) ? "&gt;"
                                                                                          : "";
    default:
        return "";
    }
}

} // namespace

bool appendEscaped(Bytes &out, std::string_view utf8, Within within, Repertoire &repertoire) {
    bool isFaithful = true;
    const auto *at = reinterpret_cast<const uint8_t *>(utf8.data());
    for (const uint8_t *end = at + utf8.size(); at < end;) {
        const auto *begin = reinterpret_cast<const char *>(at);
        const uint32_t ch = vo::decodeUtf8(at, end);
        const std::string_view escape = ch < 0x80 ? escapeOf(char(ch), out, within) : "";
        const bool stands = repertoire.has(ch);
        if (!escape.empty())
            out += escape;
        else if (stands || ch == lastChar)
            out.append(begin, reinterpret_cast<const char *>(at));
        else
            appendReference(out, ch);
        if (!stands && ch == lastChar) isFaithful = false;
    }
    return isFaithful;
}

} // namespace xml
