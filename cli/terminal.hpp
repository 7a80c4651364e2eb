// The width and the colours of the terminal, if there is one.
#pragma once

#include <string>
#include <string_view>

namespace tool {

/// Columns for what is written to `descriptor`: the terminal's, or a fixed number elsewhere.
int columns(int descriptor);

/// Puts colours around texts where `descriptor` is a terminal and the environment does not forbid
/// it (NO_COLOR, TERM=dumb).
class Painter {
  public:
    explicit Painter(int descriptor);

    std::string bold(std::string_view text) const { return paint("1", text); }
    std::string dim(std::string_view text) const { return paint("2", text); }
    std::string red(std::string_view text) const { return paint("1;31", text); }
    std::string green(std::string_view text) const { return paint("32", text); }
    std::string cyan(std::string_view text) const { return paint("36", text); }

  private:
    std::string paint(std::string_view style, std::string_view text) const;

    bool enabled;
};

} // namespace tool
