#include "commands.hpp"

#include "each.hpp"
#include "json_text.hpp"
#include "matching.hpp"
#include "node_finder.hpp"
#include "terminal.hpp"

#include <algorithm>
#include <array>

#include <unistd.h>

namespace tool {
namespace {

/// One of the two documents, as far as it has to do with a difference.
struct Side {
    std::string file;
    NodeFinder::Found at;                  ///< The node, or what would hold it.
    std::optional<std::string> value = {}; ///< Of the node; none where there is no such node.
    std::string attributes = {};           ///< Of an element, for people to tell it from others.
};

using Sides = std::array<Side, 2>;

struct Attribute {
    std::string name, value;
    bool isResolved;
    std::optional<Place> place;
};

/// A document that is compared.
class Compared {
  public:
    Compared(std::string name, const Decoded &decoded, Comparison comparison,
             const NodeTable &table, const NameTable &names)
        : file(std::move(name)), nodes(table), finder(decoded, comparison, table, names) {}

    Side whole(size_t node) {
        Side side = missing(node);
        side.value = valueOf(node);
        if (type(node) == XML_ITEM_TYPE_ELEMENT)
            for (const Attribute &attribute : attributes())
                side.attributes += " " + attribute.name + "=\"" + attribute.value + "\"";
        return side;
    }
    Side missing(size_t parent) { return {file, finder.find(parent)}; }

    XML_ITEM_TYPE type(size_t node) const { return nodes[node].type; }
    uint32_t name(size_t node) const { return nodes[node].name; }

    /// Of the element that was found last, by their names.
    std::vector<Attribute> attributes() {
        std::vector<Attribute> found;
        NodeWalker &walker = finder.walker();
        const auto add = [&] {
            bool isResolved = true;
            std::string value(walker.value(isResolved));
            found.push_back(
                {walker.name(), std::move(value), isResolved, placeOf(walker.cursor())});
        };
        visitAttributes(add, walker.cursor());
        std::ranges::stable_sort(found, {}, &Attribute::name);
        return found;
    }

  private:
    std::string valueOf(size_t node) {
        NodeWalker &walker = finder.walker();
        if (type(node) == XML_ITEM_TYPE_ELEMENT) return walker.name();
        bool isResolved = true;
        return std::string(walker.value(isResolved));
    }

    std::string file;
    const NodeTable &nodes;
    NodeFinder finder;
};

// ---------------------------------------------------------------- output

/// The beginning of what a reader must see of two values, as UTF-8.
std::string shortened(std::string_view value, size_t common) {
    constexpr size_t mostBefore = 20, most = 70;
    const auto isInside = [&](size_t at) {
        return at > 0 && at < value.size() && (value[at] & 0xC0) == 0x80;
    };
    size_t from = common > 2 * mostBefore ? common - mostBefore : 0;
    while (isInside(from))
        --from;
    size_t to = std::min(from + most, value.size());
    while (isInside(to))
        ++to;
    return (from ? "..." : "") + shown(value.substr(from, to - from)) +
           (to < value.size() ? "..." : "");
}

size_t commonPrefix(std::string_view one, std::string_view other) {
    return static_cast<size_t>(std::ranges::mismatch(one, other).in1 - one.begin());
}

constexpr std::array<const char *, 3> changes = {"changed", "removed", "added"};

/// Writes differences as they are found.
class Output {
  public:
    explicit Output(bool asJson) : isJson(asJson), painter(STDOUT_FILENO) {}

    void add(Difference::Kind kind, std::string_view node, const Sides &sides) {
        constexpr size_t enough = 1 << 16;
        if (isJson)
            addJson(kind, node, sides);
        else
            addText(kind, node, sides);
        if (pending.size() >= enough) flush();
    }

    void flush() {
        writeOut(pending);
        pending.clear();
    }

  private:
    void addText(Difference::Kind kind, std::string_view node, const Sides &sides) {
        const Side &named = sides[kind == Difference::added ? 1 : 0];
        pending += std::string(changes[kind]) + " " + std::string(node) + " " +
                   painter.bold(shown(std::string_view(named.at.path))) + "\n";
        const size_t common =
            sides[0].value && sides[1].value ? commonPrefix(*sides[0].value, *sides[1].value) : 0;
        pending += painter.red("-") + line(sides[0], node, common);
        pending += painter.green("+") + line(sides[1], node, common);
    }

    std::string line(const Side &side, std::string_view node, size_t common) const {
        std::string where = shown(std::string_view(side.file)) + ":";
        if (const auto &place = side.at.place)
            where += std::to_string(place->line) + ":" + std::to_string(place->column) + ":";
        return " " + painter.dim(where) + " " + what(side, node, common) + "\n";
    }

    static std::string what(const Side &side, std::string_view node, size_t common) {
        if (!side.value) return "not here";
        if (node == "element") return "<" + shortened(*side.value + side.attributes, common) + ">";
        return "\"" + shortened(*side.value, common) + "\"";
    }

    void addJson(Difference::Kind kind, std::string_view node, const Sides &sides) {
        pending += "{\"change\":" + jsonString(changes[kind]) + ",\"node\":" + jsonString(node) +
                   ",\"a\":" + json(sides[0]) + ",\"b\":" + json(sides[1]) + "}\n";
    }

    static std::string json(const Side &side) {
        std::string object = "{\"file\":" + jsonString(shown(std::string_view(side.file)));
        if (const auto &place = side.at.place)
            object += ",\"line\":" + std::to_string(place->line) +
                      ",\"column\":" + std::to_string(place->column);
        object += ",\"path\":" + jsonString(side.at.path);
        if (side.value) object += ",\"value\":" + jsonString(*side.value);
        return object + "}";
    }

    const bool isJson;
    Painter painter;
    std::string pending;
};

// ---------------------------------------------------------------- differences

/// Tells how two documents differ.
class Teller {
  public:
    Teller(Compared &documentA, Compared &documentB, bool asJson)
        : a(documentA), b(documentB), output(asJson) {}

    void tell(const Difference &difference) {
        static constexpr ByItemType<const char *> nodes = {"element", "instruction", "comment",
                                                           "text", "cdata"};
        const bool isAdded = difference.kind == Difference::added;
        const XML_ITEM_TYPE type = isAdded ? b.type(difference.b) : a.type(difference.a);
        const Sides sides = {isAdded ? a.missing(difference.a) : a.whole(difference.a),
                             difference.kind == Difference::removed ? b.missing(difference.b)
                                                                    : b.whole(difference.b)};
        const bool isElement = type == XML_ITEM_TYPE_ELEMENT;
        const bool isChanged = difference.kind == Difference::changed;
        if (!isChanged || !isElement || a.name(difference.a) != b.name(difference.b))
            output.add(difference.kind, of(nodes, type), sides);
        if (isChanged && isElement) tellAttributes(sides);
    }

    void finish() { output.flush(); }

  private:
    void tellAttributes(const Sides &elements) {
        const auto ofA = a.attributes(), ofB = b.attributes();
        auto one = ofA.begin(), other = ofB.begin();
        while (one != ofA.end() || other != ofB.end()) {
            if (other == ofB.end() || (one != ofA.end() && one->name < other->name))
                tellAttribute(Difference::removed, elements, &*one++, nullptr);
            else if (one == ofA.end() || other->name < one->name)
                tellAttribute(Difference::added, elements, nullptr, &*other++);
            else {
                if (one->value != other->value || one->isResolved != other->isResolved)
                    tellAttribute(Difference::changed, elements, &*one, &*other);
                ++one;
                ++other;
            }
        }
    }

    void tellAttribute(Difference::Kind kind, const Sides &elements, const Attribute *optionalA,
                       const Attribute *optionalB) {
        output.add(kind, "attribute",
                   {sideOf(elements[0], optionalA), sideOf(elements[1], optionalB)});
    }

    static Side sideOf(const Side &element, const Attribute *optionalAttribute) {
        if (!optionalAttribute) return {element.file, element.at};
        const Attribute &attribute = *optionalAttribute;
        const std::string slash = element.at.path == "/" ? "" : "/";
        return {element.file,
                {element.at.path + slash + "@" + attribute.name, attribute.place},
                attribute.value};
    }
    Compared &a, &b;
    Output output;
};

struct Document {
    std::string name;
    Decoded decoded;
};

Status compare(const Request &request, const Document &a, const Document &b) {
    const Comparison comparison{request.namespaces, request.ignoreSpace};
    NameTable names;
    const NodeTable nodesA(a.decoded, comparison, names), nodesB(b.decoded, comparison, names);
    if (areEqual(nodesA[0], nodesB[0])) return fine;
    if (request.quiet) return refused;
    const auto found = differences(nodesA, nodesB);
    Compared comparedA(a.name, a.decoded, comparison, nodesA, names);
    Compared comparedB(b.name, b.decoded, comparison, nodesB, names);
    Teller teller(comparedA, comparedB, request.asJson);
    for (const Difference &difference : found)
        teller.tell(difference);
    teller.finish();
    return refused;
}

} // namespace

Status diff(const Request &request) {
    if (request.files.size() != 2 || std::ranges::count(request.files, "-") > 1) {
        reportUsage("voxml diff", "expects two files, of which one may be -");
        return wrongUsage;
    }
    Request located = request;
    located.locations = true;
    std::vector<Document> documents;
    const auto keep = [&](const Input &input, Decoded &decoded) {
        documents.push_back({input.name, std::move(decoded)});
        return fine;
    };
    const Status status = forEachDecoded(located, inputsOf(request), keep);
    if (status != fine) return status == refused ? fileTrouble : status;
    return compare(request, documents[0], documents[1]);
}

} // namespace tool
