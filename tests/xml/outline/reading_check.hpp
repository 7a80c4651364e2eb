// Whether all ways of reading a text give the same outline.
#pragma once

#include "source/vo/vo_charset_codec.hpp"
#include "source/xml/outline/xml_outline_builder.hpp"
#include "source/xml/outline/xml_outline_text.hpp"

#include <algorithm>
#include <string>

namespace test {

inline bool isUtf8(xml::Piece text) { return vo::validUtf8({text.begin, size_t(text.size())}); }

/// The canonical layout of the content of an element, or of the document.
inline std::string canonicalContent(const xml::Outline &outline, uint64_t element) {
    const auto [from, to] = outline.contentOf(element);
    xml::Writer writer;
    xml::writeText(outline, from, to, writer);
    vo::Ref written = writer.finish();
    return {reinterpret_cast<const char *>(voBufferBacking(written)),
            size_t(voBufferLength(written))};
}

/// What two outlines of one text differ in; empty when they do not.
inline std::string difference(const xml::Outline &a, const xml::Outline &b) {
    const auto same = [](xml::Piece x, xml::Piece y) { return x.bytes() == y.bytes(); };
    if (a.count != b.count || a.source.content != b.source.content) return "size";
    if (!same(a.source.version, b.source.version) || a.source.charset != b.source.charset ||
        a.source.standalone != b.source.standalone)
        return "declaration";
    if (!std::ranges::equal(a.names, b.names, same)) return "names";
    for (uint64_t i = 0; i < a.count; ++i) {
        const xml::Node x = a.node(i), y = b.node(i);
        if (x.kind != y.kind || x.begin != y.begin || x.end != y.end || x.name != y.name)
            return "record " + std::to_string(i);
    }
    for (const xml::Outline *outline : {&a, &b})
        if (!std::ranges::is_sorted(outline->patches)) return "order of patches";
    if (canonicalContent(a, xml::Outline::root) != canonicalContent(b, xml::Outline::root))
        return "canonical layout";
    for (uint64_t i = 0; i < a.count; i += 1 + a.count / 64) {
        const bool hasContent =
            a.node(i).kind == XML_ITEM_TYPE_ELEMENT && a.behindAttributes(i) < a.node(i).end;
        if (hasContent && canonicalContent(a, i) != canonicalContent(b, i))
            return "canonical layout in " + std::to_string(i);
    }
    return "";
}

/// The same for the two ways of reading and the two widths of records. `text` must be UTF-8.
inline std::string differenceInReading(xml::Piece text) {
    using enum xml::Reading;
    const vo::Ref buffer(voBufferCreate());
    const auto read = [&](xml::Reading reading, uint64_t mostCompact) {
        return xml::buildOutline(buffer, text, VO_CHARSET_UTF_8, reading, mostCompact);
    };
    const auto expected = read(careful, xml::mostCompactBytes);
    const struct {
        xml::Reading reading;
        uint64_t mostCompact;
        const char *name;
    } ways[] = {{fast, xml::mostCompactBytes, "fast: "},
                {fast, 0, "fast and wide: "},
                {careful, 0, "wide: "}};
    for (const auto &way : ways) {
        const auto found = read(way.reading, way.mostCompact);
        if (found.code != expected.code || found.place != expected.place)
            return std::string(way.name) + "error";
        if (!expected.outline) continue;
        const std::string what =
            difference(*found.outline.operator->(), *expected.outline.operator->());
        if (!what.empty()) return way.name + what;
    }
    return "";
}

} // namespace test
