// Text that is written out as UTF-8.
#pragma once

#include "source/vo/vo_array.hpp"
#include "vo/vo.h"

#include <cstring>
#include <string_view>

namespace xml {

/// Collects a text in a growing buffer.
class Writer {
  public:
    void ascii(std::string_view text) {
        std::memcpy(room(int64_t(text.size())), text.data(), text.size());
        written += int64_t(text.size());
    }
    void string(voString *string);

    /// The value of an attribute in quotes.
    void quoted(voString *value);

    /// The text, or null when a string held something that is not a character.
    vo::Ref<voBuffer> finish();

  private:
    /// Where the next bytes go: room for at least that many.
    uint8_t *room(int64_t bytes) {
        if (buffer->length - written < bytes) grow(bytes);
        return buffer->items() + written;
    }
    void grow(int64_t bytes);
    void requote(int64_t begin);

    vo::Ref<voBuffer> buffer{voBufferCreate()}; ///< Longer than what has been written.
    int64_t written = 0;
    bool wellFormed = true;
};

} // namespace xml
