#include "canonical.hpp"
#include "commands.hpp"
#include "each.hpp"
#include "follower.hpp"
#include "json_text.hpp"
#include "paths.hpp"

#include <atomic>
#include <optional>

namespace tool {
namespace {

using Show = Request::Show;

/// The paths of a request.
struct Paths {
    Ref<XML_PATH> nodes;
    std::vector<Ref<XML_PATH>> columns;

    Paths(const Request &request, std::string_view defaultNamespace) {
        const Bindings bindings = bindingsOf(request, defaultNamespace);
        nodes = compile(request.each.empty() ? request.path : request.each, bindings);
        for (const std::string &argument : request.columns)
            columns.push_back(compile(pairIn(argument)->value, bindings));
    }
};

std::string textOf(XML_SELECTION *selection) {
    return std::string(view(xmlSelectionText(selection)));
}

/// A cell of a table with commas.
std::string quotedCell(const std::string &text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string out = "\"";
    for (const char ch : text)
        out.append(ch == '"' ? 2 : 1, ch);
    return out + "\"";
}

/// A cell of a table with tabs.
std::string escapedCell(const std::string &text) {
    std::string out;
    for (const char ch : text) {
        static constexpr std::string_view special = "\t\n\r\\", letters = "tnr\\";
        const size_t found = special.find(ch);
        if (found == std::string_view::npos)
            out += ch;
        else
            out.append({'\\', letters[found]});
    }
    return out;
}

std::string rowOf(const std::vector<std::string> &cells, Show show) {
    std::string row;
    for (const std::string &cell : cells)
        row.append(&cell == cells.data() ? ""
                   : show == Show::csv   ? ","
                                         : "\t")
            .append(show == Show::csv ? quotedCell(cell) : escapedCell(cell));
    return row + "\n";
}

/// Prints what is found in one document.
class Printer {
  public:
    Printer(const Request &given, const Input &from, const Decoded &decoded)
        : request(given), input(from), paths(given, defaultNamespaceOf(decoded.document)),
          selection(xmlPathSelect(paths.nodes, Ref(xmlCursorCreateNs(decoded.nsDocument)))),
          plain(xmlCursorCreate(decoded.document), false),
          counted(xmlCursorCreateNs(decoded.nsDocument), true) {}

    /// Gives how many nodes there are.
    int64_t run() {
        constexpr size_t enough = 1 << 16;
        int64_t found = 0;
        for (; xmlSelectionNext(selection); ++found) {
            if (request.show == Show::count) continue;
            print();
            if (pending.size() >= enough) flush();
        }
        if (request.show == Show::count) printCount(found);
        if (!pending.empty()) flush();
        return found;
    }

  private:
    void flush() {
        writeOut(pending);
        pending.clear();
    }

    void print() {
        switch (request.show) {
        case Show::text:
            return line(view(xmlSelectionText(selection)));
        case Show::locations:
            return printLocation();
        case Show::json:
            return printJson();
        case Show::csv:
        case Show::tsv:
            return printRow();
        default:
            return printContent();
        }
    }

    void line(std::string_view text) { pending.append(text).append("\n"); }

    void printContent() {
        const XML_ITEM_TYPE type = xmlCursorType(xmlSelectionCursor(selection));
        if (type == XML_ITEM_TYPE_TEXT || type == XML_ITEM_TYPE_CDATA ||
            type == XML_CURSOR_TYPE_ATTRIBUTE)
            return line(view(xmlSelectionText(selection)));
        plain.follow(selection);
        appendMarkup(pending, plain.at());
        pending += '\n';
    }

    std::string file() const { return shown(std::string_view(input.name)); }

    void printCount(int64_t found) {
        const bool isOneOfMany = request.files.size() > 1 || request.recursive;
        line((isOneOfMany ? file() + ":" : "") + std::to_string(found));
    }

    void printLocation() {
        const auto place = placeOf(xmlSelectionCursor(selection));
        line(file() + ":" + std::to_string(place ? place->line : 1) + ":" +
             std::to_string(place ? place->column : 1));
    }

    void printJson() {
        static constexpr const char *kinds[] = {
            "element",  "processing-instruction", "comment", "text", "text", "document",
            "attribute"};
        XML_CURSOR *const cursor = xmlSelectionCursor(selection);
        const XML_ITEM_TYPE type = xmlCursorType(cursor);
        counted.follow(selection);
        std::string path = counted.path();
        if (type == XML_CURSOR_TYPE_ATTRIBUTE) path += "/" + stepTo(cursor);
        const auto place = placeOf(cursor);
        line("{\"file\":" + jsonString(file()) +
             ",\"line\":" + std::to_string(place ? place->line : 1) +
             ",\"column\":" + std::to_string(place ? place->column : 1) +
             ",\"path\":" + jsonString(path) + ",\"kind\":\"" + kinds[type] +
             "\",\"text\":" + jsonString(view(xmlSelectionText(selection))) + "}");
    }

    void printRow() {
        std::vector<std::string> cells;
        for (const Ref<XML_PATH> &column : paths.columns) {
            Ref first(xmlPathSelect(column, xmlSelectionCursor(selection)));
            cells.push_back(xmlSelectionNext(first) ? textOf(first) : "");
        }
        pending += rowOf(cells, request.show);
    }

    const Request &request;
    const Input &input;
    const Paths paths;
    Ref<XML_SELECTION> selection;
    Follower plain, counted;
    std::string pending;
};

/// Finds mistakes in the command line before any document is read.
void checkUsage(const Request &request) {
    const bool isTable = request.show == Show::csv || request.show == Show::tsv;
    if (isTable != !request.each.empty() || isTable != !request.columns.empty())
        throw Mistake{"a table takes --csv or --tsv, --each and --column"};
    if (!isTable && request.path.empty()) throw Mistake{"a path is required"};
    for (const std::string &argument : request.columns)
        if (!pairIn(argument))
            throw Mistake{"--column: expects NAME=PATH, not '" + shown(std::string_view(argument)) +
                          "'"};
    (void)Paths(request, "");
}

void printHeading(const Request &request) {
    std::vector<std::string> names;
    for (const std::string &argument : request.columns)
        names.push_back(pairIn(argument)->name);
    if (!names.empty()) writeOut(rowOf(names, request.show));
}

} // namespace

Status select(const Request &given) {
    Request request = given;
    request.namespaces = true;
    request.locations = request.show == Show::locations || request.show == Show::json;
    try {
        checkUsage(request);
    } catch (const Mistake &mistake) {
        reportUsage("voxml select", mistake.text);
        return wrongUsage;
    }
    printHeading(request);
    std::atomic<int64_t> found = 0;
    const auto print = [&](const Input &input, const Decoded &decoded) {
        found += Printer(request, input, decoded).run();
        return fine;
    };
    const Status status = forEachDecoded(request, inputsOf(request), print);
    return status == fine && found == 0 ? nothingSelected : status;
}

} // namespace tool
