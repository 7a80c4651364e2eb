#include "each.hpp"

#include "charset.hpp"
#include "files.hpp"
#include "inorder.hpp"
#include "strict.hpp"
#include "unresolved.hpp"

#include <algorithm>
#include <cerrno>

namespace tool {

/// The words of a list.
static std::string joined(const std::vector<std::string> &words) {
    std::string all;
    for (const std::string &word : words)
        all += (all.empty() ? "" : " or ") + shown(std::string_view(word));
    return all;
}

Inputs inputsOf(const Request &request) {
    if (!request.recursive) return {request.files};
    Inputs inputs = inFolders(request.files, request.patterns);
    if (!inputs.files.empty() || inputs.status != fine) return inputs;
    report(
        {request.files.front(), {}, "no file in it is called " + joined(request.patterns), {}, {}},
        {});
    inputs.status = fileTrouble;
    return inputs;
}

Status forEach(const Request &request, const Inputs &inputs,
               const std::function<Status(const Input &)> &handle) {
    const auto readAndHandle = [&](const std::string &file) {
        Input input{file, file == "-" ? request.standardInput : file.empty() ? "\"\"" : file, {}};
        const int error = readFile(file, input.bytes);
        if (error == 0) return handle(input);
        return reportFile(input.name, "cannot be read", error,
                          error == EISDIR ? "-r reads the files in folders" : "");
    };
    const Pace pace{request.jobs, request.failFast};
    return std::max(inputs.status, inOrder(inputs.files, readAndHandle, pace));
}

/// Tells of an encoding that decoding does without.
static void noteUnknownEncoding(const Input &input, XML_DOCUMENT *document) {
    Ref name(xmlDocumentTryDeclaredEncoding(input.bytes));
    if (!name || VO_CHARSET_OK(voCharsetFromIanaName(name))) return;
    const voCharset closest = closestCharset(utf8(chars(name)));
    report({input.name,
            {},
            "the declared encoding '" + shown(chars(name)) +
                "' is not known; the text is read as " + charsetName(xmlDocumentCharset(document)),
            {},
            closest < 0 ? "" : "did you mean " + charsetName(closest) + "?",
            Severity::note},
           {});
}

/// Tells that what was imported is not read by others without its DOCTYPE, which is gone.
static void noteUnresolved(const Input &input, XML_DOCUMENT *document) {
    if (!firstUnresolved(document)) return;
    const Decoded placed = decode(input.bytes, {.locations = true, .import = true});
    const auto found = firstUnresolved(placed.document);
    report({input.name,
            found->place,
            shown(found->reference) + " is not declared in the document itself",
            {},
            "nothing else is read, so that such references stay as they are; other readers refuse "
            "them without the DOCTYPE",
            Severity::note},
           chars(textOf(input)));
}

Status forEachDecoded(const Request &request, const Inputs &inputs,
                      const std::function<Status(const Input &, Decoded &)> &handle,
                      Refuse refuseOne) {
    return forEach(request, inputs, [&](const Input &input) {
        Decoded decoded = decode(input.bytes, wishOf(request));
        if (decoded.failure) {
            const bool isMalformed = request.import && !decoded.document;
            return (isMalformed ? refuseImport : refuseOne)(request, input, *decoded.failure);
        }
        if (!request.quiet)
            (request.import ? noteUnresolved : noteUnknownEncoding)(input, decoded.document);
        return handle(input, decoded);
    });
}

DecodeWish wishOf(const Request &request) {
    return {request.namespaces, request.locations, request.import, !request.quiet};
}

Ref<voString> textOf(const Input &input) {
    return Ref(xmlDocumentDecodeTextLeniently(input.bytes));
}

Status refuse(const Request &request, const Input &input, const Failure &failure) {
    if (request.quiet) return refused;
    return refuse(input, {{failure}, false}, textOf(input));
}

Status refuse(const Input &input, const Errors &errors, voString *text) {
    for (const Failure &failure : errors.list)
        report({input.name, failure.place, failure.text, failure.code, shown(failure.hint)},
               chars(text));
    if (errors.hasMore)
        report({input.name, {}, "there are more errors", {}, {}, Severity::note}, {});
    return refused;
}

} // namespace tool
