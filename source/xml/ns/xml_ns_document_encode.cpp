#include "source/xml/ns/xml_ns_document_encode.hpp"

#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_items.hpp"
#include "source/xml/base/xml_module.hpp"
#include "source/xml/base/xml_text.hpp"
#include "source/xml/ns/xml_ns_document.hpp"
#include "source/xml/ns/xml_ns_encoding.hpp"
#include "source/xml/ns/xml_ns_prefixes.hpp"
#include "source/xml/ns/xml_ns_walk.hpp"
#include "source/xml/outline/xml_outline_text.hpp"
#include "xml/xml_ns_builtin_namespaces.h"

#include <algorithm>

using vo::Ref;
using vo::retained;
using xml::Namespace;
using xml::NsMappings;
using xml::NsWalkLevel;
using xml::share;

namespace {

using Mapping = XML_NS_NAMESPACE_MAPPING;

/// `prefix`, a colon and `local`.
Ref<voString> join(voString *prefix, voString *local) {
    Ref joined(vo::createArray<voString>(voStringSort(), prefix->length + 1 + local->length));
    uint32_t *at = std::copy_n(prefix->items(), prefix->length, joined->items());
    *at++ = ':';
    std::copy_n(local->items(), local->length, at);
    return joined;
}

XML_TEXT *createValue(const Mapping *mapping) {
    return mapping->ns ? xmlTextCreateEscape(mapping->ns) : xmlTextCreate();
}

Ref<voString> stringOf(voString *string) { return Ref(retained(string)); }
Ref<voString> stringOf(xml::Piece piece) { return Ref(xml::createString(piece)); }

bool isXmlns(voString *name) {
    static constexpr uint32_t xmlns[] = {'x', 'm', 'l', 'n', 's'};
    return std::ranges::equal(xmlns, std::span(name->items(), size_t(name->length)));
}
bool isXmlns(xml::Piece name) { return name.bytes() == "xmlns"; }

struct GatherLevel : NsWalkLevel {
    size_t mark = 0; ///< What was bound before the element.
};

/// Finds the namespaces of a document that no map binds where they are used.
class Gatherer : public xml::NsWalk<Gatherer, GatherLevel> {
  public:
    using Level = GatherLevel;
    static constexpr bool readsRecords = true;

    explicit Gatherer(xml::NamedScope &scopeAround) : scope(scopeAround) {}

    /// The namespaces that need a prefix, in document order. From then on the scope knows every
    /// prefix that the document declares.
    vo::Vec<Namespace *> run(XML_NS_ITEMS *items) {
        walk(items);
        return std::move(unbound);
    }

    template <class Element> void element(const Element &el, Level &level) {
        level.mark = scope.mark();
        if (Ref map = el.declared(); map) {
            scope.bindAll(xml::mappingsOf(map));
            kept.push_back(std::move(map));
        }
        if (voString *ns = el.ns(); ns && !scope.named(ns).first()) gather(ns);
        for (size_t i = 0, count = el.attributes(); i < count; ++i) {
            voString *ns = el.isAttribute(i) ? el.ns(i) : nullptr;
            if (ns && !scope.named(ns).firstPrefixed()) gather(ns);
        }
    }
    void entered(Level &, int64_t) {}
    void left(Level &level) {
        if (levels().size() > 1) scope.undo(level.mark);
    }
    void node(XML_NS_ITEM *) {}
    void node(const xml::Outline &, const xml::Node &) {}

  private:
    void gather(voString *name) {
        Namespace &ns = scope.named(name);
        if (std::exchange(ns.isGathered, true)) return;
        if (!xml___NsBuiltinNamespacesIsXmlNamespace(name)) unbound.push_back(&ns);
    }

    xml::NamedScope &scope;
    vo::Vec<Namespace *> unbound;
    vo::Vec<Ref<XML_NS_NAMESPACE_MAP>> kept; ///< Maps whose mappings the scope borrows.
};

struct EncodeLevel : NsWalkLevel {
    xml::PrefixChoice::Change change;
};

/// What both ways of encoding share: the walk, and the names that elements and attributes get.
template <class Target, class Level> class Encoder : public xml::NsWalk<Target, Level> {
  protected:
    explicit Encoder(const xml::NsEncoding &encoding) {
        if (encoding.optionalAround) names.scope.bindAll(xml::mappingsOf(encoding.optionalAround));
        const size_t around = names.scope.mark();
        if (encoding.optionalRoot) {
            const auto root = xml::mappingsOf(encoding.optionalRoot);
            names.scope.bindAll(root);
            names.top.assign(root.begin(), root.end());
        }
        Gatherer gatherer(names.scope);
        const auto unbound = gatherer.run(encoding.items);
        names.scope.undo(around);
        names.generate(unbound);
    }

    /// Binds the prefixes that the element declares.
    template <class Element> void declare(const Element &el, Level &level) {
        const auto &levels = this->levels();
        Mapping *const cancelled = levels[levels.size() - 2].change.cancelled;
        const NsMappings pending =
            levels.size() == 2 ? NsMappings(names.top) : NsMappings(&cancelled, cancelled ? 1 : 0);
        level.change = names.enter(el.declared(), el.ns() != nullptr, pending);
    }

    void leave(const Level &level) {
        if (this->levels().size() > 1) names.leave(level.change);
    }

    Ref<voString> qualified(voString *optionalPrefix, voString *local) {
        if (!optionalPrefix) return Ref(retained(local));
        Joined &known = joined.at(optionalPrefix, local);
        if (known.prefix != optionalPrefix || known.local != local)
            known = {stringOf(optionalPrefix), stringOf(local), join(optionalPrefix, local)};
        return Ref(retained<voString>(known.name));
    }

    /// Whether attributes of the element may be duplicates once their names have prefixes. In one
    /// element each namespace has one prefix, so different names stay different, unless a map binds
    /// "xml" or an attribute has a name that only declarations should have.
    template <class Element> bool mayHaveDuplicates(const Element &el) {
        for (size_t i = 0, count = el.attributes(); i < count; ++i) {
            if (!el.isAttribute(i)) continue;
            voString *prefix = names.attributePrefix(el.ns(i));
            if (prefix == names.xmlPrefix ? names.bindsXml()
                : prefix                  ? isXmlns(prefix)
                                          : isXmlns(el.local(i)))
                return true;
        }
        return false;
    }

    /// The attributes and, behind them, the declarations.
    template <class Element> Ref<XML_ATTRIBUTES> attributes(const Element &el) {
        const size_t count = el.attributes() + names.declarations().size();
        if (count == 0) return Ref(share<XML_ATTRIBUTES>(noAttributes));
        auto unset = place.create<XML_ATTRIBUTES>(sorts.attributes);
        Ref list(unset.with(place.vector(int64_t(count))));
        for (size_t i = 0; i < el.attributes(); ++i) {
            if (!el.isAttribute(i)) continue;
            Ref name = qualified(names.attributePrefix(el.ns(i)), stringOf(el.local(i)));
            place.push(list->vector, attribute(std::move(name), el.createText(i)));
        }
        for (const Mapping *mapping : names.declarations()) {
            Ref name =
                mapping->prefix ? qualified(xmlnsPrefix, mapping->prefix) : stringOf(xmlnsPrefix);
            place.push(list->vector, attribute(std::move(name), createValue(mapping)));
        }
        if (mayHaveDuplicates(el)) xmlAttributesSetVector(list.edit(), Ref(retained(list->vector)));
        return list;
    }

    /// Looked up once, since getting a sort is a call into a library.
    struct Sorts {
        voSort *item = xmlItemSort(), *items = xmlItemsSort(), *element = xmlElementSort(),
               *attribute = xmlAttributeSort(), *attributes = xmlAttributesSort();
    };

    Sorts sorts;
    xml::VectorPlacer place;
    xml::PrefixChoice names;

  private:
    /// A name that was joined a short time ago.
    struct Joined {
        Ref<voString> prefix, local, name;
    };

    XML_ATTRIBUTE *attribute(Ref<voString> name, XML_TEXT *adoptedText) {
        auto made = place.create<XML_ATTRIBUTE>(sorts.attribute);
        return made.with(name.take(), adoptedText, nullptr);
    }

    Ref<voString> xmlnsPrefix{xml___NsBuiltinNamespacesXmlnsPrefix()};
    Ref<XML_ATTRIBUTES> noAttributes{xmlAttributesCreate()};
    xml::Recent<Joined> joined;
};

struct TreeLevel : EncodeLevel {
    XML_ELEMENT *element = nullptr; ///< Null for the document.
    voVector *to = nullptr;         ///< Its items.
};

/// Makes the plain tree. Every new object is put into its place in the tree at once.
class TreeMaker : public Encoder<TreeMaker, TreeLevel> {
  public:
    using Level = TreeLevel;
    static constexpr bool readsRecords = false;

    explicit TreeMaker(const xml::NsEncoding &encoding) : Encoder(encoding) {}

    Ref<XML_ITEMS> run(XML_NS_ITEMS *items) {
        walk(items);
        return std::move(made);
    }

    template <class Element> void element(const Element &el, Level &level) {
        declare(el, level);
        auto unset = place.create<XML_ELEMENT>(sorts.element);
        voString *name = qualified(names.elementPrefix(el.ns()), stringOf(el.local())).take();
        level.element = unset.with(name, attributes(el).take(), nullptr, nullptr);
        push(levels()[levels().size() - 2], XML_ITEM_TYPE_ELEMENT, vo::obj(level.element));
    }

    void entered(Level &level, int64_t length) {
        Ref list(length ? createList(level, length) : share<XML_ITEMS>(noItems));
        if (level.element)
            level.element->items = list.take();
        else
            made = std::move(list);
    }

    void left(Level &level) { leave(level); }

    void node(XML_NS_ITEM *item) {
        push(levels().back(), item->type(), retained(xml::nodeOf(item)));
    }
    void node(const xml::Outline &, const xml::Node &) { VO_UNREACHABLE(); }

  private:
    XML_ITEMS *createList(Level &level, int64_t length) {
        auto list = place.create<XML_ITEMS>(sorts.items);
        level.to = place.vector(length);
        return list.with(decltype(XML_ITEMS::itemsVector)(level.to));
    }

    /// Adopts the node.
    void push(Level &level, XML_ITEM_TYPE type, voObj *node) {
        auto item = place.create<XML_ITEM>(sorts.item);
        place.push(level.to, item.with(xml::itemTag(type), decltype(XML_ITEM::value)(node)));
    }

    Ref<XML_ITEMS> noItems{xmlItemsCreate()};
    Ref<XML_ITEMS> made; ///< Those of the document.
};

struct TextLevel : EncodeLevel {
    size_t name = 0; ///< Where the element's name was written,
    size_t size = 0; ///< and its length; 0 for the document and empty elements.
};

/// Writes the text of the plain tree, without making it.
class TextMaker : public Encoder<TextMaker, TextLevel> {
  public:
    using Level = TextLevel;
    static constexpr bool readsRecords = true;

    TextMaker(const xml::NsEncoding &encoding, xml::Writer &writer)
        : Encoder(encoding), out(writer) {}

    template <class Element> void element(const Element &el, Level &level) {
        declare(el, level);
        out.ascii("<");
        level.name = out.size();
        name(names.elementPrefix(el.ns()), el.local());
        level.size = out.size() - level.name;
        if (mayHaveDuplicates(el))
            writeMade(el);
        else
            writeAttributes(el);
    }

    void entered(Level &level, int64_t length) {
        if (levels().size() == 1) return;
        out.ascii(length ? ">" : "/>");
        if (!length) level.size = 0;
    }

    void left(Level &level) {
        if (level.size) {
            out.ascii("</");
            out.again(level.name, level.size);
            out.ascii(">");
        }
        leave(level);
    }

    void node(XML_NS_ITEM *item) { out.characterData(item->type(), xml::nodeOf(item)); }
    void node(const xml::Outline &outline, const xml::Node &node) {
        out.characterData(node.kind, outline.pieceOf(node));
    }

  private:
    void name(voString *optionalPrefix, voString *local) {
        out.string(qualified(optionalPrefix, local));
    }
    void name(voString *optionalPrefix, xml::Piece local) {
        if (optionalPrefix) out.enclosed("", optionalPrefix, ":");
        out.text(local);
    }

    template <class Element> void writeAttributes(const Element &el) {
        for (size_t i = 0, count = el.attributes(); i < count; ++i) {
            if (!el.isAttribute(i)) continue;
            out.ascii(" ");
            name(names.attributePrefix(el.ns(i)), el.local(i));
            out.ascii("=");
            out.quoted(el.value(i));
        }
        for (const Mapping *mapping : names.declarations()) {
            out.ascii(mapping->prefix ? " xmlns:" : " xmlns");
            if (mapping->prefix) out.string(mapping->prefix);
            out.ascii("=");
            out.quoted(Ref(createValue(mapping))->value);
        }
    }

    /// Duplicates are removed as in every attribute list.
    template <class Element> void writeMade(const Element &el) {
        Ref list = attributes(el);
        for (XML_ATTRIBUTE *attr : xml::objectsIn<XML_ATTRIBUTE>(list->vector))
            out.attribute(attr->name, attr->text->value);
    }

    xml::Writer &out;
};

constinit voSort encodingSort = {{nullptr, 1}, &xml___module, "XML_NS_ENCODING", [](voObj *obj) {
                                     vo::dropFields(reinterpret_cast<xml::NsEncoding *>(obj));
                                 }};

} // namespace

XML_ITEMS *xml::makeItems(NsEncoding *encoding) {
    return TreeMaker(*encoding).run(encoding->items).take();
}

void xml::writeItems(NsEncoding *encoding, Writer &out) {
    TextMaker(*encoding, out).walk(encoding->items);
}

XML_DOCUMENT *xml___NsDocumentEncode(XML_NS_DOCUMENT *doc,
                                     XML_NS_NAMESPACE_MAP *optionalEffectiveNamespaceMap,
                                     XML_NS_NAMESPACE_MAP *optionalRootNamespaceMap) {
    VO_ASSERT(doc);
    auto *encoding = vo::create<xml::NsEncoding>(&encodingSort);
    encoding->items = retained(doc->items);
    encoding->optionalAround = retained(optionalEffectiveNamespaceMap);
    encoding->optionalRoot = retained(optionalRootNamespaceMap);
    auto *document = vo::create<XML_DOCUMENT>(xmlDocumentSort());
    document->version.set(doc->version.get());
    document->charset = doc->charset;
    document->standalone = doc->standalone;
    document->items = decltype(document->items)(encoding);
    return document;
}

XML_DOCUMENT *xmlNsDocumentEncode(XML_NS_DOCUMENT *doc) {
    return xml___NsDocumentEncode(doc, nullptr, nullptr);
}
