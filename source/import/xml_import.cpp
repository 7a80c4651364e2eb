#include "xml/xml_import.h"

#include "source/import/xml_import_builder.hpp"
#include "source/import/xml_import_newlines.hpp"
#include "source/import/xml_import_parser.hpp"
#include "source/xml/base/xml_locator.hpp"

using vo::Ref;

namespace {

XML_IMPORT_OPTIONS withDefaults(const XML_IMPORT_OPTIONS *optional) {
    const XML_IMPORT_OPTIONS given = optional ? *optional : XML_IMPORT_OPTIONS{};
    auto orDefault = [](int64_t value, int64_t standard) { return value ? value : standard; };
    return {given.locations, orDefault(given.mostExpanded, 1 << 20),
            orDefault(given.mostAmplified, 10), orDefault(given.mostNested, 200)};
}

Ref<voParserLocation> locate(const xml::ImportInput &input, int64_t place,
                             voParserLocation *optionalStart) {
    Ref text = input.textBefore(place);
    const auto [begin, end] = xml::pieceOf(text);
    return Ref(xml::Locator(begin, end, xml::xmlNewlines, optionalStart).locate(end));
}

XML_IMPORT_ERROR describe(const xml::ImportInput &input, const xml::ImportResult &result,
                          voParserLocation *optionalStart) {
    Ref location = locate(input, result.place, optionalStart);
    return {result.code, input.originalPlace(result.place),
            voMessageCreateFormatCstr(VO_MESSAGE_ERROR, location,
                                      XML_ErrorString(XML_Error(result.code)), -1)};
}

} // namespace

XML_DOCUMENT *xmlDocumentTryImport(voBuffer *xml, const XML_IMPORT_OPTIONS *optionalOptions,
                                   voParserLocation *optionalLocation, XML_IMPORT_ERROR *error) {
    VO_ASSERT(xml);
    VO_ASSERT(error);
    const XML_IMPORT_OPTIONS options = withDefaults(optionalOptions);
    xml::ImportInput input = xml::readImportInput(xml);
    xml::ImportResult result = xml::buildImported(input, options, optionalLocation);
    if (result.document) return result.document.take();
    if (input.isUtf8 && input.isKnownToExpat()) {
        // In the original Expat may find other faults and places, but it lets lone surrogates pass.
        xml::ImportInput original = input.unconverted();
        if (auto found = xml::buildImported(original, options, optionalLocation); !found.document) {
            input = std::move(original);
            result = std::move(found);
        }
    }
    *error = describe(input, result, optionalLocation);
    return nullptr;
}
