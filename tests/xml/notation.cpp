#include "tests/xml/notation.hpp"

#include <vector>

namespace test {

ExpandedName::ExpandedName(std::string_view name) {
    const size_t colon = name.rfind(':');
    local = str(name.substr(colon + 1)); // all of it where there is no colon
    if (colon != name.npos) ns = str(name.substr(0, colon));
}

std::string expandedName(voString *optionalNs, voString *localName) {
    const std::string prefix = optionalNs ? take(optionalNs) + ":" : "";
    return prefix + take(localName);
}

Ref<XML_TEXT> textNode(std::string_view value) { return Ref(xmlTextCreateValue(str(value))); }
Ref<XML_CDATA> cdata(std::string_view value) { return Ref(xmlCdataCreate(str(value))); }
Ref<XML_COMMENT> comment(std::string_view value) { return Ref(xmlCommentCreate(str(value))); }
Ref<XML_PROCESSING_INSTRUCTION> instruction(std::string_view value) {
    return Ref(xmlProcessingInstructionCreate(str(value)));
}

// ---------------------------------------------------------------- writing

std::string inApostrophes(std::string_view value) {
    std::string all = "'";
    for (char c : value) {
        const size_t special = std::string_view("\n\r\t'\\").find(c);
        if (special != std::string_view::npos) all += '\\';
        all += special == std::string_view::npos ? c : "nrt'\\"[special];
    }
    return all + "'";
}

std::string word(const std::string &value) {
    return value.find_first_of(" \n\r\t()'\\") == value.npos ? value : inApostrophes(value);
}

namespace {

template <class Layer> class TreeWriter {
  public:
    explicit TreeWriter(Declarations written) : declarations(written) {}

    /// Elements stand on a stack of their own, however deep they are.
    std::string write(typename Layer::Items *items) {
        open.push_back({Ref(vo::retained(items)), 0});
        run(1);
        return std::move(out);
    }
    std::string write(typename Layer::Element *el) {
        begin(el);
        run(0);
        return std::move(out);
    }
    std::string write(typename Layer::Item *item) {
        add(item);
        run(0);
        return std::move(out);
    }

  private:
    struct Open {
        Ref<typename Layer::Items> list;
        int64_t next;
    };

    /// Writes what is open. The outermost lists that are not of an element have no parenthesis.
    void run(size_t bareLists) {
        while (!open.empty()) {
            auto &[list, next] = open.back();
            if (next < Layer::itemsLength(list)) {
                add(Ref(Layer::itemAt(list, next++)));
                continue;
            }
            open.pop_back();
            if (open.size() >= bareLists) out += ")";
        }
    }

    void put(const std::string &node) { (out += out.empty() ? "" : " ") += node; }

    void add(typename Layer::Item *item) {
        switch (Layer::itemType(item)) {
        case XML_ITEM_TYPE_ELEMENT:
            return begin(Ref(Layer::itemElement(item)));
        case XML_ITEM_TYPE_PROCESSING_INSTRUCTION:
            return put(taken(Layer::itemInstruction(item)));
        case XML_ITEM_TYPE_COMMENT:
            return put(taken(Layer::itemComment(item)));
        case XML_ITEM_TYPE_TEXT:
            return put(taken(Layer::itemText(item)));
        case XML_ITEM_TYPE_CDATA:
            return put(taken(Layer::itemCdata(item)));
        }
        FAIL() << "an item of no known type";
    }

    void begin(typename Layer::Element *el) {
        put("(" + word(Layer::nameOf(el)));
        if constexpr (std::is_same_v<Layer, Namespaced>)
            if (Ref map(xmlNsElementNamespaceMap(el)); map && declarations == Declarations::written)
                for (int64_t i = 0; i < xmlNsNamespaceMapLength(map); ++i)
                    put("+" + word(taken(xmlNsNamespaceMapMappingAt(map, i))));
        Ref attrs(Layer::elementAttributes(el));
        for (int64_t i = 0; i < Layer::attributesLength(attrs); ++i)
            put(taken(Layer::attributeAt(attrs, i)));
        open.push_back({Ref(Layer::elementItems(el)), 0});
    }

    Declarations declarations;
    std::vector<Open> open;
    std::string out;
};

template <class Layer> std::string describeAttribute(typename Layer::Attribute *attr) {
    return "@" + word(Layer::nameOf(attr)) + "=" + word(take(Layer::attributeValue(attr)));
}

template <class Layer> std::string describeAttributes(typename Layer::Attributes *attrs) {
    std::string all;
    for (int64_t i = 0; i < Layer::attributesLength(attrs); ++i)
        all += (i ? " " : "") + taken(Layer::attributeAt(attrs, i));
    return all;
}

template <class Layer>
std::string describeTree(auto *part, Declarations declarations = Declarations::written) {
    return TreeWriter<Layer>(declarations).write(part);
}

} // namespace

std::string describe(voString *string) { return text(string); }
std::string describe(XML_TEXT *text) { return inApostrophes(take(xmlTextValue(text))); }
std::string describe(XML_CDATA *cdata) { return "#" + word(take(xmlCdataValue(cdata))); }
std::string describe(XML_COMMENT *comment) { return "!" + word(take(xmlCommentValue(comment))); }
std::string describe(XML_PROCESSING_INSTRUCTION *pi) {
    return "?" + word(take(xmlProcessingInstructionValue(pi)));
}
std::string describe(XML_ATTRIBUTE *attr) { return describeAttribute<Plain>(attr); }
std::string describe(XML_NS_ATTRIBUTE *attr) { return describeAttribute<Namespaced>(attr); }
std::string describe(XML_ATTRIBUTES *attrs) { return describeAttributes<Plain>(attrs); }
std::string describe(XML_NS_ATTRIBUTES *attrs) { return describeAttributes<Namespaced>(attrs); }
std::string describe(XML_ITEM *item) { return describeTree<Plain>(item); }
std::string describe(XML_NS_ITEM *item) { return describeTree<Namespaced>(item); }
std::string describe(XML_ITEMS *items) { return describeTree<Plain>(items); }
std::string describe(XML_NS_ITEMS *items) { return describeTree<Namespaced>(items); }
std::string describe(XML_ELEMENT *el) { return describeTree<Plain>(el); }
std::string describe(XML_NS_ELEMENT *el) { return describeTree<Namespaced>(el); }
std::string describe(XML_DOCUMENT *document) {
    return describeTree<Plain>(Ref(xmlDocumentItems(document)).operator->());
}
std::string describe(XML_NS_DOCUMENT *document, Declarations declarations) {
    return describeTree<Namespaced>(Ref(xmlNsDocumentItems(document)).operator->(), declarations);
}
std::string describe(XML_NS_NAMESPACE_MAPPING *mapping) {
    Ref prefix(xmlNsNamespaceMappingPrefix(mapping)), ns(xmlNsNamespaceMappingNamespace(mapping));
    return (prefix ? text(prefix) : "") + "=" + (ns ? text(ns) : "");
}
std::string describe(XML_NS_NAMESPACE_MAP *map) {
    std::string all;
    for (int64_t i = 0; i < xmlNsNamespaceMapLength(map); ++i)
        all += (i ? " " : "") + taken(xmlNsNamespaceMapMappingAt(map, i));
    return all;
}

// ---------------------------------------------------------------- reading

namespace {

/// The words of a notation, one after another.
class Words {
  public:
    explicit Words(std::string_view notation) : rest(notation) {}

    /// The first character of the next word, or 0 at the end.
    char peek() {
        rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
        return rest.empty() ? '\0' : rest.front();
    }
    void skip() { rest.remove_prefix(1); }

    std::string next() {
        std::string all;
        for (bool inQuotes = false; !rest.empty(); skip()) {
            const char c = rest.front();
            if (!inQuotes && (c == ' ' || c == ')')) break;
            if (c == '\'')
                inQuotes = !inQuotes;
            else
                all += c == '\\' ? unescaped() : c;
        }
        return all;
    }

  private:
    char unescaped() {
        skip();
        const size_t special = std::string_view("nrt").find(rest.front());
        return special == std::string_view::npos ? rest.front() : "\n\r\t"[special];
    }

    std::string_view rest;
};

template <class Layer> Ref<typename Layer::Attribute> attributeOf(const std::string &word) {
    const size_t equals = word.find('=');
    return Layer::attribute(word.substr(0, equals), word.substr(equals + 1));
}

template <class Layer> class TreeReader {
  public:
    explicit TreeReader(std::string_view notation) : words(notation) {}

    Ref<typename Layer::Items> items() {
        while (const char kind = words.peek())
            node(kind);
        return std::move(top);
    }

  private:
    void node(char kind) {
        if (kind != '\'') words.skip();
        if (kind == ')') return end();
        const std::string word = words.next();
        switch (kind) {
        case '(':
            return void(open.push_back(Layer::element(word)));
        case '+':
            return declare(open.back(), word);
        case '@':
            return Layer::setElementAttribute(open.back().edit(), attributeOf<Layer>(word));
        case '!':
            return append(Ref(Layer::createItemComment(comment(word))));
        case '?':
            return append(Ref(Layer::createItemInstruction(instruction(word))));
        case '#':
            return append(Ref(Layer::createItemCdata(cdata(word))));
        default:
            return append(Ref(Layer::createItemText(textNode(word))));
        }
    }
    void end() {
        Ref el = std::move(open.back());
        open.pop_back();
        append(Ref(Layer::createItemElement(el)));
    }
    void append(typename Layer::Item *item) {
        if (open.empty())
            Layer::appendItem(top.edit(), item);
        else
            Layer::appendElementItem(open.back().edit(), item);
    }
    static void declare(Ref<XML_NS_ELEMENT> &el, const std::string &word) {
        Ref map(xmlNsElementNamespaceMap(el));
        if (!map) map = Ref(xmlNsNamespaceMapCreate());
        xmlNsNamespaceMapAppendMapping(map.edit(), mapping(word));
        xmlNsElementSetNamespaceMap(el.edit(), map);
    }
    static void declare(Ref<XML_ELEMENT> &, const std::string &word) {
        FAIL() << "a plain element has no namespace map: " << word;
    }

    Words words;
    std::vector<Ref<typename Layer::Element>> open;
    Ref<typename Layer::Items> top{Layer::createItems()};
};

} // namespace

template <class Layer> Ref<voVector> attributeVector(std::string_view notation) {
    Ref made(voVectorCreate());
    for (Words words(notation); words.peek();) {
        words.skip();
        voVectorAppendObj(made.edit(), Layer::attributeObj(attributeOf<Layer>(words.next())));
    }
    return made;
}
template Ref<voVector> attributeVector<Plain>(std::string_view);
template Ref<voVector> attributeVector<Namespaced>(std::string_view);

template <class Layer> Ref<typename Layer::Attributes> attributesOf(std::string_view notation) {
    Ref made(Layer::createAttributes());
    Layer::setAttributesVector(made.edit(), attributeVector<Layer>(notation));
    return made;
}
template Ref<XML_ATTRIBUTES> attributesOf<Plain>(std::string_view);
template Ref<XML_NS_ATTRIBUTES> attributesOf<Namespaced>(std::string_view);

template <class Layer> Ref<typename Layer::Items> itemsOf(std::string_view notation) {
    return TreeReader<Layer>(notation).items();
}
template Ref<XML_ITEMS> itemsOf<Plain>(std::string_view);
template Ref<XML_NS_ITEMS> itemsOf<Namespaced>(std::string_view);

Ref<XML_NS_DOCUMENT> tree(std::string_view notation) {
    Ref made(xmlNsDocumentCreate());
    xmlNsDocumentSetItems(made.edit(), itemsOf<Namespaced>(notation));
    return made;
}

Ref<XML_NS_NAMESPACE_MAPPING> mapping(std::string_view word) {
    const size_t equals = word.find('=');
    Ref made(xmlNsNamespaceMappingCreate());
    if (equals > 0) xmlNsNamespaceMappingSetPrefix(made.edit(), str(word.substr(0, equals)));
    if (equals + 1 < word.size())
        xmlNsNamespaceMappingSetNamespace(made.edit(), str(word.substr(equals + 1)));
    return made;
}

Ref<voVector> mappings(std::string_view words) {
    Ref made(voVectorCreate());
    for (Words rest(words); rest.peek();)
        voVectorAppendObj(made.edit(), xmlNsNamespaceMappingObj(mapping(rest.next())));
    return made;
}

Ref<XML_NS_NAMESPACE_MAP> map(std::string_view words) {
    Ref made(xmlNsNamespaceMapCreate());
    xmlNsNamespaceMapSetMappingsVector(made.edit(), mappings(words));
    return made;
}

} // namespace test
