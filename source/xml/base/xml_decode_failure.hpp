// Errors and results of decoding, which are alike for plain documents and for namespaces.
#pragma once

#include "source/vo/vo_object.hpp"
#include "vo/vo.h"

namespace xml {

struct DecodeError {
    voObj base;
    int64_t errorCode;
    voParserLocation *location;

    auto fields() { return std::tie(errorCode, location); }
};

template <class T>
T *createDecodeError(voSort *sort, int64_t errorCode, voParserLocation *optionalLocation) {
    T *err = vo::create<T>(sort);
    err->errorCode = errorCode;
    err->location = vo::retained(optionalLocation);
    return err;
}

/// An error message for people, at the location if there is one. Takes over `text`.
inline voMessage *errorMessage(voParserLocation *optionalLocation, voString *text) {
    return voMessageCreateFormatCstr(VO_MESSAGE_ERROR, optionalLocation, "%~s", -1, text);
}

/// Exactly one of the two fields is not null.
template <class Document, class Error> struct DecodeResult {
    voObj base;
    Document *document;
    Error *error;

    auto fields() { return std::tie(document, error); }
};

template <class T>
T *createDecodeResult(voSort *sort, decltype(T::document) document, decltype(T::error) error) {
    T *result = vo::create<T>(sort);
    result->document = vo::retained(document);
    result->error = vo::retained(error);
    return result;
}

} // namespace xml
