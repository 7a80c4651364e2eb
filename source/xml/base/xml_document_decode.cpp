#include "xml/xml_document_decode.h"

#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_input.hpp"
#include "source/xml/outline/xml_outline_builder.hpp"
#include "source/xml/outline/xml_outline_objects.hpp"

using vo::Ref;

namespace {

/// Where locations are counted from and how.
struct Counting {
    bool wanted;
    voNlfFlags newlines;
    voParserLocation *optionalStart;

    xml::Locator locator(xml::Piece text) const {
        return {text.begin, text.end, newlines, optionalStart};
    }
};

XML_DECODE_RESULT *refuse(XML_DECODE_ERROR_CODE code, voParserLocation *optionalLocation) {
    return xmlDecodeResultCreateError(Ref(xmlDecodeErrorCreate(code, optionalLocation)));
}

XML_DECODE_RESULT *refuse(XML_DECODE_ERROR_CODE code, const uint8_t *place, xml::Piece text,
                          const Counting &counting) {
    if (!counting.wanted) return refuse(code, nullptr);
    return refuse(code, Ref(counting.locator(text).locate(place)));
}

/// A document whose items are not made yet.
XML_DECODE_RESULT *accept(Ref<xml::Outline> outline, const Counting &counting) {
    const xml::DecodedText &source = outline->source;
    if (counting.wanted) outline->locator = vo::make<xml::Locator>(counting.locator(source.text));
    Ref document(vo::create<XML_DOCUMENT>(xmlDocumentSort()));
    if (source.version.size() && source.version.bytes() != "1.0")
        document->version.set(Ref(xml::createString(source.version)));
    document->charset = source.charset;
    document->standalone = source.standalone;
    document->location = vo::retained(counting.optionalStart);
    document->items.set(xml::createRootItems(std::move(outline)));
    return xmlDecodeResultCreate(document);
}

} // namespace

XML_DECODE_RESULT *xmlDocumentDecode(voBuffer *xml, XML_OPTIONS *opt,
                                     voParserLocation *optionalLocation) {
    VO_ASSERT(xml);
    VO_ASSERT(opt);
    const xml::Input input = xml::readInput(xml, xmlOptionsDecodeCharsetFlags(opt));
    if (!input.buffer) return refuse(XML_DECODE_ERROR_CODE_CHARSET, optionalLocation);
    const Counting counting{(xmlOptionsFlags(opt) & XML_FLAG_DECODE_LOCATION) != 0,
                            xmlOptionsDecodeNlfFlags(opt), optionalLocation};
    auto read = xml::buildOutline(input.buffer, input.text, input.charset);
    if (!read.outline) return refuse(read.code, read.place, input.text, counting);
    return accept(std::move(read.outline), counting);
}
