/** @file
 *  A way in for any XML 1.0 document, also for what xmlDocumentDecode() refuses. Part of the
 *  library libvoxml-import, which reads with Expat; xml/xml.h leaves it out. */
#ifndef XML_XML_IMPORT_H
#define XML_XML_IMPORT_H

#include "vo/vo.h"
#include "xml/xml_document.h"

VO_BEGIN_DECLS

/** How to import. Each field may be 0, which stands for its default; null stands for all defaults.
 *  The limits are on what a document may make of itself with entities and attribute defaults. */
typedef struct XML_IMPORT_OPTIONS {
    /** Other than 0: every node and attribute gets its place in the original, as decoding gives it
     *  with XML_FLAG_DECODE_LOCATION. Lines end with LF, CR and CR LF. What comes from an entity
     * has the place of the reference, a defaulted attribute that of its tag. */
    int64_t locations;

    /** A document may grow to this many bytes whatever its size. Default: 1048576. */
    int64_t mostExpanded;

    /** A larger document may grow to this many times its size. Default: 10. */
    int64_t mostAmplified;

    /** How many entities may refer to other entities, which is how deep such references can be
     *  nested. Expat uses stack for each level, about 1 KB. Default: 200. */
    int64_t mostNested;
} XML_IMPORT_OPTIONS;

/** Why a document is refused. */
typedef struct XML_IMPORT_ERROR {
    /** A value of Expat's enum XML_Error. */
    int64_t code;

    /** The place in the original, in bytes from 0. In a character set with shift sequences, those
     * in front of the place may be counted as behind it. */
    int64_t byteOffset;

    /** What is wrong and where: line and column as Expat counts them, but from 1, or from the
     *  location that importing was given. A new reference, which the caller releases. */
    voMessage *message;
} XML_IMPORT_ERROR;

/** Reads any well-formed XML 1.0 document into a tree; null when it is not well-formed or exceeds a
 *  limit, which `error` then describes and which leaves it alone otherwise. No input ends the
 *  process as long as there is memory. Nothing but `xml` is ever read.
 *
 *  - The tree holds what an XML processor reports: line ends and attribute values normalized,
 *    character references, CDATA sections and the document's own entities resolved or kept as
 *    nodes, attribute defaults added. The document type declaration itself is gone, and so is white
 *    space beside the root.
 *  - The character set is that of the declaration, or UTF-8 or UTF-16, and becomes that of the
 *    document. Characters that it lacks stay character references, also when the document is given
 *    another one later; where they cannot, as in names that an entity brings in, the document
 *    becomes UTF-8. An unknown name is an error.
 *  - A reference to an entity that the document does not define itself, external ones included, is
 *    an error where XML says so and else stays in the text as it stands; xmlTextTryUnescape() gives
 *    null for that. An attribute value with one keeps all its references. Within the text of an
 *    entity an attribute value loses it.
 *  - Written, such a tree reads as the same in other XML readers, but for references of that kind.
 *    Character references in text, such as the &#13; without which a CR would not survive, are
 *    refused by xmlDocumentDecode().
 *  - An empty comment and one with a hyphen at its beginning, which a tree cannot hold, get a space
 *    there. A version that is not one becomes "1.0".
 *
 *  All objects of the tree are made at once.
 *
 *  @param optionalLocation where the text begins in a larger source, see xmlDocumentDecode(). */
VO_NEW XML_DOCUMENT *xmlDocumentTryImport(voBuffer *xml, const XML_IMPORT_OPTIONS *optionalOptions,
                                          voParserLocation *optionalLocation,
                                          XML_IMPORT_ERROR *error);

VO_END_DECLS

#endif
