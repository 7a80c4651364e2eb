/** @file
 *  Reading and writing files of XML text. See vo/vo_file.h for paths and the system's errors. */
#ifndef XML_XML_DOCUMENT_FILE_H
#define XML_XML_DOCUMENT_FILE_H

#include "vo/vo_file.h"
#include "xml/xml_document_decode.h"
#include "xml/xml_document_encode.h"

VO_BEGIN_DECLS

/** What xmlDocumentEncodeFile() gives when the document's character set cannot hold the text. */
#define XML_FILE_ERROR_CHARSET (-1)

/** Reads a file and decodes it with xmlDocumentDecode(). Null when the file cannot be read; then
 *  the errno value is stored in `error`, which is left alone otherwise.
 *
 *  Locations name the path as their source, so that messages begin with it; bytes of it that are no
 *  UTF-8 become U+FFFD. The document has a location. So has every decode error, with or without
 *  XML_FLAG_DECODE_LOCATION: a refused text is decoded once more for it. That of an error of the
 *  character set is the beginning of the file; xmlDecodeErrorByteOffset() may tell more.
 *  Errors of xmlNsDocumentTryDecode() have a place only if the flag was set. For the hints of
 *  xml/xml_hint.h, which need the bytes, read the file with voFileTryRead() and decode those.
 *
 *  @param optionalOpt null stands for the defaults, see xml/xml_options.h. */
VO_NEW XML_DECODE_RESULT *xmlDocumentTryDecodeFile(const char *path, XML_OPTIONS *optionalOpt,
                                                   int *error);

/** Encodes a document with xmlDocumentTryEncode() and writes it with voFileReplace(): what was at
 *  `path` is replaced once the new file is whole, and stays as it is when anything fails.
 *
 *  Whether a file that was read began with a byte-order mark the document does not know; to write
 *  one set VO_CHARSET_FLAG_BOM among the encode charset flags.
 *
 *  @param optionalOpt null stands for the defaults, see xml/xml_options.h.
 *  @return 0, the errno value of what went wrong, or XML_FILE_ERROR_CHARSET, which is not an
 *  errno value and has no text in voFileErrorText(). */
VO_API int xmlDocumentEncodeFile(XML_DOCUMENT *doc, const char *path, XML_OPTIONS *optionalOpt);

VO_END_DECLS

#endif
