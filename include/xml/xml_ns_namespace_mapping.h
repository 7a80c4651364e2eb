/** @file
 *  One namespace declaration: a prefix, or none for the default namespace, bound to a namespace
 *  name, or to none, which takes the binding away.
 *
 *  | prefix | namespace | declared by           |
 *  |--------|-----------|-----------------------|
 *  | p      | urn:x     | xmlns:p="urn:x"       |
 *  | p      | none      | xmlns:p=""            |
 *  | none   | urn:x     | xmlns="urn:x"         |
 *  | none   | none      | xmlns=""              | */
#ifndef XML_XML_NS_NAMESPACE_MAPPING_H
#define XML_XML_NS_NAMESPACE_MAPPING_H

#include "vo/vo_store.h"
#include "vo/vo_string.h"

VO_BEGIN_DECLS

typedef struct XML_NS_NAMESPACE_MAPPING XML_NS_NAMESPACE_MAPPING; /**< A namespace mapping. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlNsNamespaceMappingSort(void);
VO_API XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMappingRetain(XML_NS_NAMESPACE_MAPPING *obj);
VO_API void xmlNsNamespaceMappingRelease(XML_NS_NAMESPACE_MAPPING *obj);
VO_API voObj *xmlNsNamespaceMappingObj(XML_NS_NAMESPACE_MAPPING *obj);
VO_API XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMappingFrom(voObj *obj);
VO_NEW voString *xmlNsNamespaceMappingToString(XML_NS_NAMESPACE_MAPPING *obj);
VO_API int64_t xmlNsNamespaceMappingCompare(XML_NS_NAMESPACE_MAPPING *objA,
                                            XML_NS_NAMESPACE_MAPPING *objB);
VO_API int xmlNsNamespaceMappingEquals(XML_NS_NAMESPACE_MAPPING *objA,
                                       XML_NS_NAMESPACE_MAPPING *objB);
VO_NEW XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMappingCreateFrom(XML_NS_NAMESPACE_MAPPING *source);
/** @} */

/** Makes a mapping without prefix and without namespace; the setters make it what it shall be. */
VO_NEW XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMappingCreate(void);

/** The mapping as a record: string values under "prefix" and "namespace", each only when there is
 *  one. */
VO_NEW voStore *xmlNsNamespaceMappingStore(XML_NS_NAMESPACE_MAPPING *mapping);

/** Reads what xmlNsNamespaceMappingStore() gives. Never fails: a value that is missing or not
 *  valid counts as absent. */
VO_NEW XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMappingRestore(voStore *store);

/** 1 when the mapping is for the default namespace: it has no prefix. Unlike all other functions it
 *  does not check its argument: null is undefined behaviour. */
VO_API int xmlNsNamespaceMappingIsDefault(XML_NS_NAMESPACE_MAPPING *mapping);

/** @name Prefix
 *  The getter gives null when there is none. A new prefix must satisfy xmlNsValuePrefixOk(); "xml"
 *  and "xmlns" are accepted. Without one the mapping is for the default namespace. @{ */
VO_NEW voString *xmlNsNamespaceMappingPrefix(XML_NS_NAMESPACE_MAPPING *mapping);
VO_API int xmlNsNamespaceMappingHasPrefix(XML_NS_NAMESPACE_MAPPING *mapping);
VO_API void xmlNsNamespaceMappingSetPrefix(XML_NS_NAMESPACE_MAPPING **mapping, voString *prefix);
VO_API void xmlNsNamespaceMappingDelPrefix(XML_NS_NAMESPACE_MAPPING **mapping);
/** @} */

/** @name Namespace
 *  The getter gives null when there is none. A new one must satisfy xmlNsValueNamespaceOk(). @{ */
VO_NEW voString *xmlNsNamespaceMappingNamespace(XML_NS_NAMESPACE_MAPPING *mapping);
VO_API int xmlNsNamespaceMappingHasNamespace(XML_NS_NAMESPACE_MAPPING *mapping);
VO_API void xmlNsNamespaceMappingSetNamespace(XML_NS_NAMESPACE_MAPPING **mapping, voString *ns);
VO_API void xmlNsNamespaceMappingDelNamespace(XML_NS_NAMESPACE_MAPPING **mapping);
/** @} */

VO_END_DECLS

#endif
