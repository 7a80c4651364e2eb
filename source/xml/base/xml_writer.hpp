// Text that is written out as UTF-8.
#pragma once

#include "source/vo/vo_buffer_builder.hpp"
#include "vo/vo.h"

#include <string_view>

namespace xml {

/// Collects a text in a growing buffer.
class Writer {
  public:
    void ascii(std::string_view text) {
        uint8_t *to = out.reserve(text.size());
        std::memcpy(to, text.data(), text.size());
        out.wrote(to + text.size());
    }
    void string(voString *string) { wellFormed = wellFormed && out.append(string); }

    /// The value of an attribute in quotes.
    void quoted(voString *value);

    /// The text, or null when a string held something that is not a character.
    vo::Ref<voBuffer> finish() { return vo::Ref(wellFormed ? out.take() : nullptr); }

  private:
    void requote(size_t begin);

    vo::BufferBuilder out;
    bool wellFormed = true;
};

} // namespace xml
