#include "tests/xml/codec.hpp"

#include <fstream>
#include <sstream>

namespace test {
namespace {

Ref<XML_OPTIONS> options(XML_FLAGS flags) {
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), flags);
    return options;
}

std::string afterLast(std::string name, std::string_view separator) {
    return name.substr(name.rfind(separator) + separator.size());
}

Place placeOf(voParserLocation *taken) {
    Ref location(taken);
    if (!location) return {};
    return {voParserLocationOffset(location), voParserLocationLine(location),
            voParserLocationColumn(location)};
}

} // namespace

Decoded decode(std::string_view bytes, XML_FLAGS flags) {
    Ref result(xmlDocumentDecode(buffer(bytes), options(flags), nullptr));
    if (Ref document(xmlDecodeResultDocument(result)); document)
        return {std::move(document), {}, {}, {}};
    Ref error(xmlDecodeResultError(result));
    const auto code = xmlDecodeErrorErrorCode(error);
    return {{},
            afterLast(take(xmlDecodeErrorCodeToString(code)), "ERROR_CODE_"),
            take(xmlDecodeErrorCodeMessageText(code)),
            placeOf(xmlDecodeErrorLocation(error))};
}

Ref<XML_DOCUMENT> plain(const std::string &xml) {
    auto decoded = decode("<?xml version=\"1.0\"?>" + xml, XML_FLAG_DECODE_LOCATION);
    EXPECT_TRUE(decoded.document) << decoded.error << " in " << xml;
    return std::move(decoded.document);
}

NsDecoded nsDecode(XML_DOCUMENT *document) {
    Ref result(xmlNsDocumentTryDecode(document));
    if (Ref resolved(xmlNsDecodeResultDocument(result)); resolved)
        return {std::move(resolved), {}, {}, {}};
    Ref error(xmlNsDecodeResultError(result));
    const auto code = xmlNsDecodeErrorErrorCode(error);
    return {{},
            afterLast(take(xmlNsDecodeErrorCodeToString(code)), "ERROR_CODE_"),
            take(xmlNsDecodeErrorCodeMessageText(code)),
            placeOf(xmlNsDecodeErrorLocation(error))};
}

std::string encode(XML_DOCUMENT *document, XML_FLAGS flags) {
    Ref encoded(xmlDocumentTryEncode(document, options(flags)));
    return encoded ? bytes(encoded) : "<null>";
}

std::string xmlOf(XML_DOCUMENT *document) {
    Ref copy(xmlDocumentCreateFrom(document));
    xmlDocumentSetCharset(copy.edit(), VO_CHARSET_UTF_8);
    return encode(copy, XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
}

std::string unescaped(const std::string &line) {
    std::string bytes;
    for (size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\') {
            bytes += line[i];
        } else if (line[++i] == 'x') {
            bytes += char(std::stoi(line.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            bytes += "\n\r\t\\"[std::string_view("nrt\\").find(line[i])];
        }
    }
    return bytes;
}

std::string readFile(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

} // namespace test
