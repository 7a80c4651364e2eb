// Figures about documents.
#pragma once

#include "decode.hpp"

#include <chrono>
#include <cstdint>
#include <string>

namespace tool {

struct Stats {
    int64_t elements = 0;
    int64_t attributes = 0;
    int64_t texts = 0;
    int64_t textChars = 0; ///< As written, references unresolved.
    int64_t cdatas = 0;
    int64_t cdataChars = 0;
    int64_t comments = 0;
    int64_t instructions = 0;
    int64_t depth = 0; ///< Of the innermost element; that of a root is 1.
    int64_t bytes = 0;
    std::chrono::duration<double> time{}; ///< Decoding alone, without reading the file.

    /// Counts the nodes of a document.
    void count(XML_DOCUMENT *document);

    /// Takes in the figures of another document.
    void add(const Stats &other);

    /// One figure a line, as `name: value`.
    std::string toString() const;
};

} // namespace tool
