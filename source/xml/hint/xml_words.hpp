// What hints are made of.
#pragma once

#include "source/vo/vo_newline.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "source/xml/hint/xml_markup.hpp"
#include "vo/vo_charset.h"

#include <optional>

namespace xml {

/// A hint, and the place that it is about where that is closer than the error's own.
struct Advice {
    Advice() = default;
    Advice(Message message) : text(std::move(message)) {}
    Advice(const char *message) : text(message) {}
    Advice(Message message, vo::Place where) : text(std::move(message)), place(where) {}

    Message text;
    std::optional<vo::Place> place;
};

inline constexpr const char *exampleDeclaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";

inline constexpr const char *conflictHint =
    "this line marks a conflict of a merge; keep one of the two sides, without the marks";

Message number(int64_t value, int base = 10);
Message charsetName(voCharset charset);

/// A name from the input, as far as it fits into a message.
Message brief(std::string_view name);

Message quoted(std::string_view name); ///< In apostrophes.
Message tag(std::string_view name);    ///< In angle brackets.

/// ASCII letters in lower case.
Message lowered(std::string_view text);

/// Where `at` is in a text, as the decoder counts unless it is told otherwise.
vo::Place placeOf(Piece text, const uint8_t *at);

Message lineAndColumn(Piece text, const uint8_t *at);

} // namespace xml
