#include "verdict.hpp"

#include <algorithm>
#include <memory>
#include <new>

namespace tool {
namespace {

struct Judge {
    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser;
    bool hasDoctype = false;

    static void XMLCALL stopAtDoctype(void *self, const char *, const char *, const char *, int) {
        auto *judge = static_cast<Judge *>(self);
        judge->hasDoctype = true;
        XML_StopParser(judge->parser.get(), XML_FALSE);
    }
};

/// Expat takes lengths as int.
bool parse(XML_Parser parser, std::string_view bytes) {
    constexpr size_t most = 1 << 28;
    for (;;) {
        const std::string_view part = bytes.substr(0, most);
        bytes.remove_prefix(part.size());
        const int length = static_cast<int>(part.size());
        if (XML_Parse(parser, part.data(), length, bytes.empty()) != XML_STATUS_OK) return false;
        if (bytes.empty()) return true;
    }
}

} // namespace

Verdict judge(std::string_view bytes, const char *optionalEncoding) {
    Judge judge{{XML_ParserCreate(optionalEncoding), XML_ParserFree}};
    XML_Parser parser = judge.parser.get();
    if (!parser) throw std::bad_alloc();
    XML_SetUserData(parser, &judge);
    XML_SetStartDoctypeDeclHandler(parser, Judge::stopAtDoctype);
    if (parse(parser, bytes)) return {};
    const XML_Error code = XML_GetErrorCode(parser);
    if (code == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
    const auto at = std::max<XML_Index>(XML_GetErrorByteIndex(parser), 0);
    return {code, std::min(static_cast<size_t>(at), bytes.size()), judge.hasDoctype};
}

} // namespace tool
