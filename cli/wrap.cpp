#include "wrap.hpp"

#include <algorithm>

namespace tool {

std::string wrapped(std::string_view text, Margins margins) {
    std::string out;
    for (size_t column = margins.column; !text.empty();) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(text.size(), word.size() + 1));
        const bool isFirst = out.empty();
        if (!isFirst && column + 1 + word.size() > margins.width) {
            out.append("\n").append(margins.indentation, ' ');
            column = margins.indentation;
        } else if (!isFirst) {
            out += ' ';
            ++column;
        }
        out += word;
        column += word.size();
    }
    return out;
}

} // namespace tool
