#include "source/xml/ns/xml_ns_document_encode.hpp"

#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_items.hpp"
#include "source/xml/ns/xml_ns_attribute.hpp"
#include "source/xml/ns/xml_ns_attributes.hpp"
#include "source/xml/ns/xml_ns_conversion.hpp"
#include "source/xml/ns/xml_ns_document.hpp"
#include "source/xml/ns/xml_ns_element.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "source/xml/ns/xml_ns_items.hpp"
#include "source/xml/ns/xml_ns_namespace_map.hpp"
#include "source/xml/ns/xml_ns_scope.hpp"
#include "xml/xml_ns_builtin_namespaces.h"

#include <algorithm>

using vo::Ref;
using vo::retained;
using xml::Binding;
using xml::mappingsOf;
using xml::Namespace;
using xml::objectsIn;
using xml::share;

namespace {

using Mapping = XML_NS_NAMESPACE_MAPPING;
using Mappings = std::span<Mapping *const>;

/// The number in letters, a being the digit 0.
Ref<voString> prefixOf(int64_t number) {
    uint32_t letters[16];
    size_t first = std::size(letters);
    do {
        letters[--first] = 'a' + uint32_t(number % 26);
        number /= 26;
    } while (number > 0);
    return Ref(voStringCreateFromCharsCopy(letters + first, int64_t(std::size(letters) - first)));
}

/// `prefix`, a colon and `local`.
Ref<voString> join(voString *prefix, voString *local) {
    Ref joined(vo::createArray<voString>(voStringSort(), prefix->length + 1 + local->length));
    uint32_t *at = std::copy_n(prefix->items(), prefix->length, joined->items());
    *at++ = ':';
    std::copy_n(local->items(), local->length, at);
    return joined;
}

/// The scope of an encoder. Namespaces are found by the addresses of their names first: most names
/// of a document are the same few string objects.
class NamedScope : public xml::Scope {
  public:
    Namespace &named(voString *name) {
        Found &found = recent.at(name);
        if (found.name != name) found = {name, &ns(name)};
        return *found.ns;
    }

    void bindAll(Mappings mappings) {
        for (Mapping *mapping : mappings)
            bind(mapping);
    }

  private:
    struct Found {
        voString *name = nullptr;
        Namespace *ns = nullptr;
    };
    xml::Recent<Found> recent;
};

/// Finds the namespaces of a document that no map binds where they are used.
class Gatherer {
  public:
    explicit Gatherer(NamedScope &scopeAround) : scope(scopeAround) {}

    /// The namespaces that need a prefix, in document order. From then on the scope knows every
    /// prefix that the document declares.
    vo::Vec<Namespace *> run(XML_NS_ITEMS *items) {
        enter(items, scope.mark());
        while (!open.empty()) {
            Open &list = open.back();
            if (list.next == list.items.size()) {
                scope.undo(list.mark);
                open.pop_back();
            } else if (XML_NS_ITEM *item = list.items[list.next++];
                       item->type == XML_ITEM_TYPE_ELEMENT) {
                element(reinterpret_cast<XML_NS_ELEMENT *>(item->value));
            }
        }
        return std::move(unbound);
    }

  private:
    struct Open {
        std::span<XML_NS_ITEM *> items;
        size_t next;
        size_t mark; ///< What the scope held before the element of the list.
    };

    void enter(XML_NS_ITEMS *items, size_t mark) {
        open.push_back({objectsIn<XML_NS_ITEM>(items->itemsVector), 0, mark});
    }

    void element(XML_NS_ELEMENT *el) {
        const size_t mark = scope.mark();
        if (el->namespaceMap) scope.bindAll(mappingsOf(el->namespaceMap));
        if (el->ns && !scope.named(el->ns).first()) gather(el->ns);
        for (XML_NS_ATTRIBUTE *attr : objectsIn<XML_NS_ATTRIBUTE>(el->attributes->vector))
            if (attr->ns && !scope.named(attr->ns).firstPrefixed()) gather(attr->ns);
        enter(el->items, mark);
    }

    void gather(voString *name) {
        Namespace &ns = scope.named(name);
        if (std::exchange(ns.isGathered, true)) return;
        if (!xml___NsBuiltinNamespacesIsXmlNamespace(name)) unbound.push_back(&ns);
    }

    NamedScope &scope;
    vo::Vec<Open> open;
    vo::Vec<Namespace *> unbound;
};

/// Converts one document. Every new object is put into its place in the tree at once.
class Encoder {
  public:
    Encoder() {
        noAttributes->vector = place.vector(0);
        noItems->itemsVector = place.vector(0);
        scope.at(xmlPrefix); // No generated prefix is one of these.
        scope.at(xmlnsPrefix);
        scope.bind(noDefault);
    }

    XML_DOCUMENT *run(XML_NS_DOCUMENT *doc, XML_NS_NAMESPACE_MAP *optionalAround,
                      XML_NS_NAMESPACE_MAP *optionalRoot) {
        if (optionalAround) scope.bindAll(mappingsOf(optionalAround));
        const size_t around = scope.mark();
        if (optionalRoot) scope.bindAll(mappingsOf(optionalRoot));
        const auto unbound = Gatherer(scope).run(doc->items);
        scope.undo(around);
        if (optionalRoot) append(topDeclarations, mappingsOf(optionalRoot));
        generatePrefixes(unbound);

        XML_DOCUMENT *document = xmlDocumentCreate();
        xmlDocumentSetVersion(&document, doc->version);
        xmlDocumentSetCharset(&document, doc->charset);
        xmlDocumentSetStandalone(&document, doc->standalone);
        xmlDocumentSetItems(&document, items(doc->items, around, nullptr));
        content();
        return document;
    }

  private:
    /// A list of items; each element in it declares `pendingDefault`, unless null, as well.
    struct Open : xml::OpenList {
        Mapping *pendingDefault;
    };

    /// Declarations for the elements at the top. A prefix that the scope has ever seen is taken.
    void generatePrefixes(const vo::Vec<Namespace *> &unbound) {
        int64_t number = 0;
        for (const Namespace *ns : unbound) {
            Ref prefix = prefixOf(number++);
            while (scope.find(prefix))
                prefix = prefixOf(number++);
            Ref mapping(xmlNsNamespaceMappingCreate());
            xmlNsNamespaceMappingSetPrefix(mapping.edit(), prefix);
            xmlNsNamespaceMappingSetNamespace(mapping.edit(), ns->key);
            topDeclarations.push_back(mapping);
            generated.push_back(std::move(mapping));
        }
    }

    /// A list for the converted items, which are left to do.
    Ref<XML_ITEMS> items(XML_NS_ITEMS *plain, size_t mark, Mapping *pendingDefault) {
        if (plain->itemsVector->length == 0) {
            scope.undo(mark);
            return Ref(share<XML_ITEMS>(noItems));
        }
        Ref list(place.create<XML_ITEMS>(sorts.items));
        list->itemsVector = place.vector(plain->itemsVector->length);
        open.push_back({{plain->itemsVector, list->itemsVector, mark}, pendingDefault});
        return list;
    }

    void content() {
        while (!open.empty()) {
            const Open list = open.back();
            if (list.atEnd()) {
                scope.undo(list.mark);
                open.pop_back();
            } else {
                item(reinterpret_cast<XML_NS_ITEM *>(list.next()), list.to);
            }
        }
    }

    void item(XML_NS_ITEM *plain, voVector *to) {
        voObj *node = plain->type == XML_ITEM_TYPE_ELEMENT
                          ? vo::obj(element(reinterpret_cast<XML_NS_ELEMENT *>(plain->value)))
                          : retained(plain->value);
        auto *made = place.create<XML_ITEM>(sorts.item);
        made->type = plain->type;
        made->value = node;
        place.push(to, made);
    }

    /// The element without its content, which is left to do.
    XML_ELEMENT *element(XML_NS_ELEMENT *el) {
        const size_t mark = scope.mark();
        declare(el->namespaceMap);
        Mapping *cancelled = el->ns ? nullptr : cancelDefault();
        auto *made = place.create<XML_ELEMENT>(sorts.element);
        made->name = elementName(el).take();
        made->attributes = attributes(el->attributes).take();
        made->location = nullptr;
        made->items = items(el->items, mark, cancelled).take();
        return made;
    }

    /// Binds what an element declares: what is pending where it stands, but for the prefixes in
    /// its own map, and that map.
    void declare(XML_NS_NAMESPACE_MAP *optionalOwn) {
        declarations.clear();
        for (Mapping *mapping : pending())
            if (!optionalOwn || !xml::findMapping(optionalOwn, mapping->prefix))
                declarations.push_back(mapping);
        if (optionalOwn) append(declarations, mappingsOf(optionalOwn));
        scope.bindAll(declarations);
    }

    Mappings pending() const {
        if (open.size() == 1) return topDeclarations;
        Mapping *const &mapping = open.back().pendingDefault;
        return {&mapping, mapping ? size_t{1} : size_t{0}};
    }

    /// Makes sure that no default namespace is in force. Returns what bound one, or null.
    Mapping *cancelDefault() {
        Mapping *cancelled = scope.forDefault().state.mapping;
        if (!cancelled->ns) return nullptr;
        std::erase_if(declarations, [](const Mapping *mapping) { return !mapping->prefix; });
        declarations.push_back(noDefault);
        scope.bind(noDefault);
        return cancelled;
    }

    Ref<voString> elementName(XML_NS_ELEMENT *el) {
        if (!el->ns) return Ref(retained(el->localName));
        const Binding *binding = scope.named(el->ns).first();
        const Mapping *mapping = binding ? binding->state.mapping : nullptr;
        if (!mapping && isXml(el->ns)) return qualified(xmlPrefix, el->localName);
        VO_ASSERT(mapping);
        if (!mapping->prefix) return Ref(retained(el->localName));
        return qualified(mapping->prefix, el->localName);
    }

    Ref<voString> attributeName(XML_NS_ATTRIBUTE *attr) {
        if (!attr->ns) return Ref(retained(attr->localName));
        const Binding *binding = scope.named(attr->ns).firstPrefixed();
        voString *nsPrefix = binding ? binding->state.mapping->prefix : nullptr;
        if (!nsPrefix && isXml(attr->ns)) nsPrefix = xmlPrefix;
        VO_ASSERT(nsPrefix);
        return qualified(nsPrefix, attr->localName);
    }

    bool isXml(voString *ns) { return &scope.named(ns) == xmlNamespace; }

    Ref<voString> qualified(voString *prefix, voString *local) {
        Joined &known = names.at(prefix, local);
        if (known.prefix != prefix || known.local != local)
            known = {prefix, local, join(prefix, local)};
        return Ref(retained<voString>(known.name));
    }

    /// The attributes and, behind them, the declarations.
    Ref<XML_ATTRIBUTES> attributes(XML_NS_ATTRIBUTES *plain) {
        const int64_t count = plain->vector->length + std::ssize(declarations);
        if (count == 0) return Ref(share<XML_ATTRIBUTES>(noAttributes));
        Ref list(place.create<XML_ATTRIBUTES>(sorts.attributes));
        list->vector = place.vector(count);
        bool clash = false;
        for (XML_NS_ATTRIBUTE *attr : objectsIn<XML_NS_ATTRIBUTE>(plain->vector)) {
            Ref name = attributeName(attr);
            clash |= mayClash(name);
            place.push(list->vector, attribute(std::move(name), retained(attr->text)));
        }
        for (const Mapping *mapping : declarations)
            place.push(list->vector, declaration(mapping));
        if (clash) xmlAttributesSetVector(list.edit(), Ref(retained(list->vector)));
        return list;
    }

    /// Whether an attribute's name may come twice. Prefixes and namespaces go together one to one
    /// in an element, so names are as different as before, unless a map binds "xml" or the name is
    /// one that declarations have.
    static bool mayClash(voString *name) {
        static constexpr uint32_t xml[] = {'x', 'm', 'l'};
        return name->length > 3 && std::equal(xml, xml + 3, name->items());
    }

    XML_ATTRIBUTE *attribute(Ref<voString> name, XML_TEXT *adoptedText) {
        auto *made = place.create<XML_ATTRIBUTE>(sorts.attribute);
        made->name = name.take();
        made->text = adoptedText;
        made->location = nullptr;
        return made;
    }

    XML_ATTRIBUTE *declaration(const Mapping *mapping) {
        Ref name = mapping->prefix ? qualified(xmlnsPrefix, mapping->prefix)
                                   : Ref(retained<voString>(xmlnsPrefix));
        return attribute(std::move(name),
                         mapping->ns ? xmlTextCreateEscape(mapping->ns) : xmlTextCreate());
    }

    static void append(vo::Vec<Mapping *> &to, Mappings added) {
        to.insert(to.end(), added.begin(), added.end());
    }

    /// A name that was joined lately.
    struct Joined {
        voString *prefix = nullptr;
        voString *local = nullptr;
        Ref<voString> name;
    };

    /// Looked up once: each sort is behind a call into a library.
    struct Sorts {
        voSort *item = xmlItemSort(), *items = xmlItemsSort(), *element = xmlElementSort(),
               *attribute = xmlAttributeSort(), *attributes = xmlAttributesSort();
    };

    Sorts sorts;
    xml::VectorPlacer place;
    Ref<XML_ATTRIBUTES> noAttributes{place.create<XML_ATTRIBUTES>(sorts.attributes)};
    Ref<XML_ITEMS> noItems{place.create<XML_ITEMS>(sorts.items)};
    Ref<voString> xmlPrefix{xml___NsBuiltinNamespacesXmlPrefix()};
    Ref<voString> xmlnsPrefix{xml___NsBuiltinNamespacesXmlnsPrefix()};
    Ref<Mapping> noDefault{xmlNsNamespaceMappingCreate()};
    NamedScope scope;
    Namespace *const xmlNamespace = &scope.ns(Ref(xml___NsBuiltinNamespacesXmlNamespace()));
    xml::Recent<Joined> names;
    vo::Vec<Open> open;
    vo::Vec<Mapping *> topDeclarations; ///< For every element at the top.
    vo::Vec<Ref<Mapping>> generated;    ///< Those of them that were made here.
    vo::Vec<Mapping *> declarations;    ///< Of the element at hand.
};

} // namespace

XML_DOCUMENT *xml___NsDocumentEncode(XML_NS_DOCUMENT *doc,
                                     XML_NS_NAMESPACE_MAP *optionalEffectiveNamespaceMap,
                                     XML_NS_NAMESPACE_MAP *optionalRootNamespaceMap) {
    VO_ASSERT(doc);
    return Encoder().run(doc, optionalEffectiveNamespaceMap, optionalRootNamespaceMap);
}

XML_DOCUMENT *xmlNsDocumentEncode(XML_NS_DOCUMENT *doc) {
    return xml___NsDocumentEncode(doc, nullptr, nullptr);
}
