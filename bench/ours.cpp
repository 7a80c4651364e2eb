#include "bench/ours.hpp"

namespace bench {
namespace {

using Buffer = Owned<voBuffer, voBufferRelease>;
using NsDecodeResult = Owned<XML_NS_DECODE_RESULT, xmlNsDecodeResultRelease>;
using DecodeResult = Owned<XML_DECODE_RESULT, xmlDecodeResultRelease>;

XML_OPTIONS *makeOptions(XML_FLAGS flags) {
    XML_OPTIONS *made = xmlOptionsCreate();
    xmlOptionsSetFlags(&made, flags);
    return made;
}

/// Options live as long as the process: programs make them once, too.
XML_OPTIONS *plainOptions() {
    static XML_OPTIONS *options = xmlOptionsCreate();
    return options;
}

XML_OPTIONS *locationOptions() {
    static XML_OPTIONS *options = makeOptions(XML_FLAG_DECODE_LOCATION);
    return options;
}

Document decodedWith(XML_OPTIONS *options, const File &file) {
    const DecodeResult result(xmlDocumentDecode(file.buffer.get(), options, nullptr));
    return Document(xmlDecodeResultDocument(result.get()));
}

uint64_t decode(const File &file) { return decoded(file) != nullptr; }

uint64_t decodeLocations(const File &file) {
    return decodedWith(locationOptions(), file) != nullptr;
}

uint64_t decodeNamespaces(const File &file) {
    const Document document = decoded(file);
    if (!document) return 0;
    const NsDecodeResult result(xmlNsDocumentTryDecode(document.get()));
    return uint64_t(xmlNsDecodeResultHasDocument(result.get()));
}

uint64_t encode(const File &file) {
    const Document document = decoded(file);
    return document ? encodedLength(document.get()) : 0;
}

uint64_t keep(const File &file) { return decoded(file).release() != nullptr; }

} // namespace

Document decoded(const File &file) { return decodedWith(plainOptions(), file); }

uint64_t encodedLength(XML_DOCUMENT *document) {
    const Buffer encoded(xmlDocumentTryEncode(document, plainOptions()));
    return encoded ? uint64_t(voBufferLength(encoded.get())) : 0;
}

const Contestant voxmlTree = {.name = "voxml",
                              .decode = decode,
                              .locations = decodeLocations,
                              .namespaces = decodeNamespaces,
                              .encode = encode,
                              .read = readByCursor,
                              .change = changeDeepElement,
                              .keep = keep};

const Contestant voxmlGetters = {.name = "getters", .read = readByGetters};

} // namespace bench
