// The C library's converters.
#pragma once

#include "source/vo/vo_buffer_builder.hpp"

#include <cerrno>
#include <iconv.h>

namespace vo {

/// One conversion from one character set to another. False when the system does not have it.
class Converter {
  public:
    enum class Stop { atEnd, illFormed, cutOff };

    Converter(const char *to, const char *from) : state(iconv_open(to, from)) {}
    Converter(const Converter &) = delete;
    Converter &operator=(const Converter &) = delete;
    ~Converter() {
        if (*this) iconv_close(state);
    }

    explicit operator bool() const { return state != reinterpret_cast<iconv_t>(intptr_t{-1}); }

    /// Takes as much from the front of `in` as it can and hands the result to `sink(Bytes)` piece
    /// by piece. Characters that the target lacks count as ill-formed.
    template <class Sink> Stop convert(Bytes &in, Sink sink) {
        char *from = reinterpret_cast<char *>(const_cast<uint8_t *>(in.data()));
        size_t left = in.size();
        Stop stop = run(&from, &left, sink);
        in = in.last(left);
        return stop;
    }

    /// Hands over what was held back and returns to the initial state.
    template <class Sink> void flush(Sink sink) { run(nullptr, nullptr, sink); }

  private:
    template <class Sink> Stop run(char **from, size_t *left, Sink sink) {
        for (;;) {
            uint8_t piece[8192];
            char *to = reinterpret_cast<char *>(piece);
            size_t room = sizeof piece;
            size_t result = iconv(state, from, left, &to, &room);
            int error = errno;
            sink(Bytes(piece, sizeof piece - room));
            if (result != size_t(-1)) return Stop::atEnd;
            if (error != E2BIG) return error == EINVAL ? Stop::cutOff : Stop::illFormed;
        }
    }

    iconv_t state;
};

} // namespace vo
