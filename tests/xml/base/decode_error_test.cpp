#include "tests/xml/decode_error_cases.hpp"
#include "xml/xml.h"

namespace {

#define CODE(code, message)                                                                        \
    { code, #code, message }
struct Plain {
    static constexpr test::CodeRow codes[] = {
        CODE(XML_DECODE_ERROR_CODE_CHARSET, "invalid charset encoding"),
        CODE(XML_DECODE_ERROR_CODE_XML_DECLARATION, "XML declaration missing or malformed"),
        CODE(XML_DECODE_ERROR_CODE_DOCTYPE, "XML DOCTYPE declaration found; this is not supported"),
        CODE(XML_DECODE_ERROR_CODE_TAG, "XML element malformed"),
        CODE(XML_DECODE_ERROR_CODE_TAG_MISMATCH, "mismatched opening/closing XML tags"),
        CODE(XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED,
             "end of XML document encountered where closing tags were expected"),
        CODE(XML_DECODE_ERROR_CODE_PROCESSING_INSTRUCTION, "XML processing instruction malformed"),
        CODE(XML_DECODE_ERROR_CODE_COMMENT, "XML comment malformed"),
        CODE(XML_DECODE_ERROR_CODE_CDATA, "XML CDATA section malformed"),
        CODE(XML_DECODE_ERROR_CODE_ATTRIBUTE_LIST, "XML attribute list malformed"),
        CODE(XML_DECODE_ERROR_CODE_TEXT, "textual content in XML malformed"),
    };
    static constexpr auto codeFromString = xmlDecodeErrorCodeFromString;
    static constexpr auto codeToString = xmlDecodeErrorCodeToString;
    static constexpr auto codeMessageText = xmlDecodeErrorCodeMessageText;
    static constexpr auto createError = xmlDecodeErrorCreate;
    static constexpr auto errorCode = xmlDecodeErrorErrorCode;
    static constexpr auto location = xmlDecodeErrorLocation;
    static constexpr auto hasLocation = xmlDecodeErrorHasLocation;
    static constexpr auto toMessage = xmlDecodeErrorToMessage;
    static constexpr auto createDocument = xmlDocumentCreate;
    static constexpr auto createResult = xmlDecodeResultCreate;
    static constexpr auto createErrorResult = xmlDecodeResultCreateError;
    static constexpr auto document = xmlDecodeResultDocument;
    static constexpr auto hasDocument = xmlDecodeResultHasDocument;
    static constexpr auto error = xmlDecodeResultError;
    static constexpr auto hasError = xmlDecodeResultHasError;
};
#undef CODE

} // namespace

TEST(DecodeError, HasANameAndAMessageForEveryCode) { test::everyCodeHasANameAndAMessage<Plain>(); }
TEST(DecodeError, TellsItsCodeAndPlace) { test::anErrorTellsItsCodeAndPlace<Plain>(); }
TEST(DecodeResult, HoldsADocumentOrAnError) { test::aResultHoldsADocumentOrAnError<Plain>(); }
TEST(DecodeError, AbortsForInvalidArguments) {
    test::invalidArgumentsAbort<Plain>("source/xml/base/xml_decode_",
                                       "XML_DECODE_ERROR_CODE_OK( ec )", "result");
}
