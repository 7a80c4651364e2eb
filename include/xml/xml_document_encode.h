/** @file
 *  Writing XML text. */
#ifndef XML_XML_DOCUMENT_ENCODE_H
#define XML_XML_DOCUMENT_ENCODE_H

#include "vo/vo.h"
#include "xml/xml_document.h"
#include "xml/xml_options.h"

VO_BEGIN_DECLS

/** Writes a document in the one canonical layout, in the document's character set.
 *
 *  The XML declaration comes first, unless XML_FLAG_ENCODE_OMIT_XML_DECLARATION is set: version,
 *  encoding and, only when the document is standalone, standalone="yes". Nothing is added between
 *  markup. An element without children is an empty-element tag. An attribute value stands between
 *  double quotes, or between apostrophes when it holds fewer of those.
 *
 *  @param opt two of the options are used: the flags and the encode charset flags.
 *  @return null when the character set lacks a character of the document, or a string that the
 *          program has made holds a surrogate or a value above U+10FFFF. Which character it is is
 *          not told: voCharsetTryConvertStringToBufferWithFlags() gives null for the string that
 *          holds it, and for the character alone. */
VO_NEW voBuffer *xmlDocumentTryEncode(XML_DOCUMENT *doc, XML_OPTIONS *opt);

VO_END_DECLS

#endif
