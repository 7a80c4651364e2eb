#include "source/xml/path/xml_path_value.hpp"

#include "source/xml/base/xml_char.hpp"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace xml {
namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isSpace(uint8_t(text.front())))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(uint8_t(text.back())))
        text.remove_suffix(1);
    return text;
}

/// Digits with at most one point among them.
bool isDecimal(std::string_view text) {
    size_t points = 0, digits = 0;
    for (const char ch : text) {
        points += ch == '.';
        digits += isDigit(uint8_t(ch));
    }
    return points <= 1 && digits > 0 && points + digits == text.size();
}

} // namespace

double numberOf(std::string_view text) {
    text = trimmed(text);
    const bool isNegative = text.starts_with('-');
    text.remove_prefix(isNegative ? 1 : 0);
    if (!isDecimal(text)) return std::numeric_limits<double>::quiet_NaN();
    double number = 0;
    const auto done =
        std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    if (done.ec == std::errc::result_out_of_range) {
        const bool isLarge = text.substr(0, text.find('.')).find_first_not_of('0') < text.size();
        number = isLarge ? std::numeric_limits<double>::infinity() : 0;
    }
    return isNegative ? -number : number;
}

void appendNumber(PathString &out, double number) {
    if (std::isnan(number)) return out.append("NaN");
    if (std::isinf(number)) return out.append(number < 0 ? "-Infinity" : "Infinity");
    std::array<char, 400> digits; // The longest numbers have 308 digits before or behind the point.
    const double shown = number == 0 ? 0 : number;
    const auto done = std::to_chars(digits.data(), digits.data() + digits.size(), shown,
                                    std::chars_format::fixed);
    out.append({digits.data(), size_t(done.ptr - digits.data())});
}

bool areRelated(Relation relation, double left, double right) {
    switch (relation) {
    case Relation::equal:
        return left == right;
    case Relation::unequal:
        return left != right;
    case Relation::less:
        return left < right;
    case Relation::lessOrEqual:
        return left <= right;
    case Relation::more:
        return left > right;
    default:
        return left >= right;
    }
}

} // namespace xml
