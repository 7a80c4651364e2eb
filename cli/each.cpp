#include "each.hpp"

#include "files.hpp"
#include "inorder.hpp"

#include <algorithm>

namespace tool {

Inputs inputsOf(const Request &request) {
    if (!request.recursive) return {request.files};
    Inputs inputs = inFolders(request.files, request.patterns);
    if (!inputs.files.empty() || inputs.status != fine) return inputs;
    report({request.files.front(), {}, "no file in it has a name that is asked for", {}, {}}, {});
    inputs.status = fileTrouble;
    return inputs;
}

Status forEach(const Request &request, const Inputs &inputs,
               const std::function<Status(const Input &)> &handle) {
    const auto readAndHandle = [&](const std::string &file) {
        Input input{file, file == "-" ? request.standardInput : file.empty() ? "\"\"" : file, {}};
        const int error = readFile(file, input.bytes);
        return error ? reportFile(input.name, "cannot be read", error) : handle(input);
    };
    const Pace pace{request.jobs, request.failFast};
    return std::max(inputs.status, inOrder(inputs.files, readAndHandle, pace));
}

Status forEachDecoded(const Request &request, const Inputs &inputs,
                      const std::function<Status(const Input &, Decoded &)> &handle) {
    return forEach(request, inputs, [&](const Input &input) {
        Decoded decoded = decode(input.bytes, wishOf(request));
        return decoded.failure ? refuse(request, input, *decoded.failure) : handle(input, decoded);
    });
}

DecodeWish wishOf(const Request &request) {
    return {request.namespaces, request.locations, request.import, !request.quiet};
}

Ref<voString> textOf(const Input &input) {
    Ref text(xmlDocumentTryDecodeText(input.bytes));
    if (!text)
        text = Ref(voCharsetTryConvertBufferToStringWithFlags(VO_CHARSET_UTF_8, input.bytes,
                                                              VO_CHARSET_FLAG_BOM));
    return text ? std::move(text) : makeString(Chars());
}

Status refuse(const Request &request, const Input &input, const Failure &failure) {
    return request.quiet ? refused : refuse(input, {{failure}, false}, textOf(input));
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
