/** @file
 *  Which strings the names of a namespace-aware tree may hold.
 *
 *  Constructors and setters demand what these checks tell; the decoder asks them about its input.
 *  Each gives 1 or 0. The string must not be null. */
#ifndef XML_XML_NS_VALUE_H
#define XML_XML_NS_VALUE_H

#include "vo/vo_string.h"

VO_BEGIN_DECLS

/** A prefix: an XML name without a colon. "xml" and "xmlns" are prefixes like any other here. */
VO_API int xmlNsValuePrefixOk(voString *prefix);

/** A local name: the same rule. */
VO_API int xmlNsValueLocalNameOk(voString *localName);

/** A namespace name: any text but the empty one and the name that is reserved for the prefix
 *  "xmlns", http://www.w3.org/2000/xmlns/. It need not look like a URI. */
VO_API int xmlNsValueNamespaceOk(voString *ns);

VO_END_DECLS

#endif
