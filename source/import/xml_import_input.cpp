#include "source/import/xml_import_input.hpp"

#include "source/import/xml_import_parser.hpp"
#include "source/import/xml_import_text.hpp"
#include "source/vo/vo_utf.hpp"
#include "source/xml/base/xml_input.hpp"

#include <algorithm>
#include <optional>

using namespace std::string_view_literals;
using vo::Ref;

namespace xml {
namespace {

constexpr std::string_view replacementChar = "\xEF\xBF\xBD";

Ref<voBuffer> part(voBuffer *buffer, int64_t from, int64_t to) {
    Ref cut(vo::retained(buffer));
    voBufferDelOuter(cut.edit(), from, to - from);
    return cut;
}

Ref<voBuffer> sniff(voCharset charset, voBuffer *bytes) {
    return Ref(voCharsetTryConvertBufferToUtf8WithFlags(charset, bytes, VO_CHARSET_FLAG_SNIFF));
}

/// How a document begins, the character set in which its declaration is readable, and the one that
/// it is in if it does not name any.
struct Form {
    std::string_view begin;
    voCharset readable, unnamed;
};

constexpr Form forms[] = {
    {"\xFF\xFE\0\0"sv, VO_CHARSET_UTF_32LE, VO_CHARSET_UTF_32},
    {"\0\0\xFE\xFF"sv, VO_CHARSET_UTF_32BE, VO_CHARSET_UTF_32},
    {"<\0\0\0"sv, VO_CHARSET_UTF_32LE, VO_CHARSET_UTF_32},
    {"\0\0\0<"sv, VO_CHARSET_UTF_32BE, VO_CHARSET_UTF_32},
    {"\xFF\xFE"sv, VO_CHARSET_UTF_16LE, VO_CHARSET_UTF_16},
    {"\xFE\xFF"sv, VO_CHARSET_UTF_16BE, VO_CHARSET_UTF_16},
    {"<\0"sv, VO_CHARSET_UTF_16LE, VO_CHARSET_UTF_16},
    {"\0<"sv, VO_CHARSET_UTF_16BE, VO_CHARSET_UTF_16},
    {""sv, VO_CHARSET_UTF_8, VO_CHARSET_UTF_8},
};

const Form &formOf(voBuffer *xml) {
    return *std::ranges::find_if(
        forms, [&](const Form &form) { return pieceOf(xml).bytes().starts_with(form.begin); });
}

void XMLCALL takeEncoding(void *name, const char *, const char *encoding, int) {
    if (encoding)
        *static_cast<Ref<voString> *>(name) = Ref(voStringTryCreateFromUtf8(encoding, -1));
}

/// The character set's name in the XML declaration; null without one.
Ref<voString> declaredName(voBuffer *xml, voCharset readable) {
    Ref<voString> name;
    Ref head = sniff(readable, part(xml, 0, std::min(voBufferLength(xml), headLength)));
    if (!head) return name;
    const Parser parser(XML_ParserCreate("UTF-8"));
    XML_SetUserData(parser.get(), &name);
    XML_SetXmlDeclHandler(parser.get(), takeEncoding);
    const std::string_view bytes = pieceOf(head).bytes();
    XML_Parse(parser.get(), bytes.data(), int(bytes.size()), XML_FALSE);
    return name;
}

/// The character set that a document says it is in; nothing when it cannot be in that.
std::optional<voCharset> charsetOf(voBuffer *xml, const Form &form) {
    Ref name = declaredName(xml, form.readable);
    if (!name) return form.unnamed;
    const voCharset named = voCharsetFromIanaName(name);
    const bool fits = form.readable == VO_CHARSET_UTF_8
                          ? named >= VO_CHARSET_US_ASCII && named <= VO_CHARSET_UTF_8
                          : named == form.unnamed || named == form.readable;
    return fits ? std::optional(named) : std::nullopt;
}

/// The text of an ill-formed document up to where it is that, or to a replacement character of its
/// own. The byte that follows is none of UTF-8, so that Expat refuses it there.
Ref<voBuffer> textToRefuse(voBuffer *sniffed) {
    const std::string_view text = pieceOf(sniffed).bytes();
    Bytes refused(text.substr(0, text.find(replacementChar)));
    refused += '\xFF';
    return Ref(voBufferCreateFromBytesCopy(refused.data(), int64_t(refused.size())));
}

int64_t countChars(voBuffer *utf8) {
    const Piece text = pieceOf(utf8);
    return vo::countUtf8(text.begin, text.end);
}

} // namespace

ImportInput readImportInput(voBuffer *xml) {
    const Form &form = formOf(xml);
    const auto named = charsetOf(xml, form);
    ImportInput input{named.value_or(form.unnamed), form.readable,    Ref(vo::retained(xml)), 0,
                      Ref(vo::retained(xml)),       named.has_value()};
    if (!named) return input;
    if (form.readable == VO_CHARSET_UTF_8) input.bytesIn = *named;
    if (input.bytesIn == VO_CHARSET_UTF_8) return input;
    if (input.bytesIn < VO_CHARSET_UTF_8) {
        const Piece behind = behindMark(pieceOf(xml));
        input.skipped = voBufferLength(xml) - behind.size();
        input.original = part(xml, input.skipped, voBufferLength(xml));
    }
    Ref text(voCharsetTryConvertBufferToUtf8WithFlags(input.bytesIn, input.original, 0));
    if (text)
        input.read = std::move(text);
    else
        input.endWhereIllFormed();
    return input;
}

void ImportInput::endWhereIllFormed() {
    Ref sniffed = sniff(bytesIn, original);
    isUtf8 = sniffed;
    if (sniffed)
        read = textToRefuse(sniffed);
    else // The system lacks the converter. Expat, which does too, refuses the name.
        bytesIn = VO_CHARSET_UTF_8;
}

bool ImportInput::isKnownToExpat() const {
    return bytesIn == VO_CHARSET_US_ASCII || bytesIn == VO_CHARSET_ISO_8859_1 ||
           bytesIn == VO_CHARSET_UTF_16BE || bytesIn == VO_CHARSET_UTF_16LE;
}

ImportInput ImportInput::unconverted() const {
    return {charset,
            bytesIn,
            Ref(vo::retained<voBuffer>(original)),
            skipped,
            Ref(vo::retained<voBuffer>(original)),
            false};
}

Ref<voBuffer> ImportInput::textBefore(int64_t place) const {
    Ref before = part(read, 0, place);
    if (!isUtf8) return sniff(bytesIn, before);
    return part(before, place - behindMark(pieceOf(before)).size(), place);
}

int64_t ImportInput::originalPlace(int64_t place) const {
    if (!isUtf8 || bytesIn == VO_CHARSET_UTF_8) return skipped + place;
    const int64_t chars = countChars(textBefore(place));
    const bool hasMark = behindMark(text()).begin != text().begin;
    int64_t low = !hasMark                      ? 0
                  : bytesIn < VO_CHARSET_UTF_32 ? 2
                                                : 4,
            high = voBufferLength(original);
    while (low < high) { // The shortest part of the original that has so many characters.
        const int64_t middle = low + (high - low) / 2;
        if (countChars(sniff(bytesIn, part(original, 0, middle))) < chars)
            low = middle + 1;
        else
            high = middle;
    }
    return skipped + low;
}

} // namespace xml
