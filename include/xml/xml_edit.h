/** @file
 *  Editing XML in place: nodes that paths select are changed in the bytes of a document, and no
 *  other byte is.
 *
 *      XML_EDIT edit = {XML_EDIT_ACTION_SET, path, {NULL, 0}, {"9.50", 4}};
 *      voBuffer *edited = xmlDocumentTryEdit(bytes, &edit, 1, 0, NULL, NULL);
 *
 *  Names, values and XML are UTF-8, whatever the character set of the document. */
#ifndef XML_XML_EDIT_H
#define XML_XML_EDIT_H

#include "vo/vo.h"
#include "xml/xml_cursor.h"
#include "xml/xml_path.h"

VO_BEGIN_DECLS

/** What an edit does to each node that its path selects. */
typedef int64_t XML_EDIT_ACTION;

enum {
    /** Sets the value of an attribute, a text, a comment or a CDATA section, the data of a
     *  processing instruction, or the whole content of an element to `text`, which is escaped as
     *  need be. Attributes keep their quotes. Of adjacent texts and CDATA sections, which are one
     *  node for paths, a text is left. */
    XML_EDIT_ACTION_SET = 0,
    /** Sets the content of an element to the XML in `text`. */
    XML_EDIT_ACTION_SET_CONTENT = 1,
    /** Sets the attribute of an element that is written as `name` to `text`, which may mean to add
     *  it behind the others. */
    XML_EDIT_ACTION_SET_ATTRIBUTE = 2,
    /** Removes a node: an attribute with the white space before it; an element, comment or
     *  processing instruction with the whole line where nothing else stands there. What holds one
     *  that is removed may be removed as well. */
    XML_EDIT_ACTION_DELETE = 3,
    /** Gives an element, in both tags, an attribute or a processing instruction the name `name`. */
    XML_EDIT_ACTION_RENAME = 4,
    /** Puts the XML in `text` in front of an item. */
    XML_EDIT_ACTION_INSERT_BEFORE = 5,
    /** Puts it behind an item. */
    XML_EDIT_ACTION_INSERT_AFTER = 6,
    /** Puts it behind the content of an element or of the document. An element without content gets
     *  an end tag for that. */
    XML_EDIT_ACTION_INSERT_INTO = 7
};

/** Whether `action` is one of the actions. */
#define XML_EDIT_ACTION_OK(action) ((uint64_t)(action) <= XML_EDIT_ACTION_INSERT_INTO)

/** One edit. `name` and `text` may be unset where the action does not use them. */
typedef struct XML_EDIT {
    XML_EDIT_ACTION action;
    XML_PATH *path;
    XML_UTF8 name;
    XML_UTF8 text;
} XML_EDIT;

/** Why a document is not edited. */
typedef int64_t XML_EDIT_ERROR_CODE;

enum {
    /** The document does not decode. */
    XML_EDIT_ERROR_CODE_INPUT = 0,
    /** A name, value or XML that the action cannot use, whatever it meets. */
    XML_EDIT_ERROR_CODE_ARGUMENT = 1,
    /** The action does not apply to a node that was selected. */
    XML_EDIT_ERROR_CODE_NODE = 2,
    /** Two edits change the same place. */
    XML_EDIT_ERROR_CODE_OVERLAP = 3,
    /** The character set of the document lacks a character that an edit brings in, or it cannot be
     *  told which bytes stand for what. */
    XML_EDIT_ERROR_CODE_CHARSET = 4,
    /** What would come of it does not decode. */
    XML_EDIT_ERROR_CODE_RESULT = 5
};

/** What is wrong with an edit, or with the document. */
typedef struct XML_EDIT_ERROR {
    XML_EDIT_ERROR_CODE code;

    /** The index of the edit at fault; -1 where it is none or not known. */
    int64_t edit;

    /** What is wrong, and its place in the document if it has one; with
     *  XML_EDIT_ERROR_CODE_RESULT in what would come of it. A new reference, which the caller
     *  releases. */
    voMessage *message;
} XML_EDIT_ERROR;

/** Edits a document in the bytes that stand for it. All edits select in the document as it was, and
 *  what they put at one place stands there in their order. The result decodes as the input does.
 *  The bytes of everything that no edit was about are the same. Where nothing was selected the
 *  result is the input.
 *
 *  A character of an attribute's new value that the character set lacks becomes a character
 *  reference; elsewhere it is an error. Time is in proportion to the input, the result, and what
 *  selecting takes; n changes take n log n.
 *
 *  @param edits `count` of them, borrowed. An action that is none or a path that is null aborts.
 *  @param namespaces 0 when paths look at names as they are written, otherwise they see
 *         namespaces, which must then be right in the input and in the result.
 *  @param optionalSelected receives how many nodes were selected, one for each edit that did.
 *  @param optionalError receives what is wrong when the result is null; otherwise untouched. */
VO_NEW voBuffer *xmlDocumentTryEdit(voBuffer *xml, const XML_EDIT *edits, int64_t count,
                                    int namespaces, int64_t *optionalSelected,
                                    XML_EDIT_ERROR *optionalError);

VO_END_DECLS

#endif
