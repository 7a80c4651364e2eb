#include "source/xml/hint/xml_charset_hint.hpp"

#include "source/xml/hint/xml_ill_formed.hpp"

#include <algorithm>

using vo::Ref;
using namespace std::string_view_literals;

namespace xml {
namespace {

// ---------------------------------------------------------------- without a declaration

/// What begins like this is something else.
constexpr struct {
    std::string_view beginning, hint;
} formats[] = {
    {"\x1F\x8B"sv, "this is gzip; unpack it first"},
    {"BZh"sv, "this is bzip2; unpack it first"},
    {"\xFD"
     "7zXZ\0"sv,
     "this is xz; unpack it first"},
    {"\x28\xB5\x2F\xFD"sv, "this is zstd; unpack it first"},
    {"7z\xBC\xAF\x27\x1C"sv, "this is a 7z archive; unpack it first"},
    {"PK\x03\x04"sv, "this is a zip archive, as office documents and e-books are; unpack it first"},
    {"\x89PNG\r\n"sv, "this is a PNG image"},
    {"\xFF\xD8\xFF"sv, "this is a JPEG image"},
    {"GIF8"sv, "this is a GIF image"},
    {"%PDF-"sv, "this is PDF"},
    {"\x7F"
     "ELF"sv,
     "this is a program"},
    {"\x4C\x6F\xA7\x94"sv, "this is in EBCDIC; convert it to UTF-8 first"},
};

Message knownFormat(voBuffer *xml) {
    const std::string_view bytes = pieceOf(xml).bytes();
    for (const auto &[beginning, hint] : formats)
        if (bytes.starts_with(beginning)) return Message(hint);
    return {};
}

/// The head of an input as UTF-8, whatever it is.
Ref<voBuffer> guess(voBuffer *input) {
    Ref head = headOf(input);
    return readLeniently(head, charsetByBeginning(head));
}

/// Whether a declaration begins somewhere behind `at`.
bool hasDeclaration(std::string_view head, size_t at) {
    constexpr std::string_view opening = "<?xml";
    while ((at = head.find(opening, at)) != head.npos) {
        at += opening.size();
        if (skipSpace(head, at) > at || beginsWith(head, at, "?>")) return true;
    }
    return false;
}

bool looksLikeHtml(std::string_view text) {
    constexpr size_t sample = 15;
    const Message start = lowered(text.substr(0, sample));
    return start.starts_with("<!doctype html") || start.starts_with("<html");
}

/// About a text that has no declaration at all.
Message missingDeclaration(std::string_view head, size_t start) {
    constexpr int64_t sample = 16;
    if (isConflictMark(head, start)) return conflictHint;
    if (looksLikeHtml(head.substr(start)))
        return Message("this looks like HTML; XHTML begins with an XML declaration: ") +
               exampleDeclaration;
    if (start == head.size() || head[start] == '<')
        return Message("a document begins with an XML declaration: ") + exampleDeclaration;
    if (head[start] == '{' || head[start] == '[') return "this looks like JSON";
    return "this does not look like XML; it begins with \"" +
           Message(head.substr(0, placeOfChar(head, sample))) + "\"";
}

Message declarationHint(voBuffer *input) {
    if (Message format = knownFormat(input); !format.empty()) return format;
    Ref utf8 = guess(input);
    const std::string_view head = pieceOf(utf8).bytes();
    const size_t start = skipSpace(head, 0);
    const std::string_view target = beginsWith(head, start, "<?") ? nameAt(head, start + 2) : "";
    if (target != "xml" && lowered(target) == "xml")
        return "write \"<?xml\" for \"<?" + Message(target) + "\"";
    if (hasDeclaration(head, start))
        return "the XML declaration must come first; remove what stands before it";
    constexpr int64_t openingSize = 6; // "<?xml "
    if (start > 0 && voBufferLength(input) > headLength &&
        placeOfChar(head.substr(start), openingSize) == head.npos)
        return "the XML declaration must begin within the first 1024 bytes";
    return missingDeclaration(head, start);
}

// ---------------------------------------------------------------- ill-formed bytes

/// The byte at an offset, with the offset.
Message byteAt(voBuffer *xml, int64_t offset) {
    Message hex = number(voBufferBacking(xml)[offset], 16);
    for (char &digit : hex)
        if (digit >= 'a') digit = char(digit - 'a' + 'A');
    if (hex.size() < 2) hex.insert(0, "0");
    return "byte 0x" + hex + " at offset " + number(offset);
}

/// What is ill-formed, in a sentence about the character set.
Message whatIsInvalid(const Refused &refused, const IllFormed &found) {
    if (found.place == pieceOf(found.text).bytes().size())
        return "the input ends within a character";
    if (found.offset < 0) return "not all bytes are valid in it";
    return byteAt(refused.xml, found.offset) + " is not valid in it";
}

bool isKnown(std::string_view charset) {
    Ref name(voStringTryCreateFromUtf8(charset.data(), int64_t(charset.size())));
    return VO_CHARSET_OK(voCharsetFromIanaName(name));
}

bool looksLikeUtf8(voBuffer *xml) {
    const Piece bytes = pieceOf(xml);
    return std::find(bytes.begin, bytes.end, 0) == bytes.end &&
           vo___Utf8IsValid(bytes.begin, bytes.size());
}

Message unknownEncoding(std::string_view declared) {
    return "the declared encoding " + quoted(declared) + " is not known";
}

Message illFormedUtf8(const Refused &refused, const IllFormed &found) {
    const Message hint = byteAt(refused.xml, found.offset) + " is not well-formed UTF-8";
    const std::string_view declared = refused.declaredEncoding();
    if (declared.empty())
        return hint + (refused.hasWholeDeclaration()
                           ? "; the declaration names no other encoding"
                           : "; an encoding counts if it is declared within the first 1024 bytes");
    return isKnown(declared) ? hint : hint + "; " + unknownEncoding(declared);
}

Message illFormedHint(const Refused &refused, const IllFormed &found) {
    const voCharset charset = refused.input.charset;
    const std::string_view declared = refused.declaredEncoding();
    if (charset == VO_CHARSET_UTF_8) return illFormedUtf8(refused, found);
    if (declared.empty() || !isKnown(declared))
        return "by its first bytes the text is in " + charsetName(charset) + ", but " +
               whatIsInvalid(refused, found) +
               (declared.empty() ? Message() : "; " + unknownEncoding(declared));
    return "the declaration names the encoding " + quoted(declared) + ", but " +
           (looksLikeUtf8(refused.xml) ? "the bytes are well-formed UTF-8"
                                       : whatIsInvalid(refused, found));
}

} // namespace

Advice charsetAdvice(const Refused &refused) {
    if (voBufferLength(refused.xml) == 0) return "the input is empty";
    if (!refused.hasDeclaration()) return declarationHint(refused.xml);
    const IllFormed found = findIllFormed(refused.xml, refused.input.charset);
    const Piece text = pieceOf(found.text);
    return {illFormedHint(refused, found), placeOf(text, text.begin + found.place)};
}

} // namespace xml
