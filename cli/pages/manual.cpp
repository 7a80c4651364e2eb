#include "manual.hpp"

#include "charset.hpp"

#include <algorithm>
#include <functional>
#include <map>
#include <string_view>

namespace tool {
namespace {

/// A text as it is printed: no character of it means anything to the formatter.
std::string escaped(std::string_view text) {
    std::string out;
    for (const char ch : text) {
        if (ch == '\\')
            out += "\\e";
        else if (ch == '-')
            out += "\\-";
        else if (ch == '"')
            out += "\\(dq";
        else
            out += ch;
    }
    return out;
}

/// A line of text; a leading dot or apostrophe begins no macro.
std::string line(std::string_view text) {
    const bool looksLikeMacro = text.starts_with('.') || text.starts_with('\'');
    return (looksLikeMacro ? "\\&" : "") + escaped(text) + "\n";
}

/// Sentences, one a line, as the formatter wants them.
std::string sentences(std::string_view text) {
    std::string out;
    for (size_t end = 0; end != text.npos;) {
        end = text.find(". ");
        out += line(text.substr(0, end == text.npos ? end : end + 1));
        if (end != text.npos) text.remove_prefix(end + 2);
    }
    return out;
}

/// A word among the arguments of a macro, which may be the name of one.
std::string argument(std::string_view word) { return " \\&" + escaped(word); }

/// A list of alternatives such as one|two is literal, anything else stands for a value.
std::string valueOf(const OptionUsage &option) {
    if (option.value.empty()) return "";
    const bool isLiteral = option.value.find('|') != std::string::npos;
    return (isLiteral ? " Cm" : " Ar") + argument(option.value);
}

std::string itemOf(const OptionUsage &option) {
    std::string item = ".It";
    std::string_view separator;
    for (const std::string &name : option.names) {
        item.append(separator).append(" Fl").append(argument(name.substr(1)));
        separator = " ,";
    }
    return item + valueOf(option) + "\n" + sentences(option.description + ".");
}

std::string synopsisLine(const CommandUsage &command) {
    std::string out = ".Nm\n.Cm" + argument(command.name) + "\n";
    for (const OptionUsage &option : command.options)
        if (option.isRequired)
            out += ".Fl" + argument(option.names.back().substr(1)) + valueOf(option) + "\n";
    out += ".Op Ar OPTION...\n";
    for (const ArgumentUsage &usage : command.arguments)
        out += (usage.isRequired ? ".Ar" : ".Op Ar") + argument(usage.name) +
               (usage.repeats ? "...\n" : "\n");
    return out;
}

/// Paragraphs; lines that begin with a blank are examples.
std::string paragraphs(std::string_view text) {
    std::string out;
    bool inExample = false;
    while (!text.empty()) {
        const std::string_view paragraph = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), paragraph.size() + 1));
        if (paragraph.empty()) continue;
        const bool isExample = paragraph.starts_with(' ');
        if (isExample != inExample) out += isExample ? ".Bd -literal -offset indent\n" : ".Ed\n";
        inExample = isExample;
        if (isExample)
            out += line(paragraph.substr(paragraph.find_first_not_of(' ')));
        else
            out += ".Pp\n" + sentences(paragraph);
    }
    return inExample ? out + ".Ed\n" : out;
}

std::string sectionOf(const CommandUsage &command) {
    std::string out = ".Ss" + argument(command.name) + "\n" + synopsisLine(command) + ".Pp\n" +
                      sentences(command.description + ".") + paragraphs(command.more);
    std::string items;
    for (const ArgumentUsage &usage : command.arguments)
        if (usage.name != "FILE")
            items += ".It Ar" + argument(usage.name) + "\n" + sentences(usage.description + ".");
    for (const OptionUsage &option : command.options)
        if (option.group != commonOptions) items += itemOf(option);
    if (!items.empty()) out += ".Bl -tag -width Ds\n" + items + ".El\n";
    return out;
}

std::string join(const std::vector<CommandUsage> &commands,
                 const std::function<std::string(const CommandUsage &)> &format) {
    std::string out;
    for (const CommandUsage &command : commands)
        out += format(command);
    return out;
}

/// Each common option once, from whichever command has it.
std::string commonItems(const ProgramUsage &usage) {
    std::vector<std::string> items;
    for (const CommandUsage &command : usage.commands)
        for (const OptionUsage &option : command.options) {
            const std::string item = itemOf(option);
            if (option.group == commonOptions && std::ranges::find(items, item) == items.end())
                items.push_back(item);
        }
    std::string out;
    for (const std::string &item : items)
        out += item;
    return out;
}

std::string charsetNames() {
    std::string names;
    for (voCharset charset = 0; VO_CHARSET_OK(charset); ++charset)
        names += "\\%" + escaped(charsetName(charset)) + // not to be hyphenated
                 (VO_CHARSET_OK(charset + 1) ? ",\n" : ".\n");
    return names;
}

std::string statusItems(const ProgramUsage &usage) {
    std::string out;
    for (const auto &[status, meaning] : usage.statuses)
        out += ".It" + argument(std::to_string(status)) + "\n" + line(meaning);
    return out;
}

} // namespace

std::string manualOf(const ProgramUsage &usage, const std::string &source) {
    const std::map<std::string_view, std::string> places = {
        {"@OS@\n", ".Os voxml " + usage.version + "\n"},
        {"@SYNOPSIS@\n", join(usage.commands, synopsisLine)},
        {"@COMMANDS@\n", join(usage.commands, sectionOf)},
        {"@COMMON_OPTIONS@\n", commonItems(usage)},
        {"@CHARSETS@\n", charsetNames()},
        {"@EXIT_STATUS@\n", statusItems(usage)},
    };
    std::string page;
    std::string_view rest = source;
    while (!rest.empty()) {
        const std::string_view text = rest.substr(0, rest.find('\n') + 1);
        const auto place = places.find(text);
        page += place == places.end() ? text : std::string_view(place->second);
        rest.remove_prefix(text.size());
    }
    return page;
}

} // namespace tool
