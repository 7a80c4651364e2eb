// Writing JSON.
#pragma once

#include <string>
#include <string_view>

namespace tool {

/// Appends a text, which must be UTF-8, as a JSON string.
void appendJson(std::string &out, std::string_view utf8);

/// The same alone.
std::string jsonString(std::string_view utf8);

} // namespace tool
