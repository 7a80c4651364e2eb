#include "source/xml/ns/xml_ns_walk.hpp"

namespace xml {

XML_TEXT *NsRecordedElement::createText(size_t i) const {
    return xmlTextCreateValue(vo::Ref(createString(value(i))));
}

vo::Ref<XML_NS_NAMESPACE_MAP> NsRecordedElement::declared() const {
    vo::Ref<XML_NS_NAMESPACE_MAP> map;
    for (size_t i = 0, count = attributes(); i < count; ++i) {
        const NsNumber ns = numbers()[i];
        if (isNsAttribute(ns) || ns == nsDisplaced) continue;
        if (!map) map = vo::Ref(xmlNsNamespaceMapCreate());
        vo::Ref mapping(xmlNsNamespaceMappingCreate());
        const bool isDefault = outline().names[attribute(i).name].size() == 5; // xmlns
        if (!isDefault)
            xmlNsNamespaceMappingSetPrefix(mapping.edit(), vo::Ref(createString(local(i))));
        if (voString *name = namespaceOf(ns & ~nsDeclares))
            xmlNsNamespaceMappingSetNamespace(mapping.edit(), name);
        xmlNsNamespaceMapAppendMapping(map.edit(), mapping);
    }
    return map;
}

} // namespace xml
