#include "command_line.hpp"

#include "closest.hpp"
#include "commands.hpp"
#include "help.hpp"
#include "terminal.hpp"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <thread>
#include <utility>

#include <unistd.h>

namespace tool {
namespace {

std::vector<std::pair<int, std::string>> statuses() {
    return {
        {fine, "all is well"},
        {refused, "an input is not acceptable"},
        {wrongUsage, "wrong usage"},
        {fileTrouble, "a file could not be read or written"},
        {charsetTooSmall, "the character set cannot hold the text"},
        {nothingSelected, "nothing was selected"},
        {outOfMemory, "out of memory"},
    };
}

OptionUsage usageOf(const CLI::Option &option) {
    OptionUsage usage{{},
                      option.get_option_text(),
                      option.get_description(),
                      option.get_group(),
                      option.get_required()};
    for (const std::string &name : option.get_snames())
        usage.names.push_back("-" + name);
    for (const std::string &name : option.get_lnames())
        usage.names.push_back("--" + name);
    return usage;
}

/// A command's own options stand before those that most commands have.
CommandUsage usageOf(const CLI::App &app) {
    CommandUsage usage{app.get_name(), app.get_description(), app.get_footer(), {}, {}};
    for (const CLI::Option *option : app.get_options())
        if (option->nonpositional())
            usage.options.push_back(usageOf(*option));
        else
            usage.arguments.push_back({option->get_name(true), option->get_description(),
                                       option->get_required(),
                                       option->get_items_expected_max() > 1});
    std::stable_partition(usage.options.begin(), usage.options.end(),
                          [](const OptionUsage &option) { return option.group != commonOptions; });
    return usage;
}

/// "help COMMAND" is another way to say "COMMAND --help".
void acceptHelp(std::vector<std::string> &arguments) {
    if (arguments.empty() || arguments.front() != "help") return;
    arguments.erase(arguments.begin());
    arguments.push_back("--help");
}

/// The command line: options are read into the request, and a command is chosen.
class CommandLine {
  public:
    CommandLine() {
        app.require_subcommand(1);
        app.set_version_flag("--version", "voxml " TOOL_VERSION, "Print the version and exit");
        app.set_help_flag("-h,--help", "Print this help and exit");
        app.footer("Of several inputs the largest status counts.\n"
                   "'voxml help COMMAND' tells more about a command, 'man voxml' more about all.");
        addCheck();
        addWriters();
        addImport();
        addViews();
        addEdit();
        addDiff();
        addJson();
    }

    Status run(std::vector<std::string> arguments) {
        acceptHelp(arguments);
        protectFiles(arguments);
        std::reverse(arguments.begin(), arguments.end()); // the parser's order
        try {
            app.parse(std::move(arguments));
        } catch (const CLI::ParseError &error) {
            return answer(error);
        }
        if (!request.each.empty() && !request.path.empty())
            request.files.insert(request.files.begin(), std::exchange(request.path, ""));
        if (request.files.empty()) request.files = {request.recursive ? "." : "-"};
        request.command = app.get_subcommands().front()->get_name();
        if (request.jobs == 0) request.jobs = std::max(1U, std::thread::hardware_concurrency());
        setColors(colors);
        request.quiet = request.quiet && !json;
        setMessages(json ? Messages::json : request.quiet ? Messages::none : Messages::forPeople);
        return command(request);
    }

    ProgramUsage usage() const {
        ProgramUsage program{TOOL_VERSION, usageOf(app), {}, statuses()};
        for (const CLI::App *sub : app.get_subcommands({}))
            program.commands.push_back(usageOf(*sub));
        return program;
    }

  private:
    using Command = Status (*)(const Request &);

    static constexpr const char *ownOptions = "Options";

    /// What an edit is called, and what it takes.
    struct EditForm {
        const char *name;
        XML_EDIT_ACTION action;
        const char *values; ///< The last but PATH and NAME is its text.
        const char *description;
    };
    static constexpr EditForm editForms[] = {
        {"--set", XML_EDIT_ACTION_SET, "PATH VALUE",
         "Set the value of attributes, texts and comments, or the content of elements, to a text"},
        {"--set-xml", XML_EDIT_ACTION_SET_CONTENT, "PATH XML", "Set the content of elements"},
        {"--set-attribute", XML_EDIT_ACTION_SET_ATTRIBUTE, "PATH NAME VALUE",
         "Set an attribute of elements, or add it"},
        {"--delete", XML_EDIT_ACTION_DELETE, "PATH", "Remove nodes"},
        {"--rename", XML_EDIT_ACTION_RENAME, "PATH NAME", "Rename elements and attributes"},
        {"--insert-before", XML_EDIT_ACTION_INSERT_BEFORE, "PATH XML", "Put XML before nodes"},
        {"--insert-after", XML_EDIT_ACTION_INSERT_AFTER, "PATH XML", "Put XML behind nodes"},
        {"--insert-into", XML_EDIT_ACTION_INSERT_INTO, "PATH XML",
         "Put XML at the end of the content of elements"},
    };

    static std::ptrdiff_t valuesOf(const EditForm &form) {
        return 1 + std::ranges::count(std::string_view(form.values), ' ');
    }

    /// Protects all arguments but the values of edits.
    static void protectFiles(std::vector<std::string> &arguments) {
        for (size_t i = 0; i < arguments.size(); ++i) {
            const auto *form = std::ranges::find(editForms, arguments[i], &EditForm::name);
            if (form != std::end(editForms))
                i += static_cast<size_t>(valuesOf(*form));
            else
                protect(arguments[i]);
        }
    }

    /// Keeps the parser from reading a file name such as [a,b] as a list of two names.
    static void protect(std::string &argument) {
        if (argument.starts_with('[') && argument.ends_with(']')) argument.insert(0, "./");
    }

    void addCheck() {
        CLI::App *sub = add("check", check, "Tell what is wrong with documents, if anything");
        namespaces(sub, "Check the use of namespaces as well");
        sub->add_flag("--strict", request.strict,
                      "Judge by XML 1.0 as other readers do, not by what this library takes");
        sub->add_flag("--fail-fast", request.failFast, "Stop at the first input with an error");
        jobs(sub);
        sub->footer("Says nothing when all is well. An error comes with its place, the line there "
                    "and, where one is known, a hint.\n"
                    "\n"
                    "Without --strict it takes what voxml itself reads, though others refuse it: "
                    "several root elements or none, text beside them, control characters, "
                    "references to entities that are not declared, white space in front of the "
                    "XML declaration. --ns tells of prefixes that are not declared, with --strict "
                    "as well.\n"
                    "\n"
                    "  voxml check -r -j0 FOLDER    all XML files in a folder, on all processors");
    }

    void addWriters() {
        CLI::App *sub = add("canonical", canonical, "Write documents in canonical layout");
        writing(sub);
        sub->footer("The canonical layout keeps every node and text. Tags have one form: one blank "
                    "before each attribute, values in double quotes (in apostrophes where that "
                    "needs fewer escapes), <a/> for an element without content.\n"
                    "\n"
                    "  voxml canonical -i a.xml    writes it over the file");

        sub = add("format", format, "Indent documents; tell which ones are not formatted");
        layout(sub);
        writing(sub);
        sub->footer("Line ends and blanks are added where no text is, so that the document stays "
                    "the same for programs that do not count those.\n"
                    "\n"
                    "  voxml format -i a.xml             indents the file\n"
                    "  voxml format --check -r folder    tells which files are not indented");

        sub = add("convert", convert, "Write documents in another character set");
        sub->add_option("--to", request.charset, "The character set; see voxml charsets")
            ->option_text("CHARSET")
            ->required();
        writing(sub);
        sub->footer("The document is written in canonical layout, and its declaration names the "
                    "character set. Nothing is written where that lacks a character of the text.\n"
                    "\n"
                    "  voxml convert --to UTF-8 -o new.xml old.xml");
    }

    void addImport() {
        CLI::App *sub =
            add("import", canonical, "Write any well-formed XML documents in canonical layout");
        sub->parse_complete_callback([this] { request.import = true; });
        writing(sub);
        sub->footer("The other commands refuse a document without an XML declaration, with a "
                    "DOCTYPE or with character references in text. Importing takes it: references "
                    "are replaced, entities and default attributes of the DOCTYPE applied, and the "
                    "DOCTYPE itself left out. Nothing outside the document is ever read. With "
                    "--import other commands do the same first.\n"
                    "\n"
                    "  voxml import page.xhtml | voxml tree");
    }

    void addViews() {
        CLI::App *sub = add("tree", tree, "Print the tree of nodes for people to read");
        namespaces(sub, "Show names as {namespace}name, and declarations");
        sub->add_flag("--locations", request.locations, "Show the line and column of each node");
        jobs(sub);
        sub->footer("One node a line, indented by depth. Texts stand in quotes, with line ends and "
                    "control characters as escapes.");

        sub = add("select", select, "Print what paths select", "PATH");
        selecting(sub);
        jobs(sub);
        sub->footer(
            "Paths are those of XPath 1.0 in their short form: a/b, //b, @id, text(), *, .., "
            "a | b, with conditions such as [2], [last()], [@id='x'], [not(b)], "
            "[contains(., 'x')], [count(b) > 1]. Names without a prefix have no namespace; "
            "_:name has the default namespace of the document's root, {namespace}name any. "
            "Elements are printed as XML, attributes and texts as what they stand for. With "
            "--each there is no PATH before the files.\n"
            "\n"
            "  voxml select '//dish[@price < 10]/name' menu.xml\n"
            "  voxml select --csv --each //dish --column id=@id --column name=name menu.xml");

        sub = add("stats", stats, "Count nodes, and measure the time that decoding takes");
        sub->footer("Of several files each has its figures, and all have a total.");

        sub = addBare("charsets", charsets, "List the character sets with their aliases");
        sub->footer("A line has the number of the character set, its name and its aliases. Names "
                    "count in upper and lower case alike.");
    }

    void addEdit() {
        CLI::App *sub = add("edit", edit, "Change what paths select, and not a byte more");
        editing(sub);
        destination(sub);
        sub->footer(
            "Paths are those of 'voxml select', and all select in the document as it was. Edits "
            "at the same place follow each other in their order. Values are texts and are escaped; "
            "XML is what an element may hold. An element, comment or processing instruction that "
            "stands alone on its line is deleted with the line. All other bytes stay as they are, "
            "in any character set. Nothing is written where the edited document would not be "
            "acceptable.\n"
            "\n"
            "  voxml edit -i --set \"//dish[@id='x']/@price\" 9.50 menu.xml\n"
            "  voxml edit --delete //comment() --rename //dish meal menu.xml");
    }

    void addDiff() {
        CLI::App *sub = addBare("diff", diff, "Tell what differs between two documents");
        sub->add_option("FILE", request.files, "The two documents; one of them may be -")
            ->expected(2)
            ->required();
        namespaces(sub, "Compare names by namespace, whatever the prefixes");
        sub->add_flag("--ignore-space", request.ignoreSpace,
                      "Ignore texts of white space, and how texts are broken into lines");
        sub->add_flag("--json", request.asJson, "Print each difference as a JSON object in a line");
        reading(sub);
        sub->footer("The order of attributes, the XML declaration and how characters are escaped "
                    "do not count. The exit status is 0 when nothing differs, 1 when something "
                    "does, and 3 when a document cannot be read or is not acceptable.\n"
                    "\n"
                    "  voxml diff --ignore-space old.xml new.xml");
    }

    void addJson() {
        CLI::App *sub = add("json", tool::json,
                            "Write documents as JSON, one a line, or make documents of that");
        sub->add_flag(
            "--compact", request.compact,
            "For programs that want data: without order, comments and the like, so that no "
            "document comes back");
        sub->add_flag("--reverse", request.reverse, "Read JSON and write documents");
        output(sub);
        sub->footer(
            "All but the layout of tags is kept, so that --reverse gives the canonical layout:\n"
            "  {\"version\":\"1.0\",\"encoding\":\"UTF-8\",\"standalone\":true,\"content\":[...]}\n"
            "  {\"element\":\"p:name\",\"attributes\":{\"a\":\"value\"},\"content\":[...]}\n"
            "  \"text\", {\"comment\":\"...\"}, {\"cdata\":\"...\"}, {\"instruction\":\"target "
            "data\"}\n"
            "A text or an attribute's value with other references than &lt; and &amp; is an "
            "object; "
            "escaped counts as long as it stands for text:\n"
            "  {\"text\":\"a > b\",\"escaped\":\"a &gt; b\"}\n"
            "In the compact form elements of one name are a list, empty ones null, and texts lose "
            "the white space around them:\n"
            "  {\"root\":{\"@attribute\":\"value\",\"element\":[\"1\",\"2\"],\"#text\":\"text\"}}\n"
            "\n"
            "  voxml json --compact -r -j0 folder    a line for each file");
    }

    CLI::App *addBare(const char *name, Command function, const char *description) {
        CLI::App *sub = app.add_subcommand(name, description);
        sub->callback([this, function] { command = function; });
        sub->option_defaults()->group(commonOptions);
        sub->set_help_flag("-h,--help", "Print this help and exit");
        sub->option_defaults()->group(ownOptions);
        return sub;
    }

    /// A command that takes files, perhaps behind a path.
    CLI::App *add(const char *name, Command function, const char *description,
                  const char *optionalPath = nullptr) {
        CLI::App *sub = addBare(name, function, description);
        if (optionalPath) sub->add_option(optionalPath, request.path, "What to select");
        sub->add_option("FILE", request.files, "The documents; none or - is standard input");
        sub->option_defaults()->group(commonOptions);
        sub->add_flag("-r,--recursive", request.recursive, "Read the files in folders, too");
        sub->add_option("--name", request.patterns,
                        "Of the files in folders only those with such a name; *.xml by default")
            ->option_text("PATTERN")
            ->allow_extra_args(false);
        reading(sub);
        return sub;
    }

    /// What commands that read documents have in common.
    void reading(CLI::App *sub) {
        sub->option_defaults()->group(commonOptions);
        sub->add_flag("--import", request.import,
                      "Take any well-formed XML: with DOCTYPE, without a declaration and so on");
        sub->add_option("--stdin-name", request.standardInput, "What messages call standard input")
            ->option_text("NAME");
        sub->add_flag("-q,--quiet", request.quiet,
                      "No messages about inputs, only the exit status");
        sub->add_flag("--json-errors", json, "Messages as JSON, one object a line");
        sub->add_option("--color", colors, "When to use colours; auto is on terminals")
            ->option_text("auto|always|never")
            ->transform(CLI::Transformer(std::map<std::string, Colors>{{"auto", Colors::automatic},
                                                                       {"always", Colors::always},
                                                                       {"never", Colors::never}}));
        sub->option_defaults()->group(ownOptions);
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

    void selecting(CLI::App *sub) {
        using Show = Request::Show;
        const auto show = [&](const char *name, Show form, const char *description) {
            sub->add_flag_callback(
                name, [this, form] { request.show = form; }, description);
        };
        show("--text", Show::text, "Print string values, also of elements");
        show("--count", Show::count, "Print how many nodes there are in each document");
        show("--locations", Show::locations, "Print file:line:column for each node");
        show("--json", Show::json, "Print each node as a JSON object in a line");
        show("--csv", Show::csv, "Print a table, see --each");
        show("--tsv", Show::tsv, "The same with tabs between the columns");
        const auto list = [&](const char *name, auto &values, const char *text,
                              const char *description) {
            sub->add_option(name, values, description)->option_text(text)->allow_extra_args(false);
        };
        bindings(sub);
        list("--each", request.each, "PATH", "For a table: what becomes a row");
        list("--column", request.columns, "NAME=PATH",
             "A column: its name, and a path from the row, of which the first node counts");
    }

    void bindings(CLI::App *sub) {
        sub->add_option("--ns", request.bindings, "Bind a prefix")
            ->option_text("PREFIX=NAMESPACE")
            ->allow_extra_args(false);
    }

    /// An option for each edit. They are taken one by one, so that their order is known.
    void editing(CLI::App *sub) {
        using Two = std::pair<std::string, std::string>;
        using Three = std::tuple<std::string, std::string, std::string>;
        for (const EditForm &form : editForms) {
            const XML_EDIT_ACTION action = form.action;
            const auto take = [this](const EditRequest &edit) { request.edits.push_back(edit); };
            CLI::Option *option = nullptr;
            if (valuesOf(form) == 1)
                option =
                    sub->add_option_function<std::string>(form.name, [=](const std::string &path) {
                        take({action, path, {}, {}});
                    });
            else if (valuesOf(form) == 2)
                option = sub->add_option_function<Two>(form.name, [=](const Two &two) {
                    const bool isName = action == XML_EDIT_ACTION_RENAME;
                    take({action, two.first, isName ? two.second : "", isName ? "" : two.second});
                });
            else
                option = sub->add_option_function<Three>(form.name, [=](const Three &three) {
                    const auto &[path, name, text] = three;
                    take({action, path, name, text});
                });
            option->description(form.description)->option_text(form.values)->trigger_on_parse();
        }
        bindings(sub);
    }

    void layout(CLI::App *sub) {
        sub->add_option("--indent", request.indent,
                        "Blanks for each level, 0 to 16, or tab; 2 by default")
            ->option_text("N|tab")
            ->check([blanks = CLI::Range(0, 16)](const std::string &indent) {
                const bool isFine = indent == "tab" || blanks(indent).empty();
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
        output(sub);
    }

    void output(CLI::App *sub) {
        sub->add_flag("--no-declaration", request.noDeclaration, "Leave out the XML declaration");
        destination(sub);
    }

    /// Where they write.
    void destination(CLI::App *sub) {
        sub->add_option("-o,--output", request.output,
                        "Write to this file, whole or not at all; - is standard output")
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
            writeOut(error.get_name() == "CallForHelp" ? help() : error.what() + std::string("\n"));
            return fine;
        }
        const auto chosen = app.get_subcommands();
        if (chosen.empty())
            reportUsage("voxml", unknownCommand());
        else
            reportUsage("voxml " + chosen.back()->get_name(), mistake(*chosen.back(), error));
        return wrongUsage;
    }

    std::string help() const {
        const auto chosen = app.get_subcommands();
        const int width = columns(STDOUT_FILENO);
        const Painter painter(STDOUT_FILENO);
        return chosen.empty() ? helpOf(usage(), width, painter)
                              : helpOf(usageOf(*chosen.back()), width, painter);
    }

    std::string mistake(const CLI::App &sub, const CLI::ParseError &error) const {
        if (const auto before = app.remaining(); !before.empty())
            return "'" + before.front() + "' stands before the command, where options follow it";
        const auto rest = sub.remaining();
        if (rest.empty() || !rest.front().starts_with('-')) return error.what();
        const std::string what = "unknown option '" + rest.front() + "'";
        if (isFile(rest.front())) return what + "; write the file as ./" + rest.front();
        std::vector<std::string> known;
        for (const CLI::Option *option : sub.get_options())
            for (const std::string &name : option->get_lnames())
                known.push_back("--" + name);
        return what + suggestion(rest.front(), known);
    }

    static bool isFile(const std::string &path) { return access(path.c_str(), F_OK) == 0; }

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
        if (isFile(rest.front()))
            return "a command is required before '" + rest.front() + "', such as check";
        return "unknown command '" + rest.front() + "'" + suggestion(rest.front(), known);
    }

    CLI::App app{"voxml reads and writes XML documents.", "voxml"};
    Request request;
    Colors colors = Colors::automatic;
    bool json = false;
    Command command = nullptr;
};

} // namespace

Status runCommandLine(std::vector<std::string> arguments) {
    return CommandLine().run(std::move(arguments));
}

ProgramUsage usageOfProgram() { return CommandLine().usage(); }

} // namespace tool
