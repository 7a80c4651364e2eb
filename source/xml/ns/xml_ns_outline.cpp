#include "source/xml/ns/xml_ns_outline.hpp"

#include "source/xml/base/xml_module.hpp"
#include "source/xml/ns/xml_ns_objects.hpp"
#include "xml/xml_ns_builtin_namespaces.h"

#include <new>

namespace xml {
namespace {

void freeShared(voObj *obj) {
    auto *shared = reinterpret_cast<NsShared *>(obj);
    vo::discard(shared->maker);
    shared->~NsShared();
}

void freeOutline(voObj *obj) { reinterpret_cast<NsOutline *>(obj)->~NsOutline(); }

constinit voSort sharedSort = {{nullptr, 1}, &xml___module, "XML_NS_SHARED", freeShared};
constinit voSort outlineSort = {{nullptr, 1}, &xml___module, "XML_NS_OUTLINE", freeOutline};

} // namespace

NsShared *createNsShared() {
    auto *shared = new (vo___ObjCreate(sizeof(NsShared), &sharedSort))
        NsShared{.base = {&sharedSort, 1}, .namespaces = {}, .mutex = {}, .maker = nullptr};
    shared->namespaces.reserve(8);
    shared->namespaces.emplace_back();
    static_assert(nsOfXml == 1);
    shared->namespaces.emplace_back(xml___NsBuiltinNamespacesXmlNamespace());
    return shared;
}

NsOutline *createNsOutline(Outline *outline, NsShared *shared, uint64_t first) {
    return new (vo___ObjCreate(sizeof(NsOutline), &outlineSort))
        NsOutline{.base = {&outlineSort, 1},
                  .outline = vo::Ref(vo::retained(outline)),
                  .shared = vo::Ref(vo::retained(shared)),
                  .first = first,
                  .numbers = {}};
}

} // namespace xml
