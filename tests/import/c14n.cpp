// Apart from the tests, since the names of libxml2 are much like those of this library.
#include <libxml/c14n.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <memory>
#include <string>
#include <string_view>

namespace test {

std::string c14n(std::string_view bytes);

namespace {

/// Stands in for every external entity.
xmlParserInputPtr nothing(const char *, const char *, xmlParserCtxtPtr context) {
    return xmlNewStringInputStream(context, BAD_CAST "");
}

void ignore(void *, const char *, ...) {}

void replaceAll(std::string &text, std::string_view what, std::string_view with) {
    for (size_t at = text.find(what); at != text.npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
}

struct DocumentFree {
    void operator()(xmlDoc *document) const { xmlFreeDoc(document); }
};

} // namespace

std::string c14n(std::string_view bytes) {
    xmlSetExternalEntityLoader(nothing);
    xmlSetGenericErrorFunc(nullptr, ignore);
    constexpr int options = XML_PARSE_NOENT | XML_PARSE_DTDATTR | XML_PARSE_NOERROR |
                            XML_PARSE_NOWARNING | XML_PARSE_NONET | XML_PARSE_HUGE;
    const std::unique_ptr<xmlDoc, DocumentFree> document(
        xmlReadMemory(bytes.data(), int(bytes.size()), nullptr, nullptr, options));
    xmlChar *canonical = nullptr;
    const int length = document ? xmlC14NDocDumpMemory(document.get(), nullptr, XML_C14N_1_0,
                                                       nullptr, 1, &canonical)
                                : -1;
    std::string text;
    if (length > 0) text.assign(reinterpret_cast<const char *>(canonical), size_t(length));
    if (canonical) xmlFree(canonical);
    replaceAll(text, "<!---->", "<!-- -->");
    replaceAll(text, "<!---", "<!-- -");
    return text;
}

} // namespace test
