#include "completions.hpp"

#include "charset.hpp"

#include <string_view>

namespace tool {
namespace {

// ---------------------------------------------------------------- what options take

/// What can stand in the place of a value.
struct Choice {
    bool isFile = false;
    std::vector<std::string> words; ///< Empty where anything can stand there.
};

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> words;
    for (size_t end = 0; end != text.npos; text.remove_prefix(end + 1)) {
        end = text.find(separator);
        words.emplace_back(text.substr(0, end));
        if (end == text.npos) break;
    }
    return words;
}

std::vector<std::string> charsetNames() {
    std::vector<std::string> names;
    for (voCharset charset = 0; VO_CHARSET_OK(charset); ++charset)
        names.push_back(charsetName(charset));
    return names;
}

/// By what a value is called. Of several alternatives those in capitals stand for others.
Choice choiceOf(const std::string &value) {
    if (value.find('|') != value.npos) {
        std::vector<std::string> words = split(value, '|');
        std::erase_if(words,
                      [](const std::string &word) { return word[0] >= 'A' && word[0] <= 'Z'; });
        return {false, words};
    }
    if (value == "CHARSET") return {false, charsetNames()};
    return {value == "FILE" || value == "FOLDER", {}};
}

bool takesFiles(const CommandUsage &command) {
    for (const ArgumentUsage &argument : command.arguments)
        if (choiceOf(argument.name).isFile) return true;
    return false;
}

std::string join(const std::vector<std::string> &words, std::string_view separator) {
    std::string out;
    for (const std::string &word : words)
        out.append(out.empty() ? "" : separator).append(word);
    return out;
}

/// In single quotes, as all three shells read them.
std::string quoted(std::string_view text) {
    std::string out = "'";
    for (const char ch : text)
        out += ch == '\'' ? std::string("'\\''") : std::string(1, ch);
    return out + "'";
}

constexpr std::string_view notice = "made from the command line's definition; changes get lost\n";

// ---------------------------------------------------------------- bash

std::vector<std::string> namesOf(const CommandUsage &command) {
    std::vector<std::string> names;
    for (const OptionUsage &option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

/// What follows an option with a value.
std::string bashValue(const OptionUsage &option) {
    const Choice choice = choiceOf(option.value);
    std::string action;
    if (choice.isFile) action = " _voxml_files";
    if (!choice.words.empty()) action = " _voxml_words " + join(choice.words, " ");
    return "        " + join(option.names, " | ") + ")" + action + " ;;\n";
}

std::string bashCommand(const CommandUsage &command) {
    std::string out = "    " + command.name + ")\n        case $option in\n";
    for (const OptionUsage &option : command.options)
        if (!option.value.empty()) out += bashValue(option);
    out += "        *)\n            if [[ $current == -* ]]; then\n                _voxml_words " +
           join(namesOf(command), " ") + "\n";
    if (takesFiles(command)) out += "            else\n                _voxml_files\n";
    return out + "            fi\n            ;;\n        esac\n        ;;\n";
}

constexpr std::string_view bashStart =
    R"(# What begins with the word typed so far, in upper or lower case.
_voxml_words() {
    local word
    for word; do
        if [[ ${word,,} == "${current,,}"* ]]; then COMPREPLY+=("$word"); fi
    done
}

_voxml_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
}

_voxml() {
    local current=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} command= i
    COMPREPLY=()
    # To bash, --option=value is three words.
    if [[ $current == = ]]; then
        current=
    elif [[ $option == = ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    for ((i = 1; i < COMP_CWORD; ++i)); do
        if [[ ${COMP_WORDS[i]} != -* ]]; then
            command=${COMP_WORDS[i]}
            break
        fi
    done
    case $command in
)";

// ---------------------------------------------------------------- zsh

/// What zsh shows beside a word, in which brackets and colons would mean something.
std::string zshText(std::string_view text) {
    std::string out;
    for (const char ch : text) {
        if (ch == '[' || ch == ']' || ch == ':' || ch == '\\') out += '\\';
        out += ch;
    }
    return out;
}

std::string zshValue(const std::string &value) {
    if (value.empty()) return "";
    const Choice choice = choiceOf(value);
    const std::string label = ":" + zshText(choice.words.empty() ? value : "value") + ":";
    if (choice.isFile) return label + "_files";
    return choice.words.empty() ? label : label + "(" + join(choice.words, " ") + ")";
}

/// One name of an option; the others are not offered together with it.
std::string zshOption(const OptionUsage &option, const std::string &name) {
    const bool isLong = name.starts_with("--");
    const std::string form = option.value.empty() ? "" : isLong ? "=" : "+";
    return "            " +
           quoted("(" + join(option.names, " ") + ")" + name + form + "[" +
                  zshText(option.description) + "]" + zshValue(option.value)) +
           " \\\n";
}

std::string zshCommand(const CommandUsage &command) {
    std::string out = "        " + command.name + ")\n            _arguments -s -S \\\n";
    for (const OptionUsage &option : command.options)
        for (const std::string &name : option.names)
            out += zshOption(option, name);
    for (const ArgumentUsage &argument : command.arguments)
        out += "            " +
               quoted((argument.repeats ? "*:" : ":") + zshText(argument.name) + ":" +
                      (choiceOf(argument.name).isFile ? "_files" : "")) +
               " \\\n";
    return out + "                && return 0\n            ;;\n";
}

// ---------------------------------------------------------------- fish

std::string fishValue(const std::string &value) {
    if (value.empty()) return "";
    const Choice choice = choiceOf(value);
    if (choice.isFile) return " -r -F";
    return choice.words.empty() ? " -x" : " -x -a " + quoted(join(choice.words, " "));
}

std::string fishOption(const std::string &condition, const OptionUsage &option) {
    std::string out = "complete -c voxml -n " + quoted(condition);
    for (const std::string &name : option.names)
        out += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    return out + fishValue(option.value) + " -d " + quoted(option.description) + "\n";
}

std::string fishCommand(const CommandUsage &command) {
    const std::string condition = "__fish_seen_subcommand_from " + command.name;
    std::string out = "complete -c voxml -n __fish_use_subcommand -a " + command.name + " -d " +
                      quoted(command.description) + "\n";
    if (takesFiles(command)) out += "complete -c voxml -n " + quoted(condition) + " -F\n";
    for (const OptionUsage &option : command.options)
        out += fishOption(condition, option);
    return out;
}

} // namespace

std::string bashCompletion(const ProgramUsage &usage) {
    std::string words, out = "# bash completion for voxml, " + std::string(notice);
    for (const CommandUsage &command : usage.commands)
        words += " " + command.name;
    out += bashStart;
    out += "    \"\") _voxml_words" + words + " " + join(namesOf(usage.program), " ") + " ;;\n";
    for (const CommandUsage &command : usage.commands)
        out += bashCommand(command);
    return out + "    esac\n}\n\ncomplete -F _voxml voxml\n";
}

std::string zshCompletion(const ProgramUsage &usage) {
    std::string out = "#compdef voxml\n# zsh completion for voxml, " + std::string(notice) +
                      "\n_voxml() {\n    local curcontext=$curcontext state line\n"
                      "    local -a commands\n    commands=(\n";
    for (const CommandUsage &command : usage.commands)
        out += "        " + quoted(command.name + ":" + zshText(command.description)) + "\n";
    out += "    )\n    _arguments -C \\\n";
    for (const OptionUsage &option : usage.program.options)
        for (const std::string &name : option.names)
            out += zshOption(option, name);
    out += "            '1:command:->command' '*::argument:->rest' && return 0\n"
           "    case $state in\n    command) _describe command commands ;;\n"
           "    rest)\n        case $words[1] in\n";
    for (const CommandUsage &command : usage.commands)
        out += zshCommand(command);
    return out + "        esac\n        ;;\n    esac\n}\n\n_voxml \"$@\"\n";
}

std::string fishCompletion(const ProgramUsage &usage) {
    std::string out =
        "# fish completion for voxml, " + std::string(notice) + "complete -c voxml -f\n";
    for (const OptionUsage &option : usage.program.options)
        out += fishOption("__fish_use_subcommand", option);
    for (const CommandUsage &command : usage.commands)
        out += fishCommand(command);
    return out;
}

} // namespace tool
