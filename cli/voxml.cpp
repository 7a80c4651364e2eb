// The command-line tool.
#include "commands.hpp"
#include "files.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <new>
#include <sstream>

using namespace tool;

namespace {

/// The library's shared state, for the time of the program.
struct Session {
    Session() { voModuleStartup(xmlModule()); }
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;
    ~Session() { voModuleShutdown(xmlModule()); }
};

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
        if (request.files.empty()) request.files = {"-"};
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
                                          "Of several inputs the largest status counts.";

    void addCommands() {
        CLI::App *sub = add("check", check, "Tell what is wrong with documents, if anything");
        namespaces(sub, "Check the use of namespaces as well");
        sub->add_flag("--fail-fast", request.failFast, "Stop at the first input with an error");

        sub = add("canonical", canonical, "Write documents in canonical layout");
        writing(sub);

        sub = add("convert", convert, "Write documents in another character set");
        sub->add_option("--to", request.charset, "The character set; see voxml charsets")
            ->option_text("CHARSET (required)")
            ->required();
        writing(sub);

        sub = add("tree", tree, "Print the tree of nodes for people to read");
        namespaces(sub, "Show names as {namespace}name, and declarations");
        sub->add_flag("--locations", request.locations, "Show the line and column of each node");

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
        return sub;
    }

    void namespaces(CLI::App *sub, const char *description) {
        sub->add_flag("--ns", request.namespaces, description);
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
        sub->parse_complete_callback([this] {
            if (!request.output.empty() && request.files.size() > 1)
                throw CLI::ValidationError("-o", "takes one input file only");
        });
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
            reportUsage("voxml " + chosen.back()->get_name(), error.what());
        return wrongUsage;
    }

    std::string unknownCommand() const {
        const auto rest = app.remaining();
        if (rest.empty()) return "a command is required";
        return (rest.front().starts_with('-') ? "unknown option '" : "unknown command '") +
               rest.front() + "'";
    }

    CLI::App app{"Reads and writes XML documents.", "voxml"};
    Request request;
    Command command = nullptr;
};

} // namespace

int main(int argc, char **argv) {
    prepareStreams();
    Session session;
    try {
        return CommandLine().run({argv + 1, argv + argc});
    } catch (const Stop &stop) {
        return stop.status;
    } catch (const std::bad_alloc &) {
        reportUsage("voxml", "there is not enough memory");
        return fileTrouble;
    }
}
