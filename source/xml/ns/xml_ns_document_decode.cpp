#include "xml/xml_ns_document_decode.h"

#include "source/vo/vo_string_key.hpp"
#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_document.hpp"
#include "source/xml/ns/xml_ns_document.hpp"
#include "source/xml/ns/xml_ns_names.hpp"
#include "source/xml/ns/xml_ns_objects.hpp"
#include "source/xml/outline/xml_outline_objects.hpp"
#include "xml/xml_ns_value.h"

#include <algorithm>

using vo::Ref;
using vo::retained;
using xml::NsName;
using xml::NsNumber;
using xml::NsOutline;
using xml::Outline;

namespace {

using Code = XML_NS_DECODE_ERROR_CODE;

std::span<const uint32_t> charsOf(voString *string) {
    return {string->items(), size_t(string->length)};
}

using Names = vo::InlineVector<const NsName *, 32>;

/// What is known about an outline whose names are being resolved.
struct Source {
    const Outline *key = nullptr;
    vo::Vec<NsName> names; ///< By their numbers; each is taken apart when it is first asked for.
    Ref<NsOutline> part;   ///< The latest one; the records that come next are added to it.
};

/// Resolves the names of one document. A step gives null or false after the first failure, which
/// `failure` then holds.
///
/// An object of the plain tree becomes an object here. Where the plain tree has only records of an
/// outline, names are resolved from these, and the objects here are left to be made on demand too.
class Decoder {
  public:
    XML_NS_DECODE_RESULT *run(XML_DOCUMENT *doc) {
        Ref list = items(xml::itemsOf(doc), prefixes.mark());
        if (!list || !content()) return xmlNsDecodeResultCreateError(failure);
        Ref document(vo::create<XML_NS_DOCUMENT>(xmlNsDocumentSort()));
        document->version.set(doc->version.get());
        document->charset = doc->charset;
        document->standalone = doc->standalone;
        document->location = retained(doc->location);
        document->items = list.take();
        return xmlNsDecodeResultCreate(document);
    }

  private:
    // ---------------------------------------------------------------- objects

    /// A list for the items. If the plain list is made, its items are converted later, by
    /// content().
    Ref<XML_NS_ITEMS> items(XML_ITEMS *plain, size_t mark) {
        if (Ref outline = plain->itemsVector.holdPending(); outline) {
            NsOutline *part = records(outline, outline->firstIn(plain->element),
                                      outline->behindContent(plain->element));
            prefixes.undo(mark);
            return Ref(part ? xml::createPendingItems(plain, plain->element, retained(part))
                            : nullptr);
        }
        voVector *from = xml::vectorOf(plain);
        Ref list(factory().list(from->length));
        if (from->length)
            open.push_back({from, xml::vectorOf<XML_NS_ITEMS>(list), mark});
        else
            prefixes.undo(mark);
        return list;
    }

    /// Converts the items that were left to it. Open elements wait on a stack, so that depth costs
    /// memory and never the call stack.
    [[nodiscard]] bool content() {
        while (!open.empty()) {
            const xml::OpenList list = open.back();
            if (list.atEnd()) {
                prefixes.undo(list.mark);
                open.pop_back();
                continue;
            }
            XML_NS_ITEM *made = item(reinterpret_cast<XML_ITEM *>(list.next()));
            if (!made) return false;
            xml::VectorPlacer::push(list.to, made);
        }
        return true;
    }

    XML_NS_ITEM *item(XML_ITEM *plain) {
        if (Ref outline = plain->value.holdPending(); outline) {
            const uint64_t number = plain->number();
            NsOutline *part = records(outline, number, outline->behind(number));
            return part ? factory().pendingItem(plain, number, retained(part)) : nullptr;
        }
        voObj *node = xml::nodeOf(plain);
        if (plain->type() != XML_ITEM_TYPE_ELEMENT)
            return factory().item(plain->type(), retained(node));
        XML_NS_ELEMENT *made = element(reinterpret_cast<XML_ELEMENT *>(node));
        return made ? factory().item(plain->type(), vo::obj(made)) : nullptr;
    }

    /// The element. If the plain list of its items is made, they are converted later, by content().
    XML_NS_ELEMENT *element(XML_ELEMENT *plain) {
        const size_t mark = prefixes.mark();
        numbers.resize(size_t(plain->attributes->vector->length) + 1);
        if (!resolve(Object{*this, plain}, numbers.data())) return nullptr;
        Ref made(factory().element(plain, numbers.data()));
        made->items = items(plain->items, mark).take();
        return made->items ? made.take() : nullptr;
    }

    /// An element of the plain tree, as resolve() sees it.
    struct Object {
        Decoder &decoder;
        XML_ELEMENT *element;

        XML_ATTRIBUTE *at(size_t i) const {
            return reinterpret_cast<XML_ATTRIBUTE *>(element->attributes->vector->items()[i]);
        }
        const NsName &name() const { return decoder.takeApart(element->name); }
        void listAttributes(Names &list) const {
            for (XML_ATTRIBUTE *attr : xml::objectsIn<XML_ATTRIBUTE>(element->attributes->vector))
                list.push(&decoder.takeApart(attr->name));
        }
        Ref<voString> value(size_t i) const {
            Ref unescaped(xmlTextTryUnescape(at(i)->text));
            return unescaped ? Ref(voStringCreateFrom(unescaped)) : Ref<voString>();
        }
        Ref<voParserLocation> location() const { return Ref(retained(element->location)); }
        Ref<voParserLocation> location(size_t i) const { return Ref(retained(at(i)->location)); }
    };

    /// A name whose string is an object, which the document keeps alive.
    struct Known {
        voString *whole = nullptr;
        NsName name;
    };

    const NsName &takeApart(voString *whole) {
        const uint64_t hash = vo::hashBytes(&whole, sizeof(whole));
        const auto isWanted = [&](const Known &name) { return name.whole == whole; };
        if (const Known *found = knownNames.find(hash, isWanted)) return found->name;
        Known &added = knownNames.add(hash);
        added = {whole, prefixes.takeApart(charsOf(whole))};
        return added.name;
    }

    // ---------------------------------------------------------------- records

    /// Resolves the names of the records from `begin` up to `end`, which must be whole nodes. Gives
    /// the namespace outline that holds the result, borrowed.
    NsOutline *records(Outline *outline, uint64_t begin, uint64_t end) {
        Source &source = sourceOf(outline);
        NsOutline *part = partFor(source, outline, begin, end);
        const size_t outer = prefixes.mark();
        for (uint64_t number = begin; number < end;) {
            while (levels.size() && levels.back().end <= number)
                leave();
            const xml::Node node = outline->node(number);
            if (node.kind != XML_ITEM_TYPE_ELEMENT) {
                ++number;
                continue;
            }
            NsNumber *const to = &part->numbers[number - part->first];
            if (resolveSimple(source.names[node.name],
                              number + 1 == end ||
                                  outline->node(number + 1).kind != xml::attributeKind,
                              *to)) {
                ++number;
                continue;
            }
            const size_t mark = prefixes.mark();
            const Recorded element{*this, source, *outline, number, node};
            if (!resolve(element, to)) return nullptr;
            if (prefixes.mark() > mark) levels.push({node.end, mark});
            number += 1 + names.size();
        }
        levels.resize(0);
        prefixes.undo(outer);
        return part;
    }

    /// Resolves the name of an element that has no attributes and no prefix, as most have, and
    /// whose name was taken apart before. False when the element is not like that.
    bool resolveSimple(const NsName &name, bool isBare, NsNumber &to) {
        if (!isBare || name.prefix || !name.isValid) return false;
        to = prefixes.forDefault().ns;
        return true;
    }

    void leave() {
        prefixes.undo(levels.back().mark);
        levels.pop();
    }

    /// An element of an outline, as resolve() sees it.
    struct Recorded {
        Decoder &decoder;
        Source &source;
        Outline &outline;
        uint64_t number;
        xml::Node element;

        xml::Node at(size_t i) const { return outline.node(number + 1 + i); }
        const NsName &name() const { return named(element.name); }
        void listAttributes(Names &list) const {
            for (uint64_t next = number + 1; next < element.end; ++next) {
                const xml::Node node = outline.node(next);
                if (node.kind != xml::attributeKind) return;
                list.push(&named(node.name));
            }
        }
        const NsName &named(uint64_t name) const {
            NsName &parts = source.names[name];
            if (!parts.isKnown) parts = decoder.prefixes.takeApart(bytesOf(outline.names[name]));
            return parts;
        }
        static std::span<const uint8_t> bytesOf(xml::Piece piece) {
            return {piece.begin, piece.end};
        }
        Ref<voString> value(size_t i) const {
            const std::string_view value = outline.valueOf(at(i)).bytes();
            Ref string(xml::createString(outline.valueOf(at(i))));
            if (value.find('&') == value.npos) return string;
            return Ref(xmlTextTryUnescape(Ref(xmlTextCreateValue(string))));
        }
        Ref<voParserLocation> location() const { return locate(element); }
        Ref<voParserLocation> location(size_t i) const { return locate(at(i)); }
        Ref<voParserLocation> locate(const xml::Node &node) const {
            if (!outline.locator) return {};
            std::lock_guard lock(xml::makingLock(&outline));
            return Ref(outline.locator->locate(outline.at(Outline::placeOf(node))));
        }
    };

    Source &sourceOf(const Outline *outline) {
        if (first.key == outline) return first;
        if (!first.key) return begin(first, outline);
        const uint64_t hash = vo::hashBytes(&outline, sizeof(outline));
        const auto isWanted = [&](const Source &source) { return source.key == outline; };
        if (Source *found = sources.find(hash, isWanted)) return *found;
        return begin(sources.add(hash), outline);
    }

    static Source &begin(Source &source, const Outline *outline) {
        source.key = outline;
        source.names.resize(outline->names.size());
        return source;
    }

    /// The part that takes the numbers for these records. Records mostly come in the order of their
    /// outline, and the latest part grows; one that comes out of order or after a wide gap begins a
    /// part of its own.
    NsOutline *partFor(Source &source, Outline *outline, uint64_t begin, uint64_t end) {
        constexpr uint64_t gap = 1024;
        NsOutline *latest = source.part;
        const uint64_t behind = latest ? latest->first + latest->numbers.size() : 0;
        if (!latest || begin < behind || begin - behind > gap + latest->numbers.size()) {
            source.part = Ref(xml::createNsOutline(outline, shared, begin));
            latest = source.part;
        }
        latest->numbers.resize(end - latest->first);
        return latest;
    }

    // ---------------------------------------------------------------- names

    /// Binds the prefixes that an element declares, and stores the number of its namespace in
    /// `to[0]` and those of its attributes behind it.
    template <class Element> [[nodiscard]] bool resolve(const Element &element, NsNumber *to) {
        names.resize(0);
        element.listAttributes(names);
        size_t declared = 0, prefixed = 0;
        for (size_t i = 0; i < names.size(); ++i) {
            declared += names[i]->declares;
            prefixed += names[i]->prefix != nullptr;
        }
        if (declared && !declareAll(element, to + 1)) return false;
        const NsName &name = element.name();
        if (!resolve(name, prefixes.forDefault().ns, to[0]))
            return fail(codeOf(name), element.location());
        for (size_t i = 0; i < names.size(); ++i)
            if (!names[i]->declares && !resolve(*names[i], 0, to[1 + i]))
                return fail(codeOf(*names[i]), element.location(i));
        // Without a prefix, names that were different stay different: no need to look for
        // duplicates.
        if (prefixed && names.size() - declared > 1) displace(to + 1);
        return true;
    }

    template <class Element> bool declareAll(const Element &element, NsNumber *to) {
        for (size_t i = 0; i < names.size(); ++i)
            if (names[i]->declares && !declare(element, i, to[i])) return false;
        return true;
    }

    /// Gives the namespace of a name; that of a name without a prefix is `unprefixed`.
    static bool resolve(const NsName &name, NsNumber unprefixed, NsNumber &to) {
        to = name.prefix ? name.prefix->ns : unprefixed;
        return name.isValid && (!name.prefix || name.prefix->isBound);
    }

    static Code codeOf(const NsName &name) {
        return name.isValid ? Code{XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX_UNKNOWN} : name.error;
    }

    template <class Element> bool declare(const Element &element, size_t i, NsNumber &to) {
        const NsName &name = *names[i];
        if (!name.isValid)
            return fail(XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX, element.location(i));
        Ref<voString> ns = element.value(i);
        if (!ns || (ns->length > 0 && !xmlNsValueNamespaceOk(ns)))
            return fail(XML_NS_DECODE_ERROR_CODE_NAMESPACE, element.location(i));
        VO_ASSERT(shared->namespaces.size() < xml::nsDisplaced);
        const NsNumber number = ns->length > 0 ? NsNumber(shared->namespaces.size()) : 0;
        if (number) shared->namespaces.push_back(std::move(ns));
        to = number | xml::nsDeclares;
        prefixes.bind(name.declared ? name.declared : &prefixes.forDefault(), number);
        return true;
    }

    /// Marks each attribute that has a later duplicate in the same element as displaced by it.
    void displace(NsNumber *to) {
        const auto same = [&](size_t i, size_t j) {
            return names[i]->local == names[j]->local && sameNamespace(to[i], to[j]);
        };
        if (names.size() > 16) return displaceMany(to);
        for (size_t i = 1; i < names.size(); ++i)
            for (size_t j = 0; xml::isNsAttribute(to[i]) && j < i; ++j)
                if (xml::isNsAttribute(to[j]) && same(i, j)) to[j] = xml::nsDisplaced;
    }

    void displaceMany(NsNumber *to) {
        xml::HashTable<size_t> later;
        for (size_t i = names.size(); i-- > 0;) {
            if (!xml::isNsAttribute(to[i])) continue;
            const std::string_view local = names[i]->local;
            voString *ns = shared->namespaces[to[i]];
            const uint64_t hash =
                vo::hashBytes(local.data(), local.size()) * 31 + (ns ? vo::hashText(ns) : 0);
            const auto isSame = [&](size_t other) {
                return names[other]->local == local && sameNamespace(to[other], to[i]);
            };
            if (later.find(hash, isSame))
                to[i] = xml::nsDisplaced;
            else
                later.add(hash) = i;
        }
    }

    bool sameNamespace(NsNumber a, NsNumber b) const {
        return a == b || vo::sameOptionalText(shared->namespaces[a], shared->namespaces[b]);
    }

    bool fail(Code code, const Ref<voParserLocation> &optionalLocation) {
        failure = Ref(xmlNsDecodeErrorCreate(code, optionalLocation));
        return false;
    }

    /// An element of an outline that declares something.
    struct Level {
        uint64_t end;
        size_t mark; ///< What was bound before it.
    };

    xml::NsFactory &factory() { return xml::makerOf(shared); }

    Ref<xml::NsShared> shared{xml::createNsShared()};
    xml::NsPrefixes prefixes;
    vo::Vec<xml::OpenList> open;
    vo::InlineVector<Level, 16> levels;
    vo::Vec<NsNumber> numbers; ///< Of the current element, if it is an object.
    Names names;               ///< Of the attributes of the current element.
    xml::HashTable<Known> knownNames;
    Source first; ///< Most documents have one.
    xml::HashTable<Source> sources;
    Ref<XML_NS_DECODE_ERROR> failure;
};

} // namespace

XML_NS_DECODE_RESULT *xmlNsDocumentTryDecode(XML_DOCUMENT *doc) {
    VO_ASSERT(doc);
    return Decoder().run(doc);
}
