#include "deliver.hpp"

#include "files.hpp"
#include "misfit.hpp"

#include <algorithm>

#include <unistd.h>

namespace tool {

std::string whyNoOutput(const Request &request, const std::vector<std::string> &files) {
    if (request.inPlace && !request.output.empty()) return "-i and -o exclude each other";
    if (request.inPlace && std::ranges::count(files, "-")) return "-i: takes no standard input";
    if (request.inPlace || files.size() <= 1 || request.concatenate) return "";
    return request.output.empty() ? "several documents would become one text; "
                                    "use -i, or --concatenate if that is wanted"
                                  : "-o: takes one input file only";
}

Ref<XML_OPTIONS> encodingOf(const Request &request) {
    return optionsWith(request.noDeclaration ? XML_FLAG_ENCODE_OMIT_XML_DECLARATION : 0);
}

/// Empty where it is not known.
static Ref<voString> exactTextOf(const Input &input) {
    Ref text(xmlDocumentTryDecodeText(input.bytes));
    if (!text)
        text = Ref(voCharsetTryConvertBufferToStringWithFlags(VO_CHARSET_UTF_8, input.bytes,
                                                              VO_CHARSET_FLAG_BOM));
    return text ? std::move(text) : makeString(Chars());
}

Status refuseMisfit(const Request &request, const Input &input, XML_DOCUMENT *document) {
    if (request.quiet) return charsetTooSmall;
    Ref text = exactTextOf(input);
    const Misfit misfit = firstMisfit(input.bytes, chars(text), document);
    report({input.name, misfit.place, misfit.text, {}, misfit.hint}, chars(text));
    return charsetTooSmall;
}

Status deliver(const Request &request, const Input &input, XML_DOCUMENT *document) {
    Ref options = encodingOf(request);
    Ref encoded(xmlDocumentTryEncode(document, options));
    return encoded ? deliver(request, input, encoded) : refuseMisfit(request, input, document);
}

Status deliver(const Request &request, const Input &input, voBuffer *bytes) {
    const std::string &path = request.inPlace ? input.path : request.output;
    const std::string_view text{reinterpret_cast<const char *>(voBufferBacking(bytes)),
                                static_cast<size_t>(voBufferLength(bytes))};
    const int descriptor = path.empty() || path == "-" ? STDOUT_FILENO : descriptorNamed(path);
    if (descriptor == STDOUT_FILENO) return writeOut(text), fine;
    const int error =
        descriptor >= 0 ? writeAll(descriptor, text) : voFileReplace(path.c_str(), bytes);
    return error ? reportFile(path, "cannot be written", error) : fine;
}

} // namespace tool
