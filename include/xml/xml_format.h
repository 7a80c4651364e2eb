/** @file
 *  Writing XML text for people to read: with line ends and indentation. */
#ifndef XML_XML_FORMAT_H
#define XML_XML_FORMAT_H

#include "vo/vo.h"
#include "xml/xml_document.h"
#include "xml/xml_options.h"

VO_BEGIN_DECLS

/** As `indent`: one tab for each level. */
#define XML_LAYOUT_TAB (-1)

/** How to lay out. */
typedef struct XML_LAYOUT {
    /** Blanks for each level, from 0 to 16, or XML_LAYOUT_TAB. Below 64 levels lines are not
     *  indented further, so that what is written stays in proportion to the document. */
    int64_t indent;

    /** How many columns a start tag may reach, where a tab counts as 8; 0 is without limit. The
     *  attributes of a longer one stand on lines of their own, two levels deeper than it. */
    int64_t width;
} XML_LAYOUT;

/** Writes a document as xmlDocumentTryEncode() does, with line ends and indentation added.
 *
 *  - Content that holds elements and nothing else but comments, processing instructions and white
 *    space is laid out: each node on a line of its own. One empty line between two nodes stays.
 *  - Other content is written as it stands, with all that it holds: where there is text other than
 *    white space or a CDATA section, and below an element with xml:space="preserve", up to one with
 *    xml:space="default". So is white space alone, and content without elements that has none.
 *  - The text ends with a line end, which is added to text at the top. Lines end with CR LF if the
 *    document's first item is a text that begins so, otherwise with LF; line ends within what the
 *    document holds stay what they are.
 *
 *  What is written decodes to the same tree but for texts of nothing but white space between nodes,
 *  and is written as the same bytes once more. Neither time nor memory depend on depth otherwise
 *  than on the number of nodes, and no objects of the tree are made, see xml/xml_cursor.h.
 *
 *  @param optionalLayout null stands for two blanks and no limit.
 *  @param opt as for xmlDocumentTryEncode(), and null is given for the same reasons. */
VO_NEW voBuffer *xmlDocumentTryEncodeFormatted(XML_DOCUMENT *doc, const XML_LAYOUT *optionalLayout,
                                               XML_OPTIONS *opt);

VO_END_DECLS

#endif
