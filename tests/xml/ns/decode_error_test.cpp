#include "tests/xml/decode_error_cases.hpp"
#include "xml/xml.h"

namespace {

#define CODE(code, message)                                                                        \
    { code, #code, message }
struct Namespaced {
    static constexpr test::CodeRow codes[] = {
        CODE(XML_NS_DECODE_ERROR_CODE_NAMESPACE, "invalid XML namespace"),
        CODE(XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX, "invalid XML namespace prefix"),
        CODE(XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX_UNKNOWN, "XML namespace prefix undefined"),
        CODE(XML_NS_DECODE_ERROR_CODE_LOCAL_NAME, "invalid XML local name"),
    };
    static constexpr auto codeFromString = xmlNsDecodeErrorCodeFromString;
    static constexpr auto codeToString = xmlNsDecodeErrorCodeToString;
    static constexpr auto codeMessageText = xmlNsDecodeErrorCodeMessageText;
    static constexpr auto createError = xmlNsDecodeErrorCreate;
    static constexpr auto errorCode = xmlNsDecodeErrorErrorCode;
    static constexpr auto location = xmlNsDecodeErrorLocation;
    static constexpr auto hasLocation = xmlNsDecodeErrorHasLocation;
    static constexpr auto toMessage = xmlNsDecodeErrorToMessage;
    static constexpr auto createDocument = xmlNsDocumentCreate;
    static constexpr auto createResult = xmlNsDecodeResultCreate;
    static constexpr auto createErrorResult = xmlNsDecodeResultCreateError;
    static constexpr auto document = xmlNsDecodeResultDocument;
    static constexpr auto hasDocument = xmlNsDecodeResultHasDocument;
    static constexpr auto error = xmlNsDecodeResultError;
    static constexpr auto hasError = xmlNsDecodeResultHasError;
};
#undef CODE

} // namespace

TEST(NsDecodeError, HasANameAndAMessageForEveryCode) {
    test::everyCodeHasANameAndAMessage<Namespaced>();
}
TEST(NsDecodeError, TellsItsCodeAndPlace) { test::anErrorTellsItsCodeAndPlace<Namespaced>(); }
TEST(NsDecodeResult, HoldsADocumentOrAnError) {
    test::aResultHoldsADocumentOrAnError<Namespaced>();
}
TEST(NsDecodeError, AbortsForInvalidArguments) {
    test::invalidArgumentsAbort<Namespaced>("source/xml/ns/xml_ns_decode_",
                                            "XML_NS_DECODE_ERROR_CODE_OK( ec )", "res");
}
