/** @file
 *  The two bindings that hold without a declaration: the prefixes "xml" and "xmlns" and the
 *  namespace names that Namespaces in XML 1.0 reserves for them.
 *
 *  For the other modules of the product; trees are built and read without these. The strings exist
 *  from the start-up of the module to its shut-down and never change in between. Names compare
 *  code point by code point. */
#ifndef XML_XML_NS_BUILTIN_NAMESPACES_H
#define XML_XML_NS_BUILTIN_NAMESPACES_H

#include "vo/vo_string.h"

VO_BEGIN_DECLS

/** @name Life
 *  Called by the module. After the shut-down any use of the strings is a mistake. @{ */
VO_API void xml___NsBuiltinNamespacesStartup(void);
VO_API void xml___NsBuiltinNamespacesShutdown(void);
/** @} */

/** @name The strings
 *  "xml", http://www.w3.org/XML/1998/namespace, "xmlns" and http://www.w3.org/2000/xmlns/; null
 *  before the module was started. @{ */
VO_NEW voString *xml___NsBuiltinNamespacesXmlPrefix(void);
VO_NEW voString *xml___NsBuiltinNamespacesXmlNamespace(void);
VO_NEW voString *xml___NsBuiltinNamespacesXmlnsPrefix(void);
VO_NEW voString *xml___NsBuiltinNamespacesXmlnsNamespace(void);
/** @} */

/** @name Comparisons
 *  1 when `str`, which must not be null, equals the string of that name. @{ */
VO_API int xml___NsBuiltinNamespacesIsXmlPrefix(voString *str);
VO_API int xml___NsBuiltinNamespacesIsXmlNamespace(voString *str);
VO_API int xml___NsBuiltinNamespacesIsXmlnsPrefix(voString *str);
VO_API int xml___NsBuiltinNamespacesIsXmlnsNamespace(voString *str);
/** @} */

VO_END_DECLS

#endif
