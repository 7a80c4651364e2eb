#include "commands.hpp"

#include "charset.hpp"
#include "deliver.hpp"
#include "stats.hpp"
#include "strict.hpp"
#include "terminal.hpp"
#include "tree.hpp"

#include <cstdint>
#include <optional>

#include <unistd.h>

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

/// Tells all errors, not only the first.
static Status refuseForAll(const Request &request, const Input &input, const Failure &first) {
    if (request.quiet) return refused;
    Ref text = textOf(input);
    return refuse(input, errorsFrom(first, chars(text)), text);
}

Status check(const Request &request) {
    const Inputs inputs = inputsOf(request);
    if (request.strict)
        return forEach(request, inputs,
                       [&](const Input &input) { return checkStrictly(request, input); });
    return forEachDecoded(
        request, inputs, [](const Input &, const Decoded &) { return fine; }, refuseForAll);
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
    // What programs read has one line for each.
    const bool isTerminal = isatty(STDOUT_FILENO);
    writeOut(charsetTable(isTerminal ? static_cast<size_t>(columns(STDOUT_FILENO)) : SIZE_MAX));
    return fine;
}

} // namespace tool
