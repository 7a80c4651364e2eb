#include "tests/import/readers.hpp"

#include <expat.h>

namespace test {

std::ostream &operator<<(std::ostream &out, const Refusal &refusal) {
    return out << "code " << refusal.code << " at " << refusal.line << ':' << refusal.column
               << ", byte " << refusal.byteOffset;
}

Imported import(std::string_view bytes, const XML_IMPORT_OPTIONS &options) {
    XML_IMPORT_ERROR error{};
    Imported result;
    result.document = Ref(xmlDocumentTryImport(buffer(bytes), &options, nullptr, &error));
    if (result.document) return result;
    Ref message(error.message);
    Ref location(voMessageLocation(message));
    result.refusal = {error.code, voParserLocationLine(location), voParserLocationColumn(location),
                      error.byteOffset};
    result.message = take(voMessageToString(message));
    return result;
}

Refusal refusalByExpat(std::string_view bytes) {
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetParamEntityParsing(parser, XML_PARAM_ENTITY_PARSING_ALWAYS);
    Refusal refusal;
    if (XML_Parse(parser, bytes.data(), int(bytes.size()), XML_TRUE) != XML_STATUS_OK) {
        refusal = {XML_GetErrorCode(parser), int64_t(XML_GetErrorLineNumber(parser)),
                   int64_t(XML_GetErrorColumnNumber(parser)) + 1,
                   std::max<int64_t>(XML_GetErrorByteIndex(parser), 0)};
        const bool hasMark = bytes.starts_with("\xEF\xBB\xBF") || bytes.starts_with("\xFE\xFF") ||
                             bytes.starts_with("\xFF\xFE");
        if (hasMark && refusal.line == 1 && refusal.column > 1) --refusal.column;
    }
    XML_ParserFree(parser);
    return refusal;
}

const std::vector<std::string> documentsForImport = {
    "<a/>",
    "\xEF\xBB\xBF<a>\xC3\xA9</a>",
    "<a b=' x\t\ny&#9;&#10;&#13;&lt;\"' c=\"'&apos;\">a&#13;\r\nb\rc ]]&gt; > d</a>",
    "<!--c--><?p  d ?><a>x<![CDATA[<&]]]]><![CDATA[>]]><![CDATA[]]>y<!----><!---x--></a><?q?>",
    "<!DOCTYPE a [<!ENTITY e 'x&#38;#60;'><!-- no --><?nor this?><!ATTLIST a d CDATA 'v&e;\n' "
    "i NMTOKENS #IMPLIED xmlns:p CDATA #FIXED 'urn:u'>]>\n<a i=' 1  2 '><p:b/>&e;</a>",
    "<!DOCTYPE a [<!ENTITY e '<b c=\"&f;\">&f;</b><![CDATA[]]]]>&#62;'><!ENTITY f 'q\r\nr'>"
    "<!ENTITY % p \"<!ENTITY g 'h'>\"> %p;]><a>&e;&e;&g;</a>",
    "<?xml version='1.0' encoding='US-ASCII' standalone='yes'?><a b='&#233;'>&#233;&#x10FFFF;</a>",
    "<?xml version='1.1' encoding='ISO-8859-1'?><a>\xE9&#xE9;&#x20AC;<![CDATA[\xE9]]></a>",
    "<?xml version='1.0' encoding='US-ASCII'?><!DOCTYPE a [<!ENTITY e '<&#233;/>'>]><a>&e;</a>",
};

} // namespace test
