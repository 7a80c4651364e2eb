// Suggestions for misspelt words.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tool {

/// The word that comes closest to `wanted`, case and punctuation aside; null when none comes close.
const std::string *closest(std::string_view wanted, std::span<const std::string> words);

} // namespace tool
