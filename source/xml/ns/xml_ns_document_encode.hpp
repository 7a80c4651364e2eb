// The namespace encoder for documents that become part of others.
#pragma once

#include "xml/xml_ns_document_encode.h"
#include "xml/xml_ns_namespace_map.h"

extern "C" {
/// As xmlNsDocumentEncode(). The bindings of `optionalEffectiveNamespaceMap` hold around the
/// document: they are used and not declared. Those of `optionalRootNamespaceMap` are declared on
/// every element at the top. Generated prefixes are different from the prefixes of both.
XML_DOCUMENT *xml___NsDocumentEncode(XML_NS_DOCUMENT *doc,
                                     XML_NS_NAMESPACE_MAP *optionalEffectiveNamespaceMap,
                                     XML_NS_NAMESPACE_MAP *optionalRootNamespaceMap);
}
