#include "commands.hpp"

#include "charset.hpp"
#include "files.hpp"
#include "inorder.hpp"
#include "inputs.hpp"
#include "misfit.hpp"
#include "stats.hpp"
#include "tree.hpp"

#include <algorithm>
#include <optional>

namespace tool {
namespace {

struct Input {
    std::string path;
    std::string name; ///< For messages.
    Ref<voBuffer> bytes;
};

/// The files that the command line names; none is trouble as well.
Inputs inputsOf(const Request &request) {
    if (!request.recursive) return {request.files};
    Inputs inputs = inFolders(request.files, request.patterns);
    if (!inputs.files.empty() || inputs.status != fine) return inputs;
    report({request.files.front(), {}, "no file in it has a name that is asked for", {}, {}}, {});
    inputs.status = fileTrouble;
    return inputs;
}

DecodeWish wishOf(const Request &request) {
    return {request.namespaces, request.locations, request.import, !request.quiet};
}

/// Handles every file, whatever becomes of the others.
template <class Handle>
Status forEach(const Request &request, const Inputs &inputs, Handle handle) {
    const auto readAndHandle = [&](const std::string &file) {
        Input input{file, file == "-" ? request.standardInput : file.empty() ? "\"\"" : file, {}};
        const int error = readFile(file, input.bytes);
        return error ? reportFile(input.name, "cannot be read", error) : handle(input);
    };
    const Pace pace{request.jobs, request.failFast};
    return std::max(inputs.status, inOrder(inputs.files, readAndHandle, pace));
}

template <class Handle> Status forEach(const Request &request, Handle handle) {
    return forEach(request, inputsOf(request), handle);
}

/// The text of an input for showing a line of it; empty where it is not known.
Ref<voString> textOf(const Input &input) {
    Ref text(xmlDocumentTryDecodeText(input.bytes));
    if (!text)
        text = Ref(voCharsetTryConvertBufferToStringWithFlags(VO_CHARSET_UTF_8, input.bytes,
                                                              VO_CHARSET_FLAG_BOM));
    return text ? std::move(text) : makeString(Chars());
}

Status refuse(const Request &request, const Input &input, const Failure &failure) {
    if (request.quiet) return refused;
    Ref text = textOf(input);
    report({input.name, failure.place, failure.text, failure.code, shown(failure.hint)},
           chars(text));
    return refused;
}

/// Reports a text that the character set of the output lacks characters for.
Status refuseMisfit(const Request &request, const Input &input, XML_DOCUMENT *document) {
    if (request.quiet) return charsetTooSmall;
    Ref text = textOf(input);
    const Misfit misfit = firstMisfit(input.bytes, chars(text), document);
    report({input.name, misfit.place, misfit.text, {}, misfit.hint}, chars(text));
    return charsetTooSmall;
}

Status deliver(const Request &request, const Input &input, XML_DOCUMENT *document) {
    Ref options = optionsWith(request.noDeclaration ? XML_FLAG_ENCODE_OMIT_XML_DECLARATION : 0);
    Ref encoded(xmlDocumentTryEncode(document, options));
    if (!encoded) return refuseMisfit(request, input, document);
    const std::string &path = request.inPlace ? input.path : request.output;
    if (path.empty() || path == "-") {
        writeOut({reinterpret_cast<const char *>(voBufferBacking(encoded)),
                  static_cast<size_t>(voBufferLength(encoded))});
        return fine;
    }
    const int error = voFileReplace(path.c_str(), encoded);
    return error ? reportFile(path, "cannot be written", error) : fine;
}

/// Why these documents cannot be written where the request says; empty when they can.
std::string whyNoOutput(const Request &request, const std::vector<std::string> &files) {
    if (request.inPlace && !request.output.empty()) return "-i and -o exclude each other";
    if (request.inPlace && std::ranges::count(files, "-")) return "-i: takes no standard input";
    if (request.inPlace || files.size() <= 1 || request.concatenate) return "";
    return request.output.empty() ? "several documents would become one text; "
                                    "use -i, or --concatenate if that is wanted"
                                  : "-o: takes one input file only";
}

/// Decodes each input and writes it, in its own character set or another.
Status rewrite(const Request &request, std::optional<voCharset> charset) {
    const Inputs inputs = inputsOf(request);
    if (const std::string why = whyNoOutput(request, inputs.files); !why.empty()) {
        reportUsage("voxml " + request.command, why);
        return wrongUsage;
    }
    return forEach(request, inputs, [&](const Input &input) {
        Decoded decoded = decode(input.bytes, wishOf(request));
        if (decoded.failure) return refuse(request, input, *decoded.failure);
        Ref document = request.namespaces ? Ref(xmlNsDocumentEncode(decoded.nsDocument))
                                          : std::move(decoded.document);
        if (charset) xmlDocumentSetCharset(document.edit(), *charset);
        return deliver(request, input, document);
    });
}

} // namespace

Status check(const Request &request) {
    return forEach(request, [&](const Input &input) {
        const Decoded decoded = decode(input.bytes, wishOf(request));
        return decoded.failure ? refuse(request, input, *decoded.failure) : fine;
    });
}

Status canonical(const Request &request) { return rewrite(request, std::nullopt); }

Status convert(const Request &request) {
    const voCharset charset = charsetNamed(request.charset);
    if (charset >= 0) return rewrite(request, charset);
    std::string text = "unknown character set '" + shown(std::string_view(request.charset)) + "'";
    if (const voCharset closest = closestCharset(request.charset); closest >= 0)
        text += "; did you mean " + charsetName(closest) + "?";
    reportUsage("voxml convert", text + " ('voxml charsets' lists all)");
    return wrongUsage;
}

Status tree(const Request &request) {
    return forEach(request, [&](const Input &input) {
        const Decoded decoded = decode(input.bytes, wishOf(request));
        if (decoded.failure) return refuse(request, input, *decoded.failure);
        printTree(decoded, wishOf(request));
        return fine;
    });
}

Status stats(const Request &request) {
    using Clock = std::chrono::steady_clock;
    Stats total;
    int64_t counted = 0;
    const Status status = forEach(request, [&](const Input &input) {
        const auto start = Clock::now();
        const Decoded decoded = decode(input.bytes, wishOf(request));
        const auto end = Clock::now();
        if (decoded.failure) return refuse(request, input, *decoded.failure);
        Stats one;
        one.time = end - start;
        one.bytes = voBufferLength(input.bytes);
        one.count(decoded.document);
        total.add(one);
        ++counted;
        writeOut(shown(std::string_view(input.name)) + "\n" + one.toString());
        return fine;
    });
    if (counted > 1) writeOut("total of " + std::to_string(counted) + "\n" + total.toString());
    return status;
}

Status charsets(const Request &) {
    writeOut(charsetTable());
    return fine;
}

} // namespace tool
