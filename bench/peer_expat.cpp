// Expat: makes no tree, but calls back for every node.
#include "bench/contestant.hpp"

#include <expat.h>

#include <cstring>

namespace bench {
namespace {

struct Handlers {
    XML_StartElementHandler start;
    XML_EndElementHandler end;
    XML_CharacterDataHandler text;
};

/// The sum that the handlers have made; 0 when the file is refused.
uint64_t parse(const File &file, XML_Parser parser, const Handlers &handlers) {
    Checksum sum;
    XML_SetUserData(parser, &sum);
    XML_SetElementHandler(parser, handlers.start, handlers.end);
    XML_SetCharacterDataHandler(parser, handlers.text);
    const auto status = XML_Parse(parser, file.bytes.data(), int(file.bytes.size()), 1);
    XML_ParserFree(parser);
    return status == XML_STATUS_OK ? sum.value : 0;
}

void endElement(void *, const char *) {}

constexpr Handlers idle = {[](void *, const char *, const char **) {}, endElement,
                           [](void *, const char *, int) {}};

uint64_t decode(const File &file) { return parse(file, XML_ParserCreate(nullptr), idle); }

uint64_t decodeNamespaces(const File &file) {
    return parse(file, XML_ParserCreateNS(nullptr, '|'), idle);
}

void add(void *sum, const char *text) {
    static_cast<Checksum *>(sum)->add(int64_t(std::strlen(text)));
}

void readElement(void *sum, const char *name, const char **attributes) {
    add(sum, name);
    for (; *attributes; ++attributes)
        add(sum, *attributes);
}

void readText(void *sum, const char *, int length) { static_cast<Checksum *>(sum)->add(length); }

void readInstruction(void *sum, const char *target, const char *data) {
    add(sum, target);
    add(sum, data);
}

uint64_t read(const File &file) {
    XML_Parser parser = XML_ParserCreate(nullptr);
    XML_SetCommentHandler(parser, add);
    XML_SetProcessingInstructionHandler(parser, readInstruction);
    return parse(file, parser, {readElement, endElement, readText});
}

} // namespace

const Contestant expatCallbacks = {
    .name = "expat", .decode = decode, .namespaces = decodeNamespaces, .read = read};

} // namespace bench
