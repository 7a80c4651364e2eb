#include "json.hpp"

#include "cursor.hpp"
#include "json_text.hpp"
#include "node_table.hpp"

namespace tool {
namespace {

constexpr size_t none = static_cast<size_t>(-1);

/// An element, or the document. Those in it are linked, grouped by their names.
struct Element {
    uint32_t name = 0;
    size_t first = none;    ///< The first element in it;
    size_t next = none;     ///< the first of the next name beside it;
    size_t same = none;     ///< the next of its own name beside it.
    std::string attributes; ///< As members of an object.
    std::string text;

    bool isValue() const { return first == none && attributes.empty(); }
};

/// The value of an attribute or text, or what is known of it.
std::string_view valueAt(XML_CURSOR *cursor) {
    const XML_UTF8 plain = xmlCursorValueTryUnescape(cursor);
    return view(plain.bytes ? plain : xmlCursorValue(cursor));
}

void trim(std::string &text) {
    constexpr const char *space = " \t\r\n";
    text.erase(text.find_last_not_of(space) + 1);
    text.erase(0, text.find_first_not_of(space));
}

class Reader {
  public:
    explicit Reader(XML_DOCUMENT *document) : cursor(xmlCursorCreate(document)) {
        elements.emplace_back();
        open.push_back({0});
        walkThrough([this] { enter(); }, [this] { leave(); }, cursor);
        close();
    }

    std::vector<Element> elements; ///< The first one is the document.
    NameTable names;

  private:
    struct Open {
        size_t element;
        size_t first = none, last = none; ///< The elements in it, linked by `next` in their order.
    };
    struct Member {
        size_t parent = none, last = none;
    };

    void enter() {
        const XML_ITEM_TYPE type = xmlCursorType(cursor);
        if (type == XML_ITEM_TYPE_ELEMENT)
            begin();
        else if (type == XML_ITEM_TYPE_TEXT || type == XML_ITEM_TYPE_CDATA)
            elements[open.back().element].text += valueAt(cursor);
    }

    void leave() {
        if (xmlCursorType(cursor) == XML_ITEM_TYPE_ELEMENT) close();
    }

    void begin() {
        const size_t number = elements.size();
        elements.emplace_back();
        elements.back().name = names.numberOf(std::string(view(xmlCursorName(cursor))));
        std::string &attributes = elements.back().attributes;
        const auto add = [&] {
            if (!attributes.empty()) attributes += ',';
            appendJson(attributes, "@" + std::string(view(xmlCursorName(cursor))));
            attributes += ':';
            appendJson(attributes, valueAt(cursor));
        };
        visitAttributes(add, cursor);
        Open &parent = open.back();
        (parent.first == none ? parent.first : elements[parent.last].next) = number;
        parent.last = number;
        open.push_back({number});
    }

    void close() {
        group(open.back());
        trim(elements[open.back().element].text);
        open.pop_back();
    }

    /// Links elements of one name by `same`, and the first ones of the names by `next`.
    void group(const Open &parent) {
        lastOf.resize(names.size());
        size_t *link = &elements[parent.element].first;
        for (size_t child = parent.first; child != none;) {
            const size_t following = elements[child].next;
            Member &member = lastOf[elements[child].name];
            if (member.parent == parent.element) {
                elements[member.last].same = child;
            } else {
                *link = child;
                link = &elements[child].next;
            }
            member = {parent.element, child};
            child = following;
        }
        *link = none;
    }

    Ref<XML_CURSOR> cursor;
    std::vector<Open> open;
    std::vector<Member> lastOf; ///< By name, the last element of it that was grouped.
};

class Writer {
  public:
    explicit Writer(const Reader &read) : elements(read.elements), names(read.names) {
        begin(elements.front());
        while (!open.empty())
            step();
    }

    std::string out;

  private:
    /// An element whose object is being written.
    struct Open {
        const Element *element;
        size_t group;        ///< The first element of the next name,
        size_t item = none;  ///< and the next one of the current name.
        bool isList = false; ///< Whether that has several.
    };

    void step() {
        Open &last = open.back();
        if (last.item != none) {
            const Element &item = elements[last.item];
            out += ',';
            last.item = item.same;
            return value(item);
        }
        if (last.isList) out += ']';
        if (last.group == none) return end(*last.element);
        const Element &first = elements[last.group];
        last = {last.element, first.next, first.same, first.same != none};
        comma();
        appendJson(out, names[first.name]);
        out += last.isList ? ":[" : ":";
        value(first);
    }

    void value(const Element &element) {
        if (!element.isValue())
            begin(element);
        else if (element.text.empty())
            out += "null";
        else
            appendJson(out, element.text);
    }

    void begin(const Element &element) {
        out += '{' + element.attributes;
        open.push_back({&element, element.first});
    }

    void end(const Element &element) {
        if (!element.text.empty()) {
            comma();
            out += "\"#text\":";
            appendJson(out, element.text);
        }
        out += '}';
        open.pop_back();
    }

    /// Before a member of an object that may be the first one.
    void comma() {
        if (out.back() != '{') out += ',';
    }

    const std::vector<Element> &elements;
    const NameTable &names;
    std::vector<Open> open;
};

} // namespace

std::string toCompactJson(XML_DOCUMENT *document) { return Writer(Reader(document)).out; }

} // namespace tool
