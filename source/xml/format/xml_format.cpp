#include "xml/xml_format.h"

#include "source/vo/vo_allocator.hpp"
#include "source/xml/base/xml_char.hpp"
#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_writer.hpp"
#include "source/xml/cursor/xml_cursor.hpp"

#include <algorithm>
#include <array>

using vo::Ref;
using xml::Piece;

namespace {

constexpr int64_t mostBlanks = 16;
constexpr size_t deepest = 64;

constexpr auto blanks = [] {
    std::array<char, size_t(mostBlanks) * deepest> filled{};
    filled.fill(' ');
    return filled;
}();
constexpr auto tabs = [] {
    std::array<char, deepest> filled{};
    filled.fill('\t');
    return filled;
}();

/// The white space before what stands so many levels deep, and how many columns that takes.
class Indentation {
  public:
    explicit Indentation(int64_t indent)
        : step(indent == XML_LAYOUT_TAB ? 1 : size_t(indent)),
          stepColumns(indent == XML_LAYOUT_TAB ? tabColumns : indent),
          room(indent == XML_LAYOUT_TAB ? tabs.data() : blanks.data()) {}

    std::string_view at(size_t depth) const { return {room, step * std::min(depth, deepest)}; }
    int64_t columns(size_t depth) const { return stepColumns * int64_t(std::min(depth, deepest)); }

  private:
    static constexpr int64_t tabColumns = 8;

    size_t step;
    int64_t stepColumns;
    const char *room;
};

bool isBlank(Piece text) { return std::all_of(text.begin, text.end, xml::isSpace); }

int64_t codePoints(Piece text) {
    return std::count_if(text.begin, text.end, [](uint8_t byte) { return (byte & 0xC0) != 0x80; });
}

/// Writes one document through a cursor.
class Formatter {
  public:
    Formatter(XML_DOCUMENT *document, const XML_LAYOUT &layout)
        : cursor(xmlCursorCreate(document)), indentation(layout.indent), width(layout.width) {}

    /// The text as UTF-8, or null when a string holds something that is not a character.
    Ref<voBuffer> run(XML_DOCUMENT *document, bool omitDeclaration) {
        if (!omitDeclaration) out.declaration(document);
        walk();
        if (out.size() == 0 || out.written().end[-1] != '\n') out.ascii(lineEnd);
        return xml::wasExact(cursor) ? out.finish() : Ref<voBuffer>();
    }

  private:
    /// What an element says about the white space in it.
    enum class Space { inherited, preserved, free };

    /// The content of the document, or of an element that is open.
    struct Content {
        bool isLaidOut;
        bool isBegun;      ///< Whether a node of it was written.
        bool hasEmptyLine; ///< Whether one stands behind that node.
    };

    void walk() {
        if (!enter(Space::inherited)) return;
        if (xmlCursorType(cursor) == XML_ITEM_TYPE_TEXT && value().bytes().starts_with("\r\n"))
            lineEnd = "\r\n";
        for (;;) {
            if (item()) continue;
            while (!xmlCursorNext(cursor))
                if (!leave()) return;
        }
    }

    Piece name() { return xml::pieceOf(xmlCursorName(cursor)); }
    Piece value() { return xml::pieceOf(xmlCursorValue(cursor)); }

    // ---------------------------------------------------------------- content

    /// To the first child, if there is one.
    bool enter(Space space) {
        const bool isKept = space == Space::inherited ? !open.empty() && !open.back().isLaidOut
                                                      : space == Space::preserved;
        if (!xmlCursorFirstChild(cursor)) return false;
        open.push_back({!isKept && isToBeLaidOut(), false, false});
        return true;
    }

    /// Whether content is to be laid out, of which the cursor stands on the first item.
    bool isToBeLaidOut() {
        bool hasElement = false, hasMarkup = false, hasSpace = false, hasText = false;
        int steps = -1;
        do {
            ++steps;
            const XML_ITEM_TYPE type = xmlCursorType(cursor);
            hasElement = hasElement || type == XML_ITEM_TYPE_ELEMENT;
            hasMarkup = hasMarkup || type != XML_ITEM_TYPE_TEXT;
            hasSpace = hasSpace || type == XML_ITEM_TYPE_TEXT;
            hasText =
                type == XML_ITEM_TYPE_CDATA || (type == XML_ITEM_TYPE_TEXT && !isBlank(value()));
        } while (!hasText && xmlCursorNext(cursor));
        if (steps > 0) {
            xmlCursorParent(cursor);
            xmlCursorFirstChild(cursor);
        }
        return !hasText && (hasElement || (hasMarkup && hasSpace));
    }

    /// Back to the element that holds the content, which ends here; false for the document.
    bool leave() {
        const bool wasLaidOut = open.back().isLaidOut;
        open.pop_back();
        if (!xmlCursorParent(cursor) || open.empty()) return false;
        if (wasLaidOut) line(depth());
        out.enclosed("</", name(), ">");
        return true;
    }

    /// How many elements hold the current item.
    size_t depth() const { return open.size() - 1; }

    void line(size_t levels) {
        out.ascii(lineEnd);
        out.ascii(indentation.at(levels));
    }

    /// Writes the item; gives whether the cursor went on to its first child.
    bool item() {
        Content &content = open.back();
        const XML_ITEM_TYPE type = xmlCursorType(cursor);
        if (content.isLaidOut) {
            if (type == XML_ITEM_TYPE_TEXT) return noteSpace(content), false;
            if (content.hasEmptyLine) out.ascii(lineEnd);
            if (out.size() > 0) line(depth());
            content.isBegun = true;
            content.hasEmptyLine = false;
        }
        if (type == XML_ITEM_TYPE_ELEMENT) return element(content.isLaidOut);
        out.characterData(type, value());
        return false;
    }

    void noteSpace(Content &content) {
        const Piece space = value();
        if (content.isBegun && std::count(space.begin, space.end, '\n') > 1)
            content.hasEmptyLine = true;
    }

    // ---------------------------------------------------------------- elements

    bool element(bool mayWrap) {
        const size_t begin = out.size();
        out.enclosed("<", name(), "");
        const size_t nameEnd = out.size();
        const Space space = attributes(false);
        if (mayWrap && width > 0 && nameEnd < out.size() && isTooWide(begin)) {
            out.cut(nameEnd);
            attributes(true);
        }
        const bool isEntered = enter(space);
        out.ascii(isEntered ? ">" : "/>");
        return isEntered;
    }

    /// Whether the tag that begins there and lacks its end reaches beyond the width.
    bool isTooWide(size_t begin) {
        const bool hasContent = xmlCursorFirstChild(cursor) && xmlCursorParent(cursor);
        const Piece tag = out.written();
        return indentation.columns(depth()) + codePoints({tag.begin + begin, tag.end}) +
                   (hasContent ? 1 : 2) >
               width;
    }

    Space attributes(bool onLines) {
        Space space = Space::inherited;
        if (!xmlCursorFirstAttribute(cursor)) return space;
        do {
            const Piece attribute = name();
            if (onLines)
                line(depth() + 2);
            else
                out.ascii(" ");
            out.bytes(attribute);
            out.ascii("=");
            out.quoted(value());
            if (attribute.bytes() == "xml:space") space = spaceOf();
        } while (xmlCursorNext(cursor));
        xmlCursorParent(cursor);
        return space;
    }

    /// What the attribute says that the cursor stands on.
    Space spaceOf() {
        const XML_UTF8 plain = xmlCursorValueTryUnescape(cursor);
        if (!plain.bytes) return Space::inherited;
        const std::string_view said = xml::pieceOf(plain).bytes();
        return said == "preserve"  ? Space::preserved
               : said == "default" ? Space::free
                                   : Space::inherited;
    }

    Ref<XML_CURSOR> cursor;
    const Indentation indentation;
    const int64_t width;
    std::string_view lineEnd = "\n";
    vo::Vec<Content> open;
    xml::Writer out;
};

} // namespace

voBuffer *xmlDocumentTryEncodeFormatted(XML_DOCUMENT *doc, const XML_LAYOUT *optionalLayout,
                                        XML_OPTIONS *opt) {
    VO_ASSERT(doc);
    VO_ASSERT(opt);
    const XML_LAYOUT layout = optionalLayout ? *optionalLayout : XML_LAYOUT{2, 0};
    VO_ASSERT(layout.indent >= XML_LAYOUT_TAB && layout.indent <= mostBlanks);
    VO_ASSERT(layout.width >= 0);
    const bool omitDeclaration = xmlOptionsFlags(opt) & XML_FLAG_ENCODE_OMIT_XML_DECLARATION;
    Ref utf8 = Formatter(doc, layout).run(doc, omitDeclaration);
    if (!utf8) return nullptr;
    return vo___Utf8TryEncode(doc->charset, utf8, xmlOptionsEncodeCharsetFlags(opt));
}
