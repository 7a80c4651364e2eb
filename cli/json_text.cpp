#include "json_text.hpp"

#include "text.hpp"

namespace tool {

static bool isSpecial(char ch) {
    return static_cast<unsigned char>(ch) < 0x20 || ch == '"' || ch == '\\';
}

static void appendSpecial(std::string &out, char ch) {
    if (ch == '"' || ch == '\\')
        out.append({'\\', ch});
    else if (ch == '\n')
        out += "\\n";
    else
        out += "\\u" + hex(static_cast<unsigned char>(ch), 4);
}

void appendJson(std::string &out, std::string_view utf8) {
    out += '"';
    while (!utf8.empty()) {
        size_t plain = 0;
        while (plain < utf8.size() && !isSpecial(utf8[plain]))
            ++plain;
        out.append(utf8.substr(0, plain));
        if (plain < utf8.size()) appendSpecial(out, utf8[plain++]);
        utf8.remove_prefix(plain);
    }
    out += '"';
}

std::string jsonString(std::string_view utf8) {
    std::string out;
    appendJson(out, utf8);
    return out;
}

} // namespace tool
