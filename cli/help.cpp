#include "help.hpp"

#include "wrap.hpp"

#include <algorithm>

namespace tool {
namespace {

/// Writes texts with an indentation, broken between words.
class Page {
  public:
    Page(int columns, const Painter &headings)
        : width(static_cast<size_t>(std::min(columns, readable))), painter(headings) {}

    /// Words behind what the line has already; further lines are indented.
    void words(std::string_view text, size_t indentation) {
        const size_t column = out.size() - (out.rfind('\n') + 1); // npos + 1 is 0
        out += wrapped(text, {column, indentation, width}) + "\n";
    }

    void heading(std::string_view text) { out += "\n" + painter.bold(text) + "\n"; }

    /// A term and, in a column of its own, what it means.
    void entry(const std::string &term, std::string_view meaning, size_t column) {
        out += "  " + term;
        if (term.size() + 4 > column)
            out += "\n" + std::string(column, ' ');
        else
            out.append(column - term.size() - 2, ' ');
        words(meaning, column);
    }

    /// Paragraphs; lines that begin with a blank stay as they are.
    void paragraphs(std::string_view text) {
        while (!text.empty()) {
            const std::string_view line = text.substr(0, text.find('\n'));
            text.remove_prefix(std::min(text.size(), line.size() + 1));
            if (line.starts_with(' '))
                out.append(line).append("\n");
            else
                words(line, 0);
        }
    }

    std::string out;

  private:
    static constexpr int readable = 100; ///< Longer lines are hard to read.

    size_t width;
    const Painter &painter;
};

std::string termOf(const OptionUsage &option) {
    std::string term(option.names.front().starts_with("--") ? "    " : "");
    std::string_view separator;
    for (const std::string &name : option.names) {
        term.append(separator).append(name);
        separator = ", ";
    }
    return option.value.empty() ? term : term + " " + option.value;
}

constexpr auto nameOf = [](const auto &usage) { return usage.name; };

/// The column for meanings: behind the terms, but for the few that are long.
template <class Entries, class Term> size_t columnFor(const Entries &entries, Term term) {
    constexpr size_t most = 28;
    size_t column = 0;
    for (const auto &entry : entries)
        column = std::max(column, term(entry).size() + 4);
    return std::min(column, most);
}

void writeOptions(const std::vector<OptionUsage> &options, Page &page) {
    const size_t column = columnFor(options, termOf);
    std::vector<std::string> groups;
    for (const OptionUsage &option : options)
        if (std::ranges::find(groups, option.group) == groups.end()) groups.push_back(option.group);
    for (const std::string &group : groups) {
        page.heading(group + ":");
        for (const OptionUsage &option : options)
            if (option.group == group) page.entry(termOf(option), option.description, column);
    }
}

} // namespace

std::string synopsisOf(const CommandUsage &usage) {
    std::string synopsis;
    for (const OptionUsage &option : usage.options)
        if (option.isRequired) synopsis += " " + option.names.back() + " " + option.value;
    synopsis += " [OPTION...]";
    for (const auto &[name, description, isRequired, repeats] : usage.arguments) {
        const std::string word = name + (repeats ? "..." : "");
        synopsis += isRequired ? " " + word : " [" + word + "]";
    }
    return synopsis;
}

std::string helpOf(const ProgramUsage &usage, int columns, const Painter &painter) {
    Page page(columns, painter);
    page.paragraphs(usage.program.description);
    page.heading("Usage:");
    page.out += "  voxml COMMAND [OPTION...] [FILE...]\n";
    page.heading("Commands:");
    const size_t column = columnFor(usage.commands, nameOf);
    for (const CommandUsage &command : usage.commands)
        page.entry(command.name, command.description, column);
    writeOptions(usage.program.options, page);
    page.heading("Exit status:");
    for (const auto &[status, meaning] : usage.statuses)
        page.entry(std::to_string(status), meaning, 5);
    page.out += '\n';
    page.paragraphs(usage.program.more);
    return std::move(page.out);
}

std::string helpOf(const CommandUsage &usage, int columns, const Painter &painter) {
    Page page(columns, painter);
    page.paragraphs(usage.description + ".");
    page.heading("Usage:");
    page.out += "  voxml ";
    page.words(usage.name + synopsisOf(usage), 4);
    if (!usage.arguments.empty()) page.heading("Arguments:");
    const size_t column = columnFor(usage.arguments, nameOf);
    for (const ArgumentUsage &argument : usage.arguments)
        page.entry(argument.name, argument.description, column);
    writeOptions(usage.options, page);
    if (!usage.more.empty()) page.out += '\n';
    page.paragraphs(usage.more);
    return std::move(page.out);
}

} // namespace tool
