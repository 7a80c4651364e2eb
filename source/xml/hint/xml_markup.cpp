#include "source/xml/hint/xml_markup.hpp"

#include "source/vo/vo_hash.hpp"
#include "source/xml/base/xml_hash_table.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "source/xml/base/xml_skip.hpp"

#include <algorithm>

namespace xml {
namespace {

/// The names seen so far. Hashes are keyed, so that no document can be made to collide.
class Names {
  public:
    /// False for one that was added before.
    bool add(std::string_view name) {
        const uint64_t hash = vo::hashBytes(name.data(), name.size());
        if (names.find(hash, [&](std::string_view known) { return known == name; })) return false;
        names.add(hash) = name;
        return true;
    }

  private:
    HashTable<std::string_view> names;
};

Piece pieceFrom(std::string_view text, size_t at) {
    const auto *begin = reinterpret_cast<const uint8_t *>(text.data());
    return {begin + std::min(at, text.size()), begin + text.size()};
}

AttributeFault faultOf(std::string_view value) {
    if (contains(value, 0, "<")) return AttributeFault::lessThan;
    return badReferenceIn(value) == value.npos ? AttributeFault::none
                                               : AttributeFault::badReference;
}

/// Reads one attribute behind its name.
AttributeFault scanValue(std::string_view text, size_t &at, std::string_view &value) {
    at = skipSpace(text, at);
    if (!beginsWith(text, at, "=")) return AttributeFault::noEquals;
    at = skipSpace(text, at + 1);
    if (!beginsWith(text, at, "\"") && !beginsWith(text, at, "'")) return AttributeFault::noQuote;
    const size_t quote = std::min(text.find(text[at], at + 1), text.size());
    value = text.substr(at + 1, quote - at - 1);
    if (quote == text.size()) return AttributeFault::notClosed;
    at = quote + 1;
    return faultOf(value);
}

size_t faultPlace(std::string_view text, const AttributeView &attribute, AttributeFault fault) {
    if (fault != AttributeFault::badReference) return size_t(attribute.name.data() - text.data());
    return size_t(attribute.value.data() - text.data()) + badReferenceIn(attribute.value);
}

} // namespace

size_t skipSpace(std::string_view text, size_t at) {
    while (at < text.size() && isSpace(static_cast<unsigned char>(text[at])))
        ++at;
    return at;
}

bool beginsWith(std::string_view text, size_t at, std::string_view token) {
    return at < text.size() && text.substr(at).starts_with(token);
}

bool contains(std::string_view text, size_t at, std::string_view token) {
    return text.find(token, at) != text.npos;
}

std::string_view charAt(std::string_view text, size_t at) {
    if (at >= text.size()) return {};
    const Piece rest = pieceFrom(text, at);
    const uint8_t *next = rest.begin;
    (void)vo::decodeUtf8(next, rest.end);
    return Piece{rest.begin, next}.bytes();
}

std::string_view nameAt(std::string_view text, size_t at) {
    const Piece rest = pieceFrom(text, at);
    return Piece{rest.begin, skipName(rest.begin, rest.end)}.bytes();
}

std::string_view tagNameAt(std::string_view text, size_t at) {
    return nameAt(text, skipSpace(text, at + 1));
}

std::string_view charRefAt(std::string_view text, size_t at) {
    if (!beginsWith(text, at, "&#")) return {};
    const bool isHex = beginsWith(text, at + 2, "x") || beginsWith(text, at + 2, "X");
    const size_t first = at + (isHex ? 3 : 2);
    const std::string_view digits = isHex ? "0123456789abcdefABCDEF" : "0123456789";
    const size_t end = std::min(text.find_first_not_of(digits, first), text.size());
    if (end <= first) return {};
    return text.substr(at, end - at + beginsWith(text, end, ";"));
}

bool isCharRef(std::string_view text, size_t at) {
    const Piece rest = pieceFrom(text, at);
    return beginsWith(text, at, "&#") && skipReference(rest.begin, rest.end) != rest.begin;
}

bool isConflictMark(std::string_view text, size_t at) {
    const bool startsLine = at == 0 || text[at - 1] == '\n' || text[at - 1] == '\r';
    return startsLine && (beginsWith(text, at, "<<<<<<<") || beginsWith(text, at, ">>>>>>>"));
}

size_t badReferenceIn(std::string_view value) {
    size_t at = 0;
    for (; (at = value.find('&', at)) != value.npos; ++at) {
        const Piece rest = pieceFrom(value, at);
        if (skipReference(rest.begin, rest.end) == rest.begin) break;
    }
    return at;
}

AttributeScan scanAttributes(std::string_view text, size_t at) {
    AttributeScan scan;
    Names names;
    for (;;) {
        scan.end = at = skipSpace(text, at);
        AttributeView attribute{nameAt(text, at), {}};
        if (attribute.name.empty()) return scan;
        at += attribute.name.size();
        scan.fault = scanValue(text, at, attribute.value);
        if (scan.fault == AttributeFault::none && !names.add(attribute.name))
            scan.fault = AttributeFault::duplicate;
        scan.faultAt = faultPlace(text, attribute, scan.fault);
        scan.attributes.push_back(attribute);
        if (scan.fault != AttributeFault::none) return scan;
    }
}

} // namespace xml
