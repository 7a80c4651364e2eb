// The width and the colours of the terminal, if there is one.
#pragma once

#include <string>
#include <string_view>

namespace tool {

/// Columns for what is written to `descriptor`: what the environment says (COLUMNS), else the
/// terminal's, else a fixed number.
int columns(int descriptor);

enum class Colors {
    automatic, ///< On terminals, unless the environment forbids it (NO_COLOR, TERM=dumb).
    always,
    never
};

/// What every painter made from now on does.
void setColors(Colors colors);

/// Puts colours around texts for `descriptor`: those that can be read on white and on black.
class Painter {
  public:
    explicit Painter(int descriptor);

    std::string bold(std::string_view text) const { return paint("1", text); }
    std::string dim(std::string_view text) const { return paint("2", text); }
    std::string red(std::string_view text) const { return paint("1;31", text); }
    std::string green(std::string_view text) const { return paint("32", text); }
    std::string magenta(std::string_view text) const { return paint("35", text); }

  private:
    std::string paint(std::string_view style, std::string_view text) const;

    bool enabled;
};

} // namespace tool
