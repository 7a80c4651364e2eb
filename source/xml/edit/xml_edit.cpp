#include "xml/xml_edit.h"

#include "source/vo/vo_array.hpp"
#include "source/vo/vo_object.hpp"
#include "source/xml/base/xml_input.hpp"
#include "source/xml/base/xml_locator.hpp"
#include "source/xml/cursor/xml_cursor.hpp"
#include "source/xml/edit/xml_edit_plan.hpp"
#include "source/xml/edit/xml_splice.hpp"
#include "source/xml/outline/xml_outline_builder.hpp"
#include "xml/xml.h"

#include <algorithm>

using vo::Ref;

namespace {

/// A document as paths look at it, or why there is none.
struct Decoded {
    Ref<XML_CURSOR> cursor;
    Ref<voMessage> failure;
};

Ref<voMessage> messageOf(XML_DECODE_RESULT *result) {
    return Ref(xmlDecodeErrorToMessage(Ref(xmlDecodeResultError(result))));
}
Ref<voMessage> messageOf(XML_NS_DECODE_RESULT *result) {
    return Ref(xmlNsDecodeErrorToMessage(Ref(xmlNsDecodeResultError(result))));
}

Decoded decodeWith(voBuffer *xml, bool namespaces, XML_FLAGS flags) {
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), flags);
    Ref result(xmlDocumentDecode(xml, options, nullptr));
    if (!xmlDecodeResultHasDocument(result)) return {{}, messageOf(result)};
    Ref document(xmlDecodeResultDocument(result));
    if (!namespaces) return {Ref(xmlCursorCreate(document)), {}};
    Ref nsResult(xmlNsDocumentTryDecode(document));
    if (xmlNsDecodeResultHasError(nsResult)) return {{}, messageOf(nsResult)};
    return {Ref(xmlCursorCreateNs(Ref(xmlNsDecodeResultDocument(nsResult)))), {}};
}

/// Locations are recorded only to tell the place of a failure.
Decoded decode(voBuffer *xml, bool namespaces) {
    Decoded decoded = decodeWith(xml, namespaces, 0);
    return decoded.cursor ? std::move(decoded)
                          : decodeWith(xml, namespaces, XML_FLAG_DECODE_LOCATION);
}

/// The outline that the cursor reads. One for an empty document, which keeps none, is made anew.
Ref<xml::Outline> outlineOf(XML_CURSOR *cursor, voBuffer *bytes) {
    if (const xml::Outline *kept = xml::recordOf(cursor).outline)
        return Ref(vo::retained(const_cast<xml::Outline *>(kept)));
    Ref options(xmlOptionsCreate());
    const xml::Input input = xml::readInput(bytes, xmlOptionsDecodeCharsetFlags(options));
    return std::move(xml::buildOutline(input.buffer, input.text, input.charset).outline);
}

Ref<voMessage> messageOf(const char *text, voParserLocation *optionalLocation) {
    return Ref(voMessageCreateFormatCstr(VO_MESSAGE_ERROR, optionalLocation, text, -1));
}

Ref<voMessage> messageOf(const xml::EditFault &fault, xml::Piece text) {
    if (!fault.place) return messageOf(fault.text, nullptr);
    Ref options(xmlOptionsCreate());
    xml::Locator locator(text.begin, text.end, xmlOptionsDecodeNlfFlags(options), nullptr);
    return messageOf(fault.text, Ref(locator.locate(text.begin + *fault.place)));
}

/// The edits of one document.
class Editor {
  public:
    Editor(voBuffer *input, xml::Edits given, bool seesNamespaces, XML_EDIT_ERROR *optionalError)
        : bytes(input), edits(given), namespaces(seesNamespaces), error(optionalError) {}

    /// Null where that is not possible.
    Ref<voBuffer> run(int64_t &selected) {
        if (const auto fault = xml::checkEdits(edits)) return fail(*fault, {}), Ref<voBuffer>();
        Made made = make(selected);
        if (!made.bytes || selected == 0 || isRight(made)) return std::move(made.bytes);
        return {};
    }

  private:
    /// What comes of the edits.
    struct Made {
        Ref<voBuffer> bytes;
        Ref<voBuffer> text; ///< What the bytes must stand for; null where they are that text.
    };

    Made make(int64_t &selected) {
        Decoded decoded = decode(bytes, namespaces);
        if (!decoded.cursor)
            return fail(XML_EDIT_ERROR_CODE_INPUT, -1, std::move(decoded.failure)), Made{};
        vo::Vec<xml::EditTarget> targets = select(decoded.cursor);
        selected = int64_t(targets.size());
        if (targets.empty()) return {Ref(vo::retained(bytes)), {}};
        Ref outline = outlineOf(decoded.cursor, bytes);
        vo::Vec<xml::Replacement> plan;
        if (const auto fault = xml::planEdits(*outline, edits, std::move(targets), plan))
            return fail(*fault, outline->source.text), Made{};
        return splice(outline->source, plan);
    }

    vo::Vec<xml::EditTarget> select(XML_CURSOR *cursor) const {
        vo::Vec<xml::EditTarget> targets;
        for (size_t i = 0; i < edits.size(); ++i) {
            Ref selection(xmlPathSelect(edits[i].path, cursor));
            while (xmlSelectionNext(selection))
                targets.push_back(
                    {xml::recordOf(xmlSelectionCursor(selection)).number, int64_t(i)});
        }
        return targets;
    }

    Made splice(const xml::DecodedText &source, std::span<const xml::Replacement> plan) {
        const xml::Piece input = xml::pieceOf(bytes);
        if (source.text.end == input.end) // UTF-8
            return {xml::splicedText({input.begin, source.text.begin}, source.text, plan), {}};
        xml::Splice spliced = xml::spliced(bytes, charsetOf(source), source.text, plan);
        if (!spliced.bytes) return failInCharset(spliced.misfit), Made{};
        return {std::move(spliced.bytes), xml::splicedText({}, source.text, plan)};
    }

    /// A document whose declaration is empty calls itself UTF-8 in whatever it was read from.
    voCharset charsetOf(const xml::DecodedText &source) const {
        if (source.charset != VO_CHARSET_UTF_8) return source.charset;
        Ref options(xmlOptionsCreate());
        return xml::readInput(bytes, xmlOptionsDecodeCharsetFlags(options)).charset;
    }

    /// The bytes must decode, and stand for the text that is wanted.
    bool isRight(const Made &made) {
        Decoded decoded = decode(made.bytes, namespaces);
        if (!decoded.cursor) return failInResult(decoded.failure), false;
        if (!made.text) return true;
        Ref outline = outlineOf(decoded.cursor, made.bytes);
        if (outline->source.text.bytes() == xml::pieceOf(made.text).bytes()) return true;
        return failInCharset(-1), false;
    }

    void fail(XML_EDIT_ERROR_CODE code, int64_t edit, Ref<voMessage> message) {
        if (error) *error = {code, edit, message.take()};
    }
    void fail(const xml::EditFault &fault, xml::Piece text) {
        fail(fault.code, fault.edit, messageOf(fault, text));
    }
    void failInCharset(int64_t edit) {
        const char *text =
            edit >= 0 ? "the character set of the document lacks a character of this"
                      : "it cannot be told which bytes of the document stand for which characters";
        fail(XML_EDIT_ERROR_CODE_CHARSET, edit, messageOf(text, nullptr));
    }
    void failInResult(voMessage *failure) {
        Ref location(voMessageLocation(failure));
        fail(XML_EDIT_ERROR_CODE_RESULT, -1,
             Ref(voMessageCreateFormatCstr(VO_MESSAGE_ERROR, location,
                                           "the edited document is not acceptable: %~s", -1,
                                           voMessageText(failure))));
    }

    voBuffer *const bytes;
    const xml::Edits edits;
    const bool namespaces;
    XML_EDIT_ERROR *const error;
};

} // namespace

voBuffer *xmlDocumentTryEdit(voBuffer *xml, const XML_EDIT *edits, int64_t count, int namespaces,
                             int64_t *optionalSelected, XML_EDIT_ERROR *optionalError) {
    VO_ASSERT(xml);
    VO_ASSERT(edits);
    VO_ASSERT(count >= 0);
    const xml::Edits all(edits, size_t(count));
    for (const XML_EDIT &edit : all) {
        VO_ASSERT(XML_EDIT_ACTION_OK(edit.action));
        VO_ASSERT(edit.path);
    }
    int64_t selected = 0;
    Ref result = Editor(xml, all, namespaces, optionalError).run(selected);
    if (optionalSelected) *optionalSelected = selected;
    return result.take();
}
