#include "commands.hpp"

#include "deliver.hpp"
#include "misfit.hpp"

#include "xml/xml_format.h"

#include <algorithm>

namespace tool {

static XML_LAYOUT layoutOf(const Request &request) {
    return {request.indent == "tab" ? XML_LAYOUT_TAB : std::stoll(request.indent), request.width};
}

/// Where the text of an input is other than laid out; nothing where only the bytes are, as they are
/// with a byte-order mark.
static std::optional<Place> firstDifference(Chars text, Chars laidOut) {
    const auto [at, other] = std::ranges::mismatch(text, laidOut);
    if (at == text.end() && other == laidOut.end()) return std::nullopt;
    return placeAt(text, static_cast<size_t>(at - text.begin()));
}

static Status refuseLayout(const Input &input, voBuffer *laidOut) {
    Ref text = textOf(input);
    Ref wanted = textOf({input.path, input.name, Ref(voBufferRetain(laidOut))});
    report({input.name, firstDifference(chars(text), chars(wanted)), "is not formatted", {}, {}},
           chars(text));
    return refused;
}

Status format(const Request &request) {
    const Inputs inputs = inputsOf(request);
    const bool isWritten = request.inPlace || !request.output.empty();
    const std::string why = !request.check ? whyNoOutput(request, inputs.files)
                            : isWritten    ? "--check writes nothing; leave out -i and -o"
                                           : "";
    if (!why.empty()) {
        reportUsage("voxml format", why);
        return wrongUsage;
    }
    const XML_LAYOUT layout = layoutOf(request);
    return forEachDecoded(request, inputs, [&](const Input &input, Decoded &decoded) {
        Ref document = request.namespaces ? Ref(xmlNsDocumentEncode(decoded.nsDocument))
                                          : std::move(decoded.document);
        Ref options = encodingOf(request);
        Ref laidOut(xmlDocumentTryEncodeFormatted(document, &layout, options));
        if (!laidOut) return refuseMisfit(request, input, document);
        const bool isDone = voBufferEquals(input.bytes, laidOut);
        if (request.check) return isDone ? fine : refuseLayout(input, laidOut);
        return request.inPlace && isDone ? fine : deliver(request, input, laidOut);
    });
}

} // namespace tool
