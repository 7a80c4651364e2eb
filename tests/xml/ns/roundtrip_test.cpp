#include "source/xml/ns/xml_ns_document_encode.hpp"
#include "tests/xml/codec.hpp"

#include <algorithm>
#include <random>
#include <set>

using namespace test;

namespace {

using Map = Ref<XML_NS_NAMESPACE_MAP>;

const std::string xmlNamespace = "http://www.w3.org/XML/1998/namespace";

/// Random trees in the notation.
class Trees {
  public:
    /// With `spoiled`, names and maps also use "xml" and "xmlns" in ways that encoding cannot keep:
    /// "xml" bound to another namespace, attributes called xmlns or with the prefix xmlns.
    std::string next(bool spoiled) {
        spoil = spoiled;
        left = 1 + below(8);
        std::string all;
        while (left > 0)
            all += node(0) + " ";
        return all;
    }

  private:
    int below(int end) { return int(random() % unsigned(end)); }
    bool once(int times) { return below(times) == 0; }
    std::string any(std::initializer_list<std::string> words) {
        return words.begin()[below(int(words.size()))];
    }

    std::string ns() { return any({"u", "u", "v", "v", "w", "x&y", xmlNamespace}); }
    std::string name() { return (once(3) ? "" : ns() + ":") + any({"a", "b", "c", "d"}); }
    std::string prefix() {
        if (spoil && once(6)) return any({"xml", "xmlns"});
        return once(3)   ? ""
               : once(8) ? std::string(1, char('a' + below(26)))
                         : any({"a", "p", "q"});
    }

    std::string node(int depth) {
        --left;
        if (depth && once(4)) return any({"'text'", "!c", "?pi", "#cdata"});
        std::string all = "(" + name();
        for (int i = below(4); once(2) && i > 0; --i)
            all += " +" + prefix() + "=" + (once(4) ? "" : ns());
        if (once(100))
            for (char letter = 'a'; letter <= 'z'; ++letter)
                all += std::string(" +") + letter + "=" + any({"u", "v", "w", "z"});
        for (int i = below(4); once(2) && i > 0; --i)
            all += " @" + (spoil && once(6) ? "xmlns" : name()) + "=" + std::to_string(below(9));
        for (int i = below(4); depth < 6 && left > 0 && i > 0; --i)
            all += " " + node(depth + 1);
        return all + ")";
    }

    std::mt19937 random{20240229};
    bool spoil = false;
    int left = 0;
};

/// The encoder step by step, with maps and recursion: slow, and right by being obvious.
class LiteralEncoder {
  public:
    std::string run(XML_NS_DOCUMENT *document) {
        Ref items(xmlNsDocumentItems(document));
        Map around = map("=");
        gather(items, around);
        Map generated(xmlNsNamespaceMapCreate());
        int number = 0;
        for (const std::string &ns : namespaces) {
            std::string prefix;
            do
                prefix = letters(number++);
            while (prefixes.contains(prefix) || prefix == "xml" || prefix == "xmlns");
            xmlNsNamespaceMapAppendMapping(generated.edit(), mapping(prefix + "=" + ns));
        }
        Ref plain(xmlDocumentCreate());
        xmlDocumentSetItems(plain.edit(), convert(items, around, generated));
        return xmlOf(plain);
    }

  private:
    static std::string letters(int number) {
        const std::string last(1, char('a' + number % 26));
        return number < 26 ? last : letters(number / 26) + last;
    }
    static Map joined(XML_NS_NAMESPACE_MAP *map, XML_NS_NAMESPACE_MAP *added) {
        Map sum(xmlNsNamespaceMapCreateFrom(map));
        xmlNsNamespaceMapAppend(sum.edit(), added);
        return sum;
    }
    void need(voString *ns) {
        if (xml___NsBuiltinNamespacesIsXmlNamespace(ns)) return;
        if (std::ranges::find(namespaces, text(ns)) == namespaces.end())
            namespaces.push_back(text(ns));
    }

    void gather(XML_NS_ITEMS *items, XML_NS_NAMESPACE_MAP *around) {
        for (int64_t i = 0; i < xmlNsItemsLength(items); ++i) {
            Ref el(xmlNsItemsItemElementAt(items, i));
            if (!el) continue;
            Map scope(xmlNsNamespaceMapRetain(around));
            if (Map own(xmlNsElementNamespaceMap(el)); own) {
                scope = joined(scope, own);
                for (int64_t j = 0; j < xmlNsNamespaceMapLength(own); ++j)
                    if (Ref prefix(
                            xmlNsNamespaceMappingPrefix(Ref(xmlNsNamespaceMapMappingAt(own, j))));
                        prefix)
                        prefixes.insert(text(prefix));
            }
            if (Ref ns(xmlNsElementNamespace(el));
                ns && !xmlNsNamespaceMapHasMappingForNamespace(scope, ns))
                need(ns);
            for (int64_t j = 0; j < xmlNsElementAttributesLength(el); ++j)
                if (Ref ns(xmlNsElementAttributeNamespaceAt(el, j));
                    ns && !xmlNsNamespaceMapHasPrefixMappingForNamespace(scope, ns))
                    need(ns);
            gather(Ref(xmlNsElementItems(el)), scope);
        }
    }

    Ref<XML_ITEMS> convert(XML_NS_ITEMS *items, XML_NS_NAMESPACE_MAP *around,
                           XML_NS_NAMESPACE_MAP *pending) {
        Ref made(xmlItemsCreate());
        for (int64_t i = 0; i < xmlNsItemsLength(items); ++i) {
            Ref item(xmlNsItemsItemAt(items, i));
            if (Ref el(xmlNsItemElement(item)); el)
                xmlItemsAppendItemElement(made.edit(), element(el, around, pending));
            else if (Ref text(xmlNsItemText(item)); text)
                xmlItemsAppendItemText(made.edit(), text);
            else if (Ref comment(xmlNsItemComment(item)); comment)
                xmlItemsAppendItemComment(made.edit(), comment);
            else if (Ref cdata(xmlNsItemCdata(item)); cdata)
                xmlItemsAppendItemCdata(made.edit(), cdata);
            else
                xmlItemsAppendItemProcessingInstruction(made.edit(),
                                                        Ref(xmlNsItemProcessingInstruction(item)));
        }
        return made;
    }

    static Ref<voString> qualified(XML_NS_NAMESPACE_MAPPING *optionalMapping, voString *local) {
        Ref prefix(optionalMapping ? xmlNsNamespaceMappingPrefix(optionalMapping)
                                   : xml___NsBuiltinNamespacesXmlPrefix());
        return str((prefix ? text(prefix) + ":" : "") + text(local));
    }

    Ref<XML_ELEMENT> element(XML_NS_ELEMENT *el, XML_NS_NAMESPACE_MAP *around,
                             XML_NS_NAMESPACE_MAP *pending) {
        Map declared(xmlNsElementNamespaceMap(el)), scope(xmlNsNamespaceMapRetain(around)), below;
        if (pending)
            declared = declared ? joined(pending, declared) : Map(xmlNsNamespaceMapRetain(pending));
        if (declared) scope = joined(scope, declared);

        Ref local(xmlNsElementLocalName(el)), ns(xmlNsElementNamespace(el));
        Ref name(voStringRetain(local));
        if (ns) {
            name = qualified(Ref(xmlNsNamespaceMapMappingForNamespace(scope, ns)), local);
        } else if (Ref bound(xmlNsNamespaceMapMappingForDefault(scope));
                   xmlNsNamespaceMappingHasNamespace(bound)) {
            below = Map(xmlNsNamespaceMapCreate());
            xmlNsNamespaceMapAppendMapping(below.edit(), bound);
            if (!declared) declared = Map(xmlNsNamespaceMapCreate());
            xmlNsNamespaceMapAppendMapping(scope.edit(), mapping("="));
            xmlNsNamespaceMapAppendMapping(declared.edit(), mapping("="));
        }
        Ref made(xmlElementCreate(name));
        attributes(made, el, scope);
        if (declared) declarations(made, declared);
        xmlElementSetItems(made.edit(), convert(Ref(xmlNsElementItems(el)), scope, below));
        return made;
    }

    static void attributes(Ref<XML_ELEMENT> &made, XML_NS_ELEMENT *el,
                           XML_NS_NAMESPACE_MAP *scope) {
        for (int64_t i = 0; i < xmlNsElementAttributesLength(el); ++i) {
            Ref local(xmlNsElementAttributeLocalNameAt(el, i));
            Ref ns(xmlNsElementAttributeNamespaceAt(el, i));
            Ref name(voStringRetain(local));
            if (ns)
                name = qualified(Ref(xmlNsNamespaceMapPrefixMappingForNamespace(scope, ns)), local);
            xmlElementAppendAttributeNameText(made.edit(), name,
                                              Ref(xmlNsElementAttributeTextAt(el, i)));
        }
    }
    static void declarations(Ref<XML_ELEMENT> &made, XML_NS_NAMESPACE_MAP *declared) {
        for (int64_t i = 0; i < xmlNsNamespaceMapLength(declared); ++i) {
            const std::string mapping = taken(xmlNsNamespaceMapMappingAt(declared, i));
            const size_t equals = mapping.find('=');
            xmlElementAppendAttributeNameTextEscape(
                made.edit(), str("xmlns" + (equals ? ":" + mapping.substr(0, equals) : "")),
                str(mapping.substr(equals + 1)));
        }
    }

    std::set<std::string> prefixes;
    std::vector<std::string> namespaces;
};

TEST(NsRoundTrip, EveryTreeWithOrdinaryPrefixesComesBack) {
    Trees trees;
    for (int i = 0; i < 20000; ++i) {
        Ref document = tree(trees.next(false));
        Ref encoded(xmlNsDocumentEncode(document));
        const auto decoded = nsDecode(encoded).document;
        ASSERT_TRUE(decoded) << xmlOf(encoded);
        ASSERT_EQ(describe(decoded, Declarations::leftOut),
                  describe(document, Declarations::leftOut));
    }
}

TEST(NsRoundTrip, TheEncoderGivesWhatItsStepsGive) {
    Trees trees;
    for (int i = 0; i < 4000; ++i) {
        Ref document = tree(trees.next(i % 2));
        ASSERT_EQ(xmlOf(Ref(xmlNsDocumentEncode(document))), LiteralEncoder().run(document))
            << describe(document);
    }
}

TEST(NsRoundTrip, DeclarationsStayOnTheirElements) {
    for (auto xml : {"<a b=\"1\" xmlns=\"u\" xmlns:p=\"v\"><p:c p:d=\"2\" xmlns:q=\"w\"/></a>",
                     "<a><b xmlns:p=\"\"/><c xmlns=\"\"/><!--d--> </a>",
                     "<p:a xml:lang=\"de\" xmlns:p=\"u&amp;v\"><p:b/>&amp;<![CDATA[c]]></p:a>"}) {
        const auto document = nsDecode(plain(xml)).document;
        EXPECT_EQ(xmlOf(Ref(xmlNsDocumentEncode(document))), xml);
    }
}

} // namespace
