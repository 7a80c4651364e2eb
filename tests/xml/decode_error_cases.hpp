// Errors and results behave alike in both layers. A Layer names the functions of one of them and
// has `codes`, a table of {code, its name, its message}.
#pragma once

#include "tests/support.hpp"

namespace test {

struct CodeRow {
    int64_t code;
    const char *name, *message;
};

template <class Layer> void everyCodeHasANameAndAMessage() {
    for (int64_t expected = 0; const CodeRow &row : Layer::codes) {
        EXPECT_EQ(row.code, expected++);
        EXPECT_EQ(take(Layer::codeToString(row.code)), row.name);
        EXPECT_EQ(take(Layer::codeMessageText(row.code)), row.message);
        EXPECT_EQ(Layer::codeFromString(str(row.name)), row.code);
    }
    EXPECT_EQ(Layer::codeFromString(str("no code")), -1);
}

template <class Layer> void anErrorTellsItsCodeAndPlace() {
    Ref location(voParserLocationCreate(str("a.xml"), 7, 2, 5));
    const CodeRow &last = *std::rbegin(Layer::codes);
    Ref error(Layer::createError(last.code, location));
    EXPECT_EQ(Layer::errorCode(error), last.code);
    EXPECT_EQ(Layer::hasLocation(error), 1);
    EXPECT_EQ(Ref(Layer::location(error)), location);
    Ref message(Layer::toMessage(error));
    EXPECT_EQ(take(voMessageToString(message)), "a.xml:2:5: error: " + std::string(last.message));

    Ref unplaced(Layer::createError(0, nullptr));
    EXPECT_EQ(Layer::hasLocation(unplaced), 0);
    EXPECT_FALSE(Ref(Layer::location(unplaced)));
    EXPECT_FALSE(Ref(voMessageLocation(Ref(Layer::toMessage(unplaced)))));
}

template <class Layer> void aResultHoldsADocumentOrAnError() {
    Ref document(Layer::createDocument());
    Ref good(Layer::createResult(document));
    EXPECT_EQ(Layer::hasDocument(good), 1);
    EXPECT_EQ(Ref(Layer::document(good)), document);
    EXPECT_EQ(Layer::hasError(good), 0);
    EXPECT_FALSE(Ref(Layer::error(good)));

    Ref error(Layer::createError(0, nullptr));
    Ref bad(Layer::createErrorResult(error));
    EXPECT_EQ(Layer::hasError(bad), 1);
    EXPECT_EQ(Ref(Layer::error(bad)), error);
    EXPECT_EQ(Layer::hasDocument(bad), 0);
    EXPECT_FALSE(Ref(Layer::document(bad)));
}

/// `unit` is the path of the layer's units up to the last word, `prefix` that of its names.
template <class Layer>
void invalidArgumentsAbort(std::string unit, std::string check, std::string resultName) {
    const std::string code = unit + "error_code.cpp", error = unit + "error.cpp";
    const std::string result = unit + "result.cpp";
    for (int64_t invalid : {int64_t{-1}, int64_t{std::size(Layer::codes)}}) {
        EXPECT_ABORT(Ref made(Layer::createError(invalid, nullptr)), error, check);
        EXPECT_ABORT(Ref made(Layer::codeToString(invalid)), code, check);
        EXPECT_ABORT(Ref made(Layer::codeMessageText(invalid)), code, check);
    }
    EXPECT_ABORT(Layer::codeFromString(nullptr), code, "vos");
    EXPECT_ABORT(Ref made(Layer::toMessage(nullptr)), error, "err");
    EXPECT_ABORT(Ref made(Layer::createResult(nullptr)), result, "document");
    EXPECT_ABORT(Ref made(Layer::createErrorResult(nullptr)), result, "error");
    EXPECT_ABORT(Layer::hasDocument(nullptr), result, resultName);
}

} // namespace test
