#include "xml/xml_document_file.h"

#include "source/vo/vo_object.hpp"

#include <cstring>

using vo::Ref;

static Ref<XML_OPTIONS> optionsOr(XML_OPTIONS *optional) {
    return Ref(optional ? vo::retained(optional) : xmlOptionsCreate());
}

/// The beginning of a file. A path is any bytes.
static Ref<voParserLocation> beginningOf(const char *path) {
    Ref bytes(voBufferCreateFromBytesCopy(path, int64_t(std::strlen(path))));
    Ref source(
        voCharsetTryConvertBufferToStringWithFlags(VO_CHARSET_UTF_8, bytes, VO_CHARSET_FLAG_SNIFF));
    return Ref(voParserLocationCreate(source, 0, 1, 1));
}

XML_DECODE_RESULT *xmlDocumentTryDecodeFile(const char *path, XML_OPTIONS *optionalOpt,
                                            int *error) {
    VO_ASSERT(path);
    VO_ASSERT(error);
    Ref xml(voFileTryRead(path, error));
    if (!xml) return nullptr;
    Ref options = optionsOr(optionalOpt);
    Ref beginning = beginningOf(path);
    Ref result(xmlDocumentDecode(xml, options, beginning));
    const XML_FLAGS flags = xmlOptionsFlags(options);
    if (!xmlDecodeResultHasError(result) || flags & XML_FLAG_DECODE_LOCATION) return result.take();
    xmlOptionsSetFlags(options.edit(), flags | XML_FLAG_DECODE_LOCATION);
    return xmlDocumentDecode(xml, options, beginning);
}

int xmlDocumentEncodeFile(XML_DOCUMENT *doc, const char *path, XML_OPTIONS *optionalOpt) {
    VO_ASSERT(doc);
    VO_ASSERT(path);
    Ref encoded(xmlDocumentTryEncode(doc, optionsOr(optionalOpt)));
    return encoded ? voFileReplace(path, encoded) : XML_FILE_ERROR_CHARSET;
}
