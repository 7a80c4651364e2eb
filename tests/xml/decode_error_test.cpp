// Errors and results of decoding, of both layers.
#include "tests/support.hpp"
#include "xml/xml.h"

#include <set>

using namespace test;

namespace {

struct Plain {
    static constexpr int64_t codes = XML_DECODE_ERROR_CODE_TEXT + 1;
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
    static constexpr const char *unit = "source/xml/base/xml_decode_";
    static constexpr const char *codeCheck = "XML_DECODE_ERROR_CODE_OK( ec )";
};

struct Namespaced {
    static constexpr int64_t codes = XML_NS_DECODE_ERROR_CODE_LOCAL_NAME + 1;
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
    static constexpr const char *unit = "source/xml/ns/xml_ns_decode_";
    static constexpr const char *codeCheck = "XML_NS_DECODE_ERROR_CODE_OK( ec )";
};

template <class Layer> class DecodeError : public testing::Test {};
using Layers = testing::Types<Plain, Namespaced>;
TYPED_TEST_SUITE(DecodeError, Layers);

} // namespace

// The words themselves stand in the documents under tests/data that are refused.
TYPED_TEST(DecodeError, HasANameAndAMessageForEveryCode) {
    std::set<std::string> messages;
    for (int64_t code = 0; code < TypeParam::codes; ++code) {
        EXPECT_EQ(TypeParam::codeFromString(Ref(TypeParam::codeToString(code))), code);
        messages.insert(take(TypeParam::codeMessageText(code)));
    }
    EXPECT_EQ(int64_t(messages.size()), TypeParam::codes);
    EXPECT_EQ(TypeParam::codeFromString(str("no code")), -1);
}

TYPED_TEST(DecodeError, TellsItsCodeAndPlace) {
    Ref location(voParserLocationCreate(str("a.xml"), 7, 2, 5));
    const int64_t code = TypeParam::codes - 1;
    Ref error(TypeParam::createError(code, location));
    EXPECT_EQ(TypeParam::errorCode(error), code);
    EXPECT_EQ(TypeParam::hasLocation(error), 1);
    EXPECT_EQ(Ref(TypeParam::location(error)), location);
    Ref message(TypeParam::toMessage(error));
    EXPECT_EQ(take(voMessageToString(message)),
              "a.xml:2:5: error: " + take(TypeParam::codeMessageText(code)));

    Ref unplaced(TypeParam::createError(0, nullptr));
    EXPECT_EQ(TypeParam::hasLocation(unplaced), 0);
    EXPECT_FALSE(Ref(TypeParam::location(unplaced)));
    EXPECT_FALSE(Ref(voMessageLocation(Ref(TypeParam::toMessage(unplaced)))));
}

TYPED_TEST(DecodeError, StandsInAResultInPlaceOfADocument) {
    Ref document(TypeParam::createDocument());
    Ref good(TypeParam::createResult(document));
    EXPECT_EQ(TypeParam::hasDocument(good), 1);
    EXPECT_EQ(Ref(TypeParam::document(good)), document);
    EXPECT_EQ(TypeParam::hasError(good), 0);
    EXPECT_FALSE(Ref(TypeParam::error(good)));

    Ref error(TypeParam::createError(0, nullptr));
    Ref bad(TypeParam::createErrorResult(error));
    EXPECT_EQ(TypeParam::hasError(bad), 1);
    EXPECT_EQ(Ref(TypeParam::error(bad)), error);
    EXPECT_EQ(TypeParam::hasDocument(bad), 0);
    EXPECT_FALSE(Ref(TypeParam::document(bad)));
}

TYPED_TEST(DecodeError, AbortsForInvalidArguments) {
    const std::string unit = TypeParam::unit, check = TypeParam::codeCheck;
    for (int64_t invalid : {int64_t{-1}, TypeParam::codes}) {
        EXPECT_ABORT(Ref made(TypeParam::createError(invalid, nullptr)), unit + "error.cpp", check);
        EXPECT_ABORT(Ref made(TypeParam::codeToString(invalid)), unit + "error_code.cpp", check);
        EXPECT_ABORT(Ref made(TypeParam::codeMessageText(invalid)), unit + "error_code.cpp", check);
    }
}
