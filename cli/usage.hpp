// What the command line offers, as help, the manual and completions tell it.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tool {

struct OptionUsage {
    std::vector<std::string> names; ///< With their dashes, the short one first.
    std::string value;              ///< What it takes, such as FILE or one|two; empty for a flag.
    std::string description;
    std::string group; ///< The heading that it stands under.
    bool isRequired;
};

struct ArgumentUsage {
    std::string name;
    std::string description;
    bool isRequired;
    bool repeats;
};

struct CommandUsage {
    std::string name;
    std::string description;
    std::string more; ///< Paragraphs; lines that begin with a blank are shown as they stand.
    std::vector<ArgumentUsage> arguments;
    std::vector<OptionUsage> options;
};

struct ProgramUsage {
    std::string version;
    CommandUsage program;
    std::vector<CommandUsage> commands;
    std::vector<std::pair<int, std::string>> statuses; ///< Exit statuses and what they mean.
};

/// What follows the name of a command: what it requires, and what else it takes.
std::string synopsisOf(const CommandUsage &usage);

/// The heading of options that most commands have.
inline constexpr const char *commonOptions = "Common options";

} // namespace tool
