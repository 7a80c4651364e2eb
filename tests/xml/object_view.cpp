#include "tests/xml/object_view.hpp"

#include "tests/xml/layers.hpp"

#include <unordered_map>
#include <utility>

namespace test {
namespace {

template <class... T> Objects objects(T *...adopted) {
    Objects made;
    made.reserve(sizeof...(adopted));
    (made.emplace_back(vo::obj(adopted)), ...);
    return made;
}

/// A node that is a value and its location.
template <class Node, voString *(*value)(Node *), voParserLocation *(*location)(Node *)>
Parts valueParts(voObj *object) {
    auto *node = reinterpret_cast<Node *>(object);
    return {{}, objects(value(node), location(node)), {}};
}

Parts locationParts(voObj *object) {
    auto *location = voParserLocationFrom(object);
    return {{},
            objects(voParserLocationSource(location)),
            std::to_string(voParserLocationOffset(location)) + " " +
                std::to_string(voParserLocationLine(location)) + ":" +
                std::to_string(voParserLocationColumn(location))};
}

Parts vectorParts(voObj *object) {
    Parts parts;
    for (int64_t i = 0; i < voVectorLength(voVectorFrom(object)); ++i)
        parts.others.emplace_back(voVectorObjAt(voVectorFrom(object), i));
    return parts;
}

Parts mapParts(voObj *object) {
    return {{}, objects(xmlNsNamespaceMapMappingsVector(xmlNsNamespaceMapFrom(object))), {}};
}

Parts mappingParts(voObj *object) {
    auto *mapping = xmlNsNamespaceMappingFrom(object);
    return {objects(xmlNsNamespaceMappingPrefix(mapping), xmlNsNamespaceMappingNamespace(mapping)),
            {},
            {}};
}

// What the two layers name differently, and what only one of them has.
Objects namesOf(XML_ELEMENT *el) { return objects(xmlElementName(el)); }
Objects namesOf(XML_ATTRIBUTE *attr) { return objects(xmlAttributeName(attr)); }
Objects namesOf(XML_NS_ELEMENT *el) {
    return objects(xmlNsElementLocalName(el), xmlNsElementNamespace(el));
}
Objects namesOf(XML_NS_ATTRIBUTE *attr) {
    return objects(xmlNsAttributeLocalName(attr), xmlNsAttributeNamespace(attr));
}
XML_NS_NAMESPACE_MAP *mapOf(XML_ELEMENT *) { return nullptr; }
XML_NS_NAMESPACE_MAP *mapOf(XML_NS_ELEMENT *el) { return xmlNsElementNamespaceMap(el); }

/// The types of one layer's tree.
template <class Layer> struct LayerParts {
    static Parts item(voObj *object) {
        auto *item = reinterpret_cast<typename Layer::Item *>(object);
        return {{},
                objects(Layer::itemElement(item), Layer::itemText(item), Layer::itemComment(item),
                        Layer::itemCdata(item), Layer::itemInstruction(item)),
                std::to_string(Layer::itemType(item))};
    }
    static Parts element(voObj *object) {
        auto *el = reinterpret_cast<typename Layer::Element *>(object);
        return {namesOf(el),
                objects(Layer::elementItems(el), Layer::elementAttributes(el),
                        Layer::elementLocation(el), mapOf(el)),
                {}};
    }
    static Parts items(voObj *object) {
        auto *list = reinterpret_cast<typename Layer::Items *>(object);
        return {{}, objects(Layer::itemsVector(list)), {}};
    }
    static Parts attributes(voObj *object) {
        auto *list = reinterpret_cast<typename Layer::Attributes *>(object);
        return {{}, objects(Layer::attributesVector(list)), {}};
    }
    static Parts attribute(voObj *object) {
        auto *attr = reinterpret_cast<typename Layer::Attribute *>(object);
        return {
            namesOf(attr), objects(Layer::attributeText(attr), Layer::attributeLocation(attr)), {}};
    }
    static Parts document(voObj *object) {
        auto *doc = reinterpret_cast<typename Layer::Document *>(object);
        return {
            {},
            objects(Layer::documentItems(doc), Layer::version(doc), Layer::documentLocation(doc)),
            std::to_string(Layer::charset(doc)) + " " + std::to_string(Layer::standalone(doc))};
    }
};

using PartsBySort = std::unordered_map<voSort *, Parts (*)(voObj *)>;

template <class Layer> void addLayer(PartsBySort &rows) {
    rows[Layer::itemSort()] = LayerParts<Layer>::item;
    rows[Layer::elementSort()] = LayerParts<Layer>::element;
    rows[Layer::itemsSort()] = LayerParts<Layer>::items;
    rows[Layer::attributesSort()] = LayerParts<Layer>::attributes;
    rows[Layer::attributeSort()] = LayerParts<Layer>::attribute;
    rows[Layer::documentSort()] = LayerParts<Layer>::document;
}

PartsBySort allTypes() {
    PartsBySort rows = {
        {xmlTextSort(), valueParts<XML_TEXT, xmlTextValue, xmlTextLocation>},
        {xmlCommentSort(), valueParts<XML_COMMENT, xmlCommentValue, xmlCommentLocation>},
        {xmlCdataSort(), valueParts<XML_CDATA, xmlCdataValue, xmlCdataLocation>},
        {xmlProcessingInstructionSort(),
         valueParts<XML_PROCESSING_INSTRUCTION, xmlProcessingInstructionValue,
                    xmlProcessingInstructionLocation>},
        {voStringSort(),
         [](voObj *object) -> Parts {
             return {{}, {}, text(voStringFrom(object))};
         }},
        {voParserLocationSort(), locationParts},
        {voVectorSort(), vectorParts},
        {xmlNsNamespaceMapSort(), mapParts},
        {xmlNsNamespaceMappingSort(), mappingParts},
    };
    addLayer<Plain>(rows);
    addLayer<Namespaced>(rows);
    return rows;
}

class View {
  public:
    View(const Objects &seenFrom, Names countedNames) : roots(seenFrom), names(countedNames) {}

    std::string text() {
        for (pass = 1; pass <= 2; ++pass)
            for (const auto &root : roots)
                add(root);
        return std::move(out);
    }

  private:
    void add(voObj *object) {
        if (!object) return void(out += "- ");
        const auto [place, isNew] = seen.try_emplace(object, Seen{kept.size(), 0});
        if (isNew) kept.emplace_back(vo::retained(object));
        out += std::to_string(place->second.number);
        if (std::exchange(place->second.pass, pass) == pass) return void(out += " again ");
        const Parts parts = partsOf(object);
        ((((out += ' ') += vo::sortOf(object)->name) += ' ') += parts.value) += '\n';
        for (const auto &name : parts.names)
            if (names == Names::objects)
                add(name);
            else
                (out += test::text(voStringFrom(name))) += ' ';
        for (const auto &part : parts.others)
            add(part);
    }

    const Objects &roots;
    Names names;
    struct Seen {
        size_t number;
        int pass; ///< In which it was shown last.
    };
    std::unordered_map<voObj *, Seen> seen;
    int pass = 0;
    Objects kept; ///< Everything, so that no other object gets its address.
    std::string out;
};

} // namespace

Parts partsOf(voObj *object) {
    static const PartsBySort bySort = allTypes();
    return bySort.at(vo::sortOf(object))(object);
}

std::string viewOf(const Objects &roots, Names names) { return View(roots, names).text(); }

} // namespace test
