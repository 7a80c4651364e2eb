#include "xml/xml_ns_document_decode.h"

#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_document.hpp"
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
#include "source/xml/ns/xml_ns_skip.hpp"
#include "xml/xml_ns_builtin_namespaces.h"
#include "xml/xml_ns_value.h"

#include <algorithm>
#include <optional>

using vo::Ref;
using vo::retained;
using xml::Binding;
using xml::objectsIn;
using xml::share;

namespace {

using Code = XML_NS_DECODE_ERROR_CODE;
using Chars = std::span<const uint32_t>;
using Attributes = std::span<XML_ATTRIBUTE *>;

/// A name of the plain document taken apart.
struct Name {
    voString *whole = nullptr; ///< Borrowed from the document, which keeps it.
    Ref<voString> local;       ///< Null when the name is not valid.
    Binding *prefix = nullptr; ///< Null when there is none.
    Code error = 0;            ///< Why the name is not valid.
};

Chars charsOf(voString *string) { return {string->items(), size_t(string->length)}; }

bool isNcname(Chars chars) {
    const auto length = int64_t(chars.size());
    return length > 0 && xml___NsSkipNcname(chars.data(), length) == length;
}

Ref<voString> stringOf(Chars chars) {
    return Ref(voStringCreateFromCharsCopy(chars.data(), int64_t(chars.size())));
}

/// Whether an attribute of this name is a declaration: xmlns, or xmlns and a colon.
bool declares(const XML_ATTRIBUTE *attr) {
    static constexpr uint32_t xmlns[] = {'x', 'm', 'l', 'n', 's'};
    const Chars name = charsOf(attr->name);
    return name.size() >= 5 && name[0] == 'x' && std::equal(xmlns, xmlns + 5, name.data()) &&
           (name.size() == 5 || name[5] == ':');
}

/// Whether two of the attributes may have one name. Long lists are not looked at.
bool mayHaveTwins(voVector *attributes) {
    const auto attrs = objectsIn<XML_NS_ATTRIBUTE>(attributes);
    if (attrs.size() > 16) return true;
    for (size_t i = 1; i < attrs.size(); ++i)
        for (size_t j = 0; j < i; ++j)
            if (vo::sameText(attrs[i]->localName, attrs[j]->localName) &&
                vo::sameOptionalText(attrs[i]->ns, attrs[j]->ns))
                return true;
    return false;
}

/// Converts one document. A step gives null, false or nothing after the first failure, which
/// `failure` then holds. Every new object is put into its place in the tree at once.
class Decoder {
  public:
    Decoder() {
        noAttributes->vector = place.vector(0);
        noItems->itemsVector = place.vector(0);
    }

    XML_NS_DECODE_RESULT *run(XML_DOCUMENT *doc) {
        Ref document(xmlNsDocumentCreate());
        xmlNsDocumentSetVersion(document.edit(), doc->version);
        xmlNsDocumentSetCharset(document.edit(), doc->charset);
        xmlNsDocumentSetStandalone(document.edit(), doc->standalone);
        if (doc->location) xmlNsDocumentSetLocation(document.edit(), doc->location);
        xmlNsDocumentSetItems(document.edit(), items(doc->items, scope.mark()));
        if (!content()) return xmlNsDecodeResultCreateError(failure);
        return xmlNsDecodeResultCreate(document);
    }

  private:
    /// A list for the converted items, which are left to do.
    Ref<XML_NS_ITEMS> items(XML_ITEMS *plain, size_t mark) {
        if (plain->itemsVector->length == 0) {
            scope.undo(mark);
            return Ref(share<XML_NS_ITEMS>(noItems));
        }
        Ref list(place.create<XML_NS_ITEMS>(sorts.items));
        list->itemsVector = place.vector(plain->itemsVector->length);
        open.push_back({plain->itemsVector, list->itemsVector, mark});
        return list;
    }

    [[nodiscard]] bool content() {
        while (!open.empty()) {
            const xml::OpenList list = open.back();
            if (list.atEnd()) {
                scope.undo(list.mark);
                open.pop_back();
            } else if (!item(reinterpret_cast<XML_ITEM *>(list.next()), list.to)) {
                return false;
            }
        }
        return true;
    }

    [[nodiscard]] bool item(XML_ITEM *plain, voVector *to) {
        voObj *node = plain->type == XML_ITEM_TYPE_ELEMENT
                          ? vo::obj(element(reinterpret_cast<XML_ELEMENT *>(plain->value)).take())
                          : retained(plain->value);
        if (!node) return false;
        auto *made = place.create<XML_NS_ITEM>(sorts.item);
        made->type = plain->type;
        made->value = node;
        place.push(to, made);
        return true;
    }

    /// The element without its content, which is left to do.
    Ref<XML_NS_ELEMENT> element(XML_ELEMENT *plain) {
        const size_t mark = scope.mark();
        const auto attributes = objectsIn<XML_ATTRIBUTE>(plain->attributes->vector);
        const auto declarations = std::count_if(attributes.begin(), attributes.end(), declares);
        Ref<XML_NS_NAMESPACE_MAP> declared;
        if (declarations) {
            declared = declare(attributes, declarations);
            if (!declared) return {};
        }
        const Name &name = takeApart(plain->name);
        const auto ns = resolve(name, plain->location, scope.forDefault().state.mapping);
        if (!ns) return {};
        Ref localName(retained<voString>(name.local));
        Ref list = ordinary(attributes, declarations);
        if (!list) return {};
        Ref made(place.create<XML_NS_ELEMENT>(sorts.element));
        made->localName = localName.take();
        made->ns = retained(*ns);
        made->attributes = list.take();
        made->namespaceMap = declared.take();
        made->location = retained(plain->location);
        made->items = items(plain->items, mark).take();
        return made;
    }

    /// The map of an element's declarations, which come into force.
    Ref<XML_NS_NAMESPACE_MAP> declare(Attributes attributes, int64_t declarations) {
        Ref map(place.create<XML_NS_NAMESPACE_MAP>(sorts.map));
        map->mappings = place.vector(declarations);
        map->index = nullptr;
        for (XML_ATTRIBUTE *attr : attributes) {
            if (!declares(attr)) continue;
            Ref mapping = declaration(attr);
            if (!mapping) return {};
            scope.bind(mapping);
            place.push(map->mappings, mapping.take());
        }
        xml___NsNamespaceMapBuildCache(map.edit());
        return map;
    }

    Ref<XML_NS_NAMESPACE_MAPPING> declaration(XML_ATTRIBUTE *attr) {
        voString *prefix = nullptr;
        if (attr->name->length > 5) {
            prefix = takeApart(attr->name).local;
            if (!prefix) return fail(XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX, attr->location);
        }
        Ref ns(xmlAttributeTextTryUnescape(attr));
        if (!ns || (ns->length > 0 && !xmlNsValueNamespaceOk(ns)))
            return fail(XML_NS_DECODE_ERROR_CODE_NAMESPACE, attr->location);
        Ref mapping(place.create<XML_NS_NAMESPACE_MAPPING>(sorts.mapping));
        mapping->prefix = retained(prefix);
        mapping->ns = ns->length > 0 ? ns.take() : nullptr;
        return mapping;
    }

    /// The attributes that declare nothing.
    Ref<XML_NS_ATTRIBUTES> ordinary(Attributes attributes, int64_t declarations) {
        const int64_t count = std::ssize(attributes) - declarations;
        if (count == 0) return Ref(share<XML_NS_ATTRIBUTES>(noAttributes));
        Ref list(place.create<XML_NS_ATTRIBUTES>(sorts.attributes));
        list->vector = place.vector(count);
        bool prefixed = false;
        for (XML_ATTRIBUTE *attr : attributes) {
            if (declarations && declares(attr)) continue;
            const Name &name = takeApart(attr->name);
            const auto ns = resolve(name, attr->location, nullptr);
            if (!ns) return {};
            place.push(list->vector, attribute(name, *ns, attr));
            prefixed |= name.prefix != nullptr;
        }
        // Names without a prefix were different before, and they still are.
        if (prefixed && mayHaveTwins(list->vector))
            xmlNsAttributesSetVector(list.edit(), Ref(retained(list->vector)));
        return list;
    }

    XML_NS_ATTRIBUTE *attribute(const Name &name, voString *ns, XML_ATTRIBUTE *plain) {
        auto *made = place.create<XML_NS_ATTRIBUTE>(sorts.attribute);
        made->localName = retained<voString>(name.local);
        made->ns = retained(ns);
        made->text = retained(plain->text);
        made->location = retained(plain->location);
        return made;
    }

    const Name &takeApart(voString *whole) {
        Name &name = names.at(whole);
        if (name.whole != whole) {
            name = {};
            name.whole = whole;
            const Chars chars = charsOf(whole);
            const auto colon = std::find(chars.begin(), chars.end(), ':');
            if (colon == chars.end())
                withoutPrefix(name);
            else
                withPrefix(name, {chars.begin(), colon}, {colon + 1, chars.end()});
        }
        return name;
    }

    static void withoutPrefix(Name &name) {
        if (isNcname(charsOf(name.whole)))
            name.local = Ref(retained(name.whole));
        else
            name.error = XML_NS_DECODE_ERROR_CODE_LOCAL_NAME;
    }

    void withPrefix(Name &name, Chars prefix, Chars local) {
        if (!isNcname(prefix)) {
            name.error = XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX;
        } else if (!isNcname(local)) {
            name.error = XML_NS_DECODE_ERROR_CODE_LOCAL_NAME;
        } else {
            name.local = stringOf(local);
            name.prefix = &scope.at(stringOf(prefix));
        }
    }

    /// The namespace of a name, borrowed, null for none; nothing after a failure. Without a prefix
    /// the name falls under `unprefixed`, if that is not null.
    std::optional<voString *> resolve(const Name &name, voParserLocation *location,
                                      const XML_NS_NAMESPACE_MAPPING *unprefixed) {
        if (!name.local) {
            fail(name.error, location);
            return std::nullopt;
        }
        if (!name.prefix) return unprefixed ? unprefixed->ns : nullptr;
        if (name.prefix == xmlPrefix) return xmlNamespace;
        if (name.prefix->state.mapping) return name.prefix->state.mapping->ns;
        fail(XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX_UNKNOWN, location);
        return std::nullopt;
    }

    /// Records the failure; what it gives back converts to any empty reference.
    struct Nothing {
        template <class T> operator Ref<T>() const { return {}; }
    };
    Nothing fail(Code code, voParserLocation *optionalLocation) {
        failure = Ref(xmlNsDecodeErrorCreate(code, optionalLocation));
        return {};
    }

    /// Looked up once: each sort is behind a call into a library.
    struct Sorts {
        voSort *item = xmlNsItemSort(), *items = xmlNsItemsSort(), *element = xmlNsElementSort(),
               *attribute = xmlNsAttributeSort(), *attributes = xmlNsAttributesSort(),
               *map = xmlNsNamespaceMapSort(), *mapping = xmlNsNamespaceMappingSort();
    };

    Sorts sorts;
    xml::VectorPlacer place;
    Ref<XML_NS_ATTRIBUTES> noAttributes{place.create<XML_NS_ATTRIBUTES>(sorts.attributes)};
    Ref<XML_NS_ITEMS> noItems{place.create<XML_NS_ITEMS>(sorts.items)};
    vo::Vec<xml::OpenList> open;
    xml::Scope scope;
    Binding *const xmlPrefix = &scope.at(Ref(xml___NsBuiltinNamespacesXmlPrefix()));
    Ref<voString> xmlNamespace{xml___NsBuiltinNamespacesXmlNamespace()};
    xml::Recent<Name> names;
    Ref<XML_NS_DECODE_ERROR> failure;
};

} // namespace

XML_NS_DECODE_RESULT *xmlNsDocumentTryDecode(XML_DOCUMENT *doc) {
    VO_ASSERT(doc);
    return Decoder().run(doc);
}
