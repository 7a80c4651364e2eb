// What the command line asks for.
#pragma once

#include "xml/xml_edit.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tool {

/// One edit, as the command line says it.
struct EditRequest {
    XML_EDIT_ACTION action;
    std::string path, name, text;
};

/// What the command line asks for. Each command looks at what concerns it.
struct Request {
    std::string command;                           ///< As it is named in messages.
    std::vector<std::string> files;                ///< "-" is standard input; never empty.
    std::string standardInput = "<stdin>";         ///< What messages call that.
    bool recursive = false;                        ///< Read the files in folders
    std::vector<std::string> patterns = {"*.xml"}; ///< whose names match one of these.
    size_t jobs = 1;
    bool import = false;
    bool strict = false; ///< Judge by XML 1.0.
    bool namespaces = false;
    bool failFast = false;
    bool quiet = false; ///< No messages about inputs.
    bool noDeclaration = false;
    bool locations = false;
    std::string output;       ///< Standard output when empty or "-".
    bool inPlace = false;     ///< Write each document over its file.
    bool concatenate = false; ///< Several documents may go to one output.
    std::string charset;
    std::string indent = "2"; ///< Blanks for each level, or "tab".
    int64_t width = 0;        ///< Columns for a start tag; 0 is without limit.
    bool check = false;       ///< Only tell which documents are not formatted.

    bool ignoreSpace = false; ///< Compare texts without regard to white space.
    bool asJson = false;      ///< Tell differences as JSON.
    bool compact = false;     ///< JSON in the compact form,
    bool reverse = false;     ///< or documents from JSON.

    /// How select shows what it finds.
    enum class Show { content, text, count, locations, json, csv, tsv } show = Show::content;
    std::string path;
    std::vector<std::string> bindings; ///< As prefix=namespace.
    std::string each;                  ///< The path to what becomes a row,
    std::vector<std::string> columns;  ///< and the columns, as name=path.
    std::vector<EditRequest> edits;    ///< In the order of the command line.
};

} // namespace tool
