// The command-line tool.
#include "closest.hpp"
#include "commands.hpp"
#include "files.hpp"
#include "terminal.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <new>
#include <sstream>
#include <thread>

#include <unistd.h>

using namespace tool;

namespace {

/// The library's shared state, for the time of the program.
struct Session {
    Session() { voModuleStartup(xmlModule()); }
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;
    ~Session() { voModuleShutdown(xmlModule()); }
};

/// The libraries abort where memory is lacking. Users get a message and a status for that.
void answerLackOfMemory(int) {
    if (errno != ENOMEM) return;
    (void)!writeAll(STDERR_FILENO, "voxml: error: out of memory\n");
    std::_Exit(outOfMemory);
}

/// The command line: options are read into the request, and a command is chosen.
class CommandLine {
  public:
    CommandLine() {
        app.require_subcommand(1);
        app.set_version_flag("--version", "voxml " TOOL_VERSION, "Print the version and exit");
        app.get_formatter()->label("OPTIONS", "OPTION...");
        app.get_formatter()->label("SUBCOMMAND", "COMMAND");
        app.get_formatter()->column_width(28);
        app.footer(footer);
        addCommands();
    }

    Status run(std::vector<std::string> arguments) {
        std::for_each(arguments.begin(), arguments.end(), protect);
        std::reverse(arguments.begin(), arguments.end()); // the parser's order
        try {
            app.parse(std::move(arguments));
        } catch (const CLI::ParseError &error) {
            return answer(error);
        }
        if (request.files.empty()) request.files = {request.recursive ? "." : "-"};
        request.command = app.get_subcommands().front()->get_name();
        if (request.jobs == 0) request.jobs = std::max(1U, std::thread::hardware_concurrency());
        setColors(colors);
        request.quiet = request.quiet && !json;
        setMessages(json ? Messages::json : request.quiet ? Messages::none : Messages::forPeople);
        return command(request);
    }

  private:
    using Command = Status (*)(const Request &);

    /// Keeps the parser from reading a file name such as [a,b] as a list of two names.
    static void protect(std::string &argument) {
        if (argument.starts_with('[') && argument.ends_with(']')) argument.insert(0, "./");
    }

    static constexpr const char *footer = "Exit status:\n"
                                          "  0  all is well\n"
                                          "  1  an input is not acceptable\n"
                                          "  2  wrong usage\n"
                                          "  3  a file could not be read or written\n"
                                          "  4  the character set cannot hold the text\n"
                                          "  5  out of memory\n"
                                          "Of several inputs the largest status counts.";

    void addCommands() {
        CLI::App *sub = add("check", check, "Tell what is wrong with documents, if anything");
        namespaces(sub, "Check the use of namespaces as well");
        sub->add_flag("--strict", request.strict,
                      "Judge by XML 1.0 as other readers do, not by what this library takes");
        sub->add_flag("--fail-fast", request.failFast, "Stop at the first input with an error");
        jobs(sub);

        sub = add("canonical", canonical, "Write documents in canonical layout");
        writing(sub);

        sub = add("format", format, "Indent documents; tell which ones are not formatted");
        layout(sub);
        writing(sub);

        sub = add("convert", convert, "Write documents in another character set");
        sub->add_option("--to", request.charset, "The character set; see voxml charsets")
            ->option_text("CHARSET (required)")
            ->required();
        writing(sub);

        sub = add("import", canonical, "Write any well-formed XML documents in canonical layout");
        sub->parse_complete_callback([this] { request.import = true; });
        writing(sub);

        sub = add("tree", tree, "Print the tree of nodes for people to read");
        namespaces(sub, "Show names as {namespace}name, and declarations");
        sub->add_flag("--locations", request.locations, "Show the line and column of each node");
        jobs(sub);

        add("stats", stats, "Count nodes, measure the time that decoding takes");

        app.add_subcommand("charsets", "List the character sets with their aliases")
            ->callback([this] { command = charsets; });
    }

    /// A command that takes files.
    CLI::App *add(const char *name, Command function, const char *description) {
        CLI::App *sub = app.add_subcommand(name, description);
        sub->callback([this, function] { command = function; });
        sub->add_option("FILE", request.files, "The documents; none or - is standard input")
            ->option_text("...");
        sub->add_flag("--import", request.import,
                      "Take any well-formed XML: with DOCTYPE, without a declaration and so on");
        sub->add_flag("-r,--recursive", request.recursive, "Read the files in folders, too");
        sub->add_option("--name", request.patterns,
                        "Of the files in folders only those with such a name; *.xml by default")
            ->option_text("PATTERN")
            ->allow_extra_args(false);
        sub->add_option("--stdin-name", request.standardInput, "What messages call standard input")
            ->option_text("NAME");
        sub->add_flag("-q,--quiet", request.quiet,
                      "No messages about inputs, only the exit status");
        sub->add_flag("--json-errors", json, "Messages as JSON, one object a line");
        sub->add_option("--color", colors, "When to use colours: auto, always or never")
            ->option_text("WHEN")
            ->transform(CLI::Transformer(std::map<std::string, Colors>{{"auto", Colors::automatic},
                                                                       {"always", Colors::always},
                                                                       {"never", Colors::never}}));
        return sub;
    }

    void jobs(CLI::App *sub) {
        sub->add_option("-j,--jobs", request.jobs,
                        "Work on so many files at once; 0 is one for each processor")
            ->option_text("N")
            ->check(CLI::Range(0, 1024));
    }

    void namespaces(CLI::App *sub, const char *description) {
        sub->add_flag("--ns", request.namespaces, description);
    }

    void layout(CLI::App *sub) {
        sub->add_option("--indent", request.indent,
                        "Blanks for each level, 0 to 16, or tab; 2 by default")
            ->option_text("N|tab")
            ->check([](const std::string &indent) {
                const bool isFine = indent == "tab" || CLI::Range(0, 16)(indent).empty();
                return std::string(isFine ? "" : "expects 0 to 16 or tab");
            });
        sub->add_option("--wrap-attributes", request.width,
                        "In start tags that reach beyond this column, an attribute a line")
            ->option_text("WIDTH")
            ->check(CLI::Range(1, 1'000'000));
        sub->add_flag("--check", request.check,
                      "Write nothing; say which documents are not formatted, with status 1");
    }

    /// The options of commands that write documents.
    void writing(CLI::App *sub) {
        namespaces(sub, "Resolve namespaces and write them anew");
        sub->add_flag("--no-declaration", request.noDeclaration, "Leave out the XML declaration");
        sub->add_option("-o,--output", request.output, "Write to this file, whole or not at all")
            ->option_text("FILE")
            ->check([](const std::string &path) {
                return std::string(path.empty() ? "the name of a file is empty" : "");
            });
        sub->add_flag("-i,--in-place", request.inPlace, "Write each document over its file");
        sub->add_flag("--concatenate", request.concatenate,
                      "Write several documents one behind another");
        jobs(sub);
    }

    /// The parser ends with an exception for help and version as well as for a mistake.
    Status answer(const CLI::ParseError &error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
            std::ostringstream text;
            app.exit(error, text, text);
            writeOut(text.str());
            return fine;
        }
        const auto chosen = app.get_subcommands();
        if (chosen.empty())
            reportUsage("voxml", unknownCommand());
        else
            reportUsage("voxml " + chosen.back()->get_name(), mistake(*chosen.back(), error));
        return wrongUsage;
    }

    static std::string mistake(const CLI::App &sub, const CLI::ParseError &error) {
        const auto rest = sub.remaining();
        if (rest.empty() || !rest.front().starts_with('-')) return error.what();
        std::vector<std::string> known;
        for (const CLI::Option *option : sub.get_options())
            for (const std::string &name : option->get_lnames())
                known.push_back("--" + name);
        return "unknown option '" + rest.front() + "'" + suggestion(rest.front(), known);
    }

    static std::string suggestion(const std::string &wanted, std::span<const std::string> known) {
        const std::string *found = closest(wanted, known);
        return found ? "; did you mean " + *found + "?" : "";
    }

    std::string unknownCommand() const {
        const auto rest = app.remaining();
        if (rest.empty()) return "a command is required";
        std::vector<std::string> known;
        for (const CLI::App *sub : app.get_subcommands({}))
            known.push_back(sub->get_name());
        if (rest.front().starts_with('-')) return "unknown option '" + rest.front() + "'";
        return "unknown command '" + rest.front() + "'" + suggestion(rest.front(), known);
    }

    CLI::App app{"Reads and writes XML documents.", "voxml"};
    Request request;
    Colors colors = Colors::automatic;
    bool json = false;
    Command command = nullptr;
};

} // namespace

int main(int argc, char **argv) {
    prepareStreams();
    (void)std::signal(SIGABRT, answerLackOfMemory);
    Session session;
    try {
        return CommandLine().run({argv + 1, argv + argc});
    } catch (const Stop &stop) {
        return stop.status;
    } catch (const std::bad_alloc &) {
        return reportMemory("voxml");
    }
}
