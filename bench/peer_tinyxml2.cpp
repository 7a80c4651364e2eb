// TinyXML-2. It drops white space between elements, so it makes fewer nodes than the others.
#include "bench/contestant.hpp"

#include <tinyxml2.h>

#include <cstring>
#include <memory>

namespace bench {
namespace {

bool load(tinyxml2::XMLDocument &document, const File &file) {
    return document.Parse(file.bytes.data(), file.bytes.size()) == tinyxml2::XML_SUCCESS;
}

uint64_t decode(const File &file) {
    tinyxml2::XMLDocument document;
    return load(document, file);
}

uint64_t encode(const File &file) {
    tinyxml2::XMLDocument document;
    if (!load(document, file)) return 0;
    tinyxml2::XMLPrinter printer(nullptr, true);
    document.Print(&printer);
    return uint64_t(printer.CStrSize());
}

void add(Checksum &sum, const char *text) { sum.add(int64_t(std::strlen(text))); }

void readNode(const tinyxml2::XMLNode *node, Checksum &sum) {
    add(sum, node->Value());
    if (const tinyxml2::XMLElement *element = node->ToElement())
        for (auto *attribute = element->FirstAttribute(); attribute;
             attribute = attribute->Next()) {
            add(sum, attribute->Name());
            add(sum, attribute->Value());
        }
    for (auto *child = node->FirstChild(); child; child = child->NextSibling())
        readNode(child, sum);
}

uint64_t read(const File &file) {
    tinyxml2::XMLDocument document;
    if (!load(document, file)) return 0;
    Checksum sum;
    for (auto *child = document.FirstChild(); child; child = child->NextSibling())
        readNode(child, sum);
    return sum.value;
}

uint64_t keep(const File &file) {
    auto document = std::make_unique<tinyxml2::XMLDocument>();
    const bool loaded = load(*document, file);
    return document.release() && loaded;
}

} // namespace

const Contestant tinyxml2Tree = {
    .name = "tinyxml2", .decode = decode, .encode = encode, .read = read, .keep = keep};

} // namespace bench
