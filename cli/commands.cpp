#include "commands.hpp"

#include "charset.hpp"
#include "deliver.hpp"
#include "stats.hpp"
#include "strict.hpp"
#include "tree.hpp"

#include <optional>

namespace tool {

/// Decodes each input and writes it, in its own character set or another.
static Status rewrite(const Request &request, std::optional<voCharset> charset) {
    const Inputs inputs = inputsOf(request);
    if (const std::string why = whyNoOutput(request, inputs.files); !why.empty()) {
        reportUsage("voxml " + request.command, why);
        return wrongUsage;
    }
    return forEachDecoded(request, inputs, [&](const Input &input, Decoded &decoded) {
        Ref document = request.namespaces ? Ref(xmlNsDocumentEncode(decoded.nsDocument))
                                          : std::move(decoded.document);
        if (charset) xmlDocumentSetCharset(document.edit(), *charset);
        return deliver(request, input, document);
    });
}

/// All errors are told, not only the first.
static Status checkOne(const Request &request, const Input &input) {
    const Decoded decoded = decode(input.bytes, wishOf(request));
    if (!decoded.failure) return fine;
    if (request.quiet) return refused;
    Ref text = textOf(input);
    return refuse(input, errorsFrom(*decoded.failure, chars(text)), text);
}

Status check(const Request &request) {
    return forEach(request, inputsOf(request), [&](const Input &input) {
        return (request.strict ? checkStrictly : checkOne)(request, input);
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
    return forEachDecoded(request, inputsOf(request), [&](const Input &, const Decoded &decoded) {
        printTree(decoded, wishOf(request));
        return fine;
    });
}

Status stats(const Request &request) {
    using Clock = std::chrono::steady_clock;
    Stats total;
    int64_t counted = 0;
    const Status status = forEach(request, inputsOf(request), [&](const Input &input) {
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
