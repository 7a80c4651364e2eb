/** @file
 *  Reading XML text. */
#ifndef XML_XML_DOCUMENT_DECODE_H
#define XML_XML_DOCUMENT_DECODE_H

#include "vo/vo.h"
#include "xml/xml_decode_result.h"
#include "xml/xml_options.h"

VO_BEGIN_DECLS

/** Reads an XML text into a document, or says what is wrong with it and where. Never null. No input
 *  ends the process as long as there is memory, or makes it recurse.
 *
 *  The text must begin, after optional white space, with an XML declaration; the character set is
 *  the one the declaration names within the first 1024 bytes, or else that one of UTF-8, UTF-16
 *  and UTF-32 in which the declaration can be read. Character data is kept as it stands in the
 *  text: references are not expanded and line ends stay.
 *
 *  A document without a declaration is refused: put one, such as `<?xml version="1.0"?>`, in front
 *  of the bytes. So is a document type declaration: cut it out, from where the error's location and
 *  xmlDecodeErrorByteOffset() say, and references to its entities stay as they are written. Or
 *  import such documents, see xml/xml_import.h.
 *
 *  All of the text is checked at once. The objects of the tree are made from it when they are first
 *  asked for; until the last of them is made or dropped, the tree keeps the text, which for UTF-8
 *  is `xml` itself. See xmlDocumentMakeAll().
 *
 *  @param xml the whole text in its character set; it is not changed.
 *  @param opt three of the options are used: the flags, of which XML_FLAG_DECODE_LOCATION records
 *         locations; the decode charset flags; and the decode newline flags, by which lines are
 *         counted.
 *  @param optionalLocation where the text begins in a larger source. It becomes the document's
 *         location and the place from which the other locations count; an error of the character
 *         set carries it as it is. */
VO_NEW XML_DECODE_RESULT *xmlDocumentDecode(voBuffer *xml, XML_OPTIONS *opt,
                                            voParserLocation *optionalLocation);

VO_END_DECLS

#endif
