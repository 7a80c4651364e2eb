#include "tree.hpp"

#include "charset.hpp"
#include "cursor.hpp"
#include "report.hpp"
#include "terminal.hpp"
#include "text.hpp"

#include <algorithm>

#include <unistd.h>

namespace tool {
namespace {

std::string nameOf(XML_CURSOR *cursor) {
    const XML_UTF8 ns = xmlCursorNamespace(cursor);
    const std::string space = ns.bytes ? "{" + shown(view(ns)) + "}" : "";
    return space + shown(view(xmlCursorName(cursor)));
}

constexpr ByItemType<const char *> kinds = {"element", "instruction", "comment", "text", "cdata"};

/// Prints nodes as they are visited.
class Printer {
  public:
    explicit Printer(bool locations) : showLocations(locations), painter(STDOUT_FILENO) {}

    void heading(XML_DOCUMENT *document) {
        const std::string version = shown(take(xmlDocumentVersion(document)));
        const std::string detail = version + " " + charsetName(xmlDocumentCharset(document));
        line(0, "document", detail + (xmlDocumentStandalone(document) ? " standalone" : ""), {});
    }

    void item(XML_CURSOR *cursor, size_t depth) {
        const XML_ITEM_TYPE type = xmlCursorType(cursor);
        if (type == XML_ITEM_TYPE_ELEMENT)
            element(cursor, depth);
        else
            line(depth, of(kinds, type), quoted(xmlCursorValue(cursor)), placeOf(cursor));
    }

    /// Those of the element that a cursor of the plain tree stands on.
    void declarations(XML_CURSOR *plain, size_t depth) {
        const auto print = [&] {
            const std::string text = quoted(xmlCursorValueTryUnescape(plain));
            line(depth, "declaration", nameOf(plain) + "=" + text, {});
        };
        visitDeclarations(print, plain);
    }

    void flush() {
        writeOut(pending);
        pending.clear();
    }

  private:
    void element(XML_CURSOR *cursor, size_t depth) {
        line(depth, of(kinds, XML_ITEM_TYPE_ELEMENT), painter.bold(nameOf(cursor)),
             placeOf(cursor));
        const auto print = [&] {
            const std::string text = quoted(xmlCursorValue(cursor));
            line(depth + 1, "attribute", nameOf(cursor) + "=" + text, placeOf(cursor));
        };
        visitAttributes(print, cursor);
    }

    std::string quoted(XML_UTF8 text) const { return "\"" + shown(view(text)) + "\""; }

    /// Below a certain depth the lines tell theirs instead of being indented further, since
    /// otherwise the output would grow with its square.
    void indent(size_t depth) {
        constexpr size_t deepest = 40;
        pending.append(2 * std::min(depth, deepest), ' ');
        if (depth > deepest) pending += painter.dim("[" + std::to_string(depth) + "]") + " ";
    }

    void line(size_t depth, std::string_view kind, const std::string &detail,
              std::optional<Place> place) {
        constexpr size_t enough = 1 << 16;
        indent(depth);
        pending += painter.magenta(kind) + " " + detail;
        if (place && showLocations)
            pending += painter.dim("  " + std::to_string(place->line) + ":" +
                                   std::to_string(place->column));
        pending += '\n';
        if (pending.size() >= enough) flush();
    }

    bool showLocations;
    Painter painter;
    std::string pending;
};

} // namespace

void printTree(const Decoded &decoded, DecodeWish wish) {
    Printer printer(wish.locations);
    printer.heading(decoded.document);
    Ref plain(xmlCursorCreate(decoded.document));
    if (wish.namespaces) {
        Ref cursor(xmlCursorCreateNs(decoded.nsDocument));
        const auto print = [&](size_t depth) {
            printer.item(cursor, depth);
            printer.declarations(plain, depth + 1);
        };
        walk(print, cursor, plain);
    } else {
        walk([&](size_t depth) { printer.item(plain, depth); }, plain);
    }
    printer.flush();
}

} // namespace tool
