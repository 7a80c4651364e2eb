#include "source/xml/edit/xml_edit_plan.hpp"

#include "source/vo/vo_buffer_builder.hpp"
#include "source/xml/base/xml_skip.hpp"
#include "source/xml/edit/xml_splice.hpp"
#include "xml/xml.h"

#include <algorithm>
#include <charconv>

using vo::Ref;

namespace xml {
namespace {

constexpr uint64_t nowhere = UINT64_MAX;

std::string_view viewOf(XML_UTF8 text) { return {text.bytes, size_t(text.length)}; }

// ---------------------------------------------------------------- what edits are given

bool isName(XML_UTF8 name) {
    Ref string(voStringTryCreateFromUtf8(name.bytes, name.length));
    return string && xmlValueNameOk(string);
}

/// Whether a text may stand as the content of an element, and does not end that.
bool isContent(XML_UTF8 text) {
    EditText wrapped("<?xml version='1.0'?><a>");
    wrapped.append(viewOf(text)).append("</a>");
    Ref bytes(voBufferCreateFromBytesCopy(wrapped.data(), int64_t(wrapped.size())));
    Ref result(xmlDocumentDecode(bytes, Ref(xmlOptionsCreate()), nullptr));
    if (!xmlDecodeResultHasDocument(result)) return false;
    Ref cursor(xmlCursorCreate(Ref(xmlDecodeResultDocument(result))));
    return xmlCursorFirstChild(cursor) && !xmlCursorNext(cursor);
}

const char *whyNot(const XML_EDIT &edit) {
    const XML_EDIT_ACTION action = edit.action;
    const bool hasName =
        action == XML_EDIT_ACTION_RENAME || action == XML_EDIT_ACTION_SET_ATTRIBUTE;
    if (hasName && !(edit.name.bytes && isName(edit.name))) return "this is not a name";
    if (action == XML_EDIT_ACTION_DELETE || action == XML_EDIT_ACTION_RENAME) return nullptr;
    if (!edit.text.bytes ||
        !vo___Utf8IsValid(reinterpret_cast<const uint8_t *>(edit.text.bytes), edit.text.length))
        return "this is not UTF-8";
    const bool hasText = action == XML_EDIT_ACTION_SET || action == XML_EDIT_ACTION_SET_ATTRIBUTE;
    return hasText || isContent(edit.text) ? nullptr : "this is not the content of an element";
}

// ---------------------------------------------------------------- what values become

EditText escaped(std::string_view plain) {
    EditText out;
    for (const char ch : plain)
        if (ch == '<')
            out += "&lt;";
        else if (ch == '&')
            out += "&amp;";
        else
            out += ch;
    return out;
}

/// A character reference for each character that the character set lacks.
EditText referringTo(const EditText &value, voCharset charset) {
    EditText out;
    const auto *at = reinterpret_cast<const uint8_t *>(value.data()), *end = at + value.size();
    while (at < end) {
        const uint8_t *begin = at;
        const uint32_t ch = nextChar(at, end);
        const std::string_view bytes = Piece{begin, at}.bytes();
        if (fits(bytes, charset)) {
            out.append(bytes);
            continue;
        }
        char digits[16];
        const auto done = std::to_chars(std::begin(digits), std::end(digits), ch);
        out.append("&#").append(digits, done.ptr).append(";");
    }
    return out;
}

EditText quoted(std::string_view value, char quote) {
    EditText out(1, quote);
    for (const char ch : value)
        if (ch == quote)
            out += quote == '"' ? "&quot;" : "&apos;";
        else
            out += ch;
    return out += quote;
}

// ---------------------------------------------------------------- places

/// Where the parts of an element stand.
struct ElementPlaces {
    uint64_t nameBegin, nameEnd;
    uint64_t attributesEnd;
    uint64_t slash; ///< Of an empty-element tag; otherwise nowhere.
    uint64_t contentBegin, contentEnd;
    uint64_t endNameBegin; ///< In the end tag, if there is one.
    uint64_t end;
};

/// Finds where elements end, in one walk over all records for all that are asked about.
class EndTags {
  public:
    /// `elements` have content, and are in ascending order.
    EndTags(const Outline &outline, vo::Vec<uint64_t> wanted) : elements(std::move(wanted)) {
        places.resize(elements.size());
        if (!elements.empty()) walk(outline);
    }

    uint64_t of(uint64_t element) const {
        const auto found = std::lower_bound(elements.begin(), elements.end(), element);
        return places[size_t(found - elements.begin())];
    }

  private:
    struct Open {
        uint64_t element, end;
    };

    void walk(const Outline &outline) {
        const uint8_t *text = outline.source.text.begin, *textEnd = outline.source.text.end;
        vo::Vec<Open> open;
        uint64_t at = 0; // behind the last node that has ended
        const auto close = [&] {
            note(open.back().element, at);
            const uint8_t *name = skipS(text + at + 2, textEnd);
            at = uint64_t(skipS(skipName(name, textEnd), textEnd) + 1 - text);
            open.pop_back();
        };
        // Nothing that is asked about ends behind the last one.
        for (uint64_t number = 0; number <= outline.count; ++number) {
            while (!open.empty() && open.back().end == number)
                close();
            if (number == outline.count) break;
            const Node node = outline.node(number);
            if (node.kind == attributeKind) continue;
            if (node.kind == XML_ITEM_TYPE_ELEMENT && outline.firstIn(number) < node.end)
                open.push_back({number, node.end});
            else
                at = outline.endPlaceOf(number);
        }
    }

    void note(uint64_t element, uint64_t place) {
        const auto found = std::lower_bound(elements.begin(), elements.end(), element);
        if (found != elements.end() && *found == element)
            places[size_t(found - elements.begin())] = place;
    }

    vo::Vec<uint64_t> elements;
    vo::Vec<uint64_t> places;
};

bool isText(Kind kind) { return kind == XML_ITEM_TYPE_TEXT || kind == XML_ITEM_TYPE_CDATA; }

// ---------------------------------------------------------------- the plan

/// Several replacements may be wanted at one place.
struct Wanted : Replacement {
    enum Order {
        insertion,
        insertionBehindContent,
        change,
    } order;
    bool deletes = false;
    bool mayTakeLine = false;
};

class Planner {
  public:
    Planner(const Outline &source, Edits given, std::span<const EditTarget> sorted)
        : outline(source), edits(given), targets(sorted), endTags(source, elementsWithContent()) {
        values.resize(edits.size());
    }

    std::optional<EditFault> run(vo::Vec<Replacement> &plan) {
        for (size_t first = 0; first < targets.size() && !fault;) {
            size_t behind = first + 1;
            while (behind < targets.size() && targets[behind].record == targets[first].record)
                ++behind;
            node(targets.subspan(first, behind - first));
            first = behind;
        }
        if (!fault) settle(plan);
        return fault;
    }

  private:
    using Group = std::span<const EditTarget>;

    vo::Vec<uint64_t> elementsWithContent() const {
        vo::Vec<uint64_t> found;
        for (const auto &[record, edit] : targets) {
            if (record == Outline::root || (!found.empty() && found.back() == record)) continue;
            const Node node = outline.node(record);
            if (node.kind == XML_ITEM_TYPE_ELEMENT && outline.firstIn(record) < node.end)
                found.push_back(record);
        }
        return found;
    }

    /// Handles all edits of one node.
    void node(Group group) {
        const uint64_t record = group.front().record;
        if (record == Outline::root) return document(group);
        const Node node = outline.node(record);
        if (node.kind == XML_ITEM_TYPE_ELEMENT) return element(group, record);
        if (node.kind == attributeKind) {
            for (const auto &[number, edit] : group)
                attribute(node, edit);
            return;
        }
        for (const auto &[number, edit] : group)
            leaf(record, node, edit);
    }

    const XML_EDIT &at(int64_t edit) const { return edits[size_t(edit)]; }
    std::string_view textOf(int64_t edit) const { return viewOf(at(edit).text); }
    const uint8_t *textEnd() const { return outline.source.text.end; }
    uint64_t offsetOf(const uint8_t *place) const {
        return uint64_t(place - outline.source.text.begin);
    }
    uint64_t skipSpace(uint64_t place) const {
        return offsetOf(skipS(outline.at(place), textEnd()));
    }

    void fail(XML_EDIT_ERROR_CODE code, int64_t edit, const char *text, uint64_t place) {
        if (!fault) fault = EditFault{code, edit, text, place};
    }
    void refuse(int64_t edit, uint64_t place) {
        fail(XML_EDIT_ERROR_CODE_NODE, edit, "the edit does not apply to this node", place);
    }

    Wanted &want(uint64_t from, uint64_t to, std::string_view text, int64_t edit) {
        const auto order = from == to ? Wanted::insertion : Wanted::change;
        wanted.push_back({{from, to, EditText(text), edit}, order});
        return wanted.back();
    }

    void remove(uint64_t from, uint64_t to, int64_t edit, bool mayTakeLine) {
        Wanted &removal = want(from, to, {}, edit);
        removal.deletes = true;
        removal.mayTakeLine = mayTakeLine;
    }

    /// The value of an attribute that an edit sets, in quotes.
    EditText attributeValue(int64_t edit, char quote) {
        EditText &value = values[size_t(edit)];
        if (value.empty()) {
            const voCharset charset = outline.source.charset;
            value = escaped(textOf(edit));
            if (!fits(value, charset)) value = referringTo(value, charset);
        }
        return quoted(value, quote);
    }

    void document(Group group) {
        const auto end = uint64_t(outline.source.text.size());
        for (const auto &[record, edit] : group)
            if (at(edit).action == XML_EDIT_ACTION_INSERT_INTO)
                want(end, end, textOf(edit), edit).order = Wanted::insertionBehindContent;
            else
                refuse(edit, 0);
    }

    // ---------------------------------------------------------------- attributes and leaves

    void setValue(const Node &attribute, int64_t edit) {
        const uint64_t quote = offsetOf(outline.valueOf(attribute).begin) - 1;
        const char mark = char(*outline.at(quote));
        want(quote, attribute.end + 1, attributeValue(edit, mark), edit);
    }

    void attribute(const Node &node, int64_t edit) {
        switch (at(edit).action) {
        case XML_EDIT_ACTION_SET:
            return setValue(node, edit);
        case XML_EDIT_ACTION_DELETE: {
            // Attributes need no white space between them, but one behind the element's name does.
            const char next = char(*outline.at(node.end + 1));
            const bool takesSpace = isSpace(uint8_t(next)) || next == '/' || next == '>';
            uint64_t from = node.begin;
            while (takesSpace && isSpace(*outline.at(from - 1)))
                --from;
            return remove(from, node.end + 1, edit, false);
        }
        case XML_EDIT_ACTION_RENAME:
            want(node.begin, node.begin + uint64_t(outline.names[node.name].size()),
                 viewOf(at(edit).name), edit);
            return;
        default:
            return refuse(edit, node.begin);
        }
    }

    /// An item that is no element.
    void leaf(uint64_t record, const Node &node, int64_t edit) {
        const uint64_t begin = Outline::placeOf(node);
        uint64_t last = record;
        if (isText(node.kind))
            while (last + 1 < outline.count && isNextInRun(last)) // an attribute ends it as well
                ++last;
        const uint64_t end = outline.endPlaceOf(last);
        switch (at(edit).action) {
        case XML_EDIT_ACTION_SET:
            if (last > record) return void(want(begin, end, escaped(textOf(edit)), edit));
            return setLeaf(node, edit);
        case XML_EDIT_ACTION_DELETE:
            return remove(begin, end, edit, !isText(node.kind));
        case XML_EDIT_ACTION_RENAME:
            if (node.kind != XML_ITEM_TYPE_PROCESSING_INSTRUCTION) return refuse(edit, begin);
            want(node.begin, targetEnd(node), viewOf(at(edit).name), edit);
            return;
        case XML_EDIT_ACTION_INSERT_BEFORE:
            want(begin, begin, textOf(edit), edit);
            return;
        case XML_EDIT_ACTION_INSERT_AFTER:
            want(end, end, textOf(edit), edit);
            return;
        default:
            return refuse(edit, begin);
        }
    }

    /// Whether the record behind a text is one of the same parent. Between texts of different
    /// parents there is a tag.
    bool isNextInRun(uint64_t text) const {
        const Node next = outline.node(text + 1);
        return isText(next.kind) && Outline::placeOf(next) == outline.endPlaceOf(text);
    }

    uint64_t targetEnd(const Node &instruction) const {
        return offsetOf(skipName(outline.at(instruction.begin), textEnd()));
    }

    void setLeaf(const Node &node, int64_t edit) {
        const std::string_view text = textOf(edit);
        Ref string(voStringTryCreateFromUtf8(text.data(), int64_t(text.size())));
        const char *problem = nullptr;
        uint64_t from = node.begin;
        EditText value(text);
        switch (node.kind) {
        case XML_ITEM_TYPE_TEXT:
            value = escaped(text);
            break;
        case XML_ITEM_TYPE_COMMENT:
            if (!xmlValueCommentOk(string)) problem = "this cannot stand in a comment";
            break;
        case XML_ITEM_TYPE_CDATA:
            if (!xmlValueCdataOk(string)) problem = "this cannot stand in a CDATA section";
            break;
        default:
            if (text.find("?>") != text.npos)
                problem = "this cannot stand in a processing instruction";
            from = targetEnd(node);
            if (const uint64_t data = skipSpace(from); data > from && data <= node.end)
                from = data;
            else
                value.insert(0, " ");
        }
        if (problem) return fail(XML_EDIT_ERROR_CODE_NODE, edit, problem, node.begin);
        // With what is around the value, so that two that set it meet even where it is empty.
        const auto &[before, after] = enclosing[node.kind];
        if (from == node.begin) {
            value.insert(0, before);
            from -= before.size();
        }
        want(from, node.end + after.size(), value.append(after), edit);
    }

    // ---------------------------------------------------------------- elements

    ElementPlaces placesOf(uint64_t record, const Node &node) const {
        ElementPlaces places{};
        places.nameBegin = skipSpace(node.begin + 1);
        places.nameEnd = places.nameBegin + uint64_t(outline.names[node.name].size());
        const uint64_t first = outline.firstIn(record);
        places.attributesEnd =
            first == record + 1 ? places.nameEnd : outline.node(first - 1).end + 1;
        const uint64_t close = skipSpace(places.attributesEnd);
        if (*outline.at(close) == '/') {
            places.slash = close;
            places.contentBegin = places.contentEnd = places.end = skipSpace(close + 1) + 1;
            return places;
        }
        places.slash = nowhere;
        places.contentBegin = close + 1;
        places.contentEnd = first < node.end ? endTags.of(record) : places.contentBegin;
        places.endNameBegin = skipSpace(places.contentEnd + 2);
        const uint64_t nameSize = places.nameEnd - places.nameBegin;
        places.end = skipSpace(places.endNameBegin + nameSize) + 1;
        return places;
    }

    /// What an element is to hold.
    struct NewContent {
        int64_t setBy = -1, insertedBy = -1;
        EditText set, inserted;
    };

    void element(Group group, uint64_t record) {
        const Node node = outline.node(record);
        const ElementPlaces places = placesOf(record, node);
        std::string_view name =
            Piece{outline.at(places.nameBegin), outline.at(places.nameEnd)}.bytes();
        NewContent content;
        for (const auto &[number, edit] : group) {
            const std::string_view text = textOf(edit);
            switch (at(edit).action) {
            case XML_EDIT_ACTION_SET:
                setContent(content, escaped(text), edit, node.begin);
                break;
            case XML_EDIT_ACTION_SET_CONTENT:
                setContent(content, EditText(text), edit, node.begin);
                break;
            case XML_EDIT_ACTION_INSERT_INTO:
                content.inserted.append(text);
                content.insertedBy = edit;
                break;
            case XML_EDIT_ACTION_RENAME:
                name = viewOf(at(edit).name);
                rename(places, edit);
                break;
            case XML_EDIT_ACTION_SET_ATTRIBUTE:
                setAttribute(record, places, edit);
                break;
            case XML_EDIT_ACTION_DELETE:
                remove(node.begin, places.end, edit, true);
                break;
            default: {
                const bool isBefore = at(edit).action == XML_EDIT_ACTION_INSERT_BEFORE;
                const uint64_t place = isBefore ? node.begin : places.end;
                want(place, place, text, edit);
            }
            }
        }
        fill(places, name, content);
    }

    void setContent(NewContent &content, EditText text, int64_t edit, uint64_t place) {
        if (content.setBy >= 0) return failOverlap(edit, place);
        content.set = std::move(text);
        content.setBy = edit;
    }

    void rename(const ElementPlaces &places, int64_t edit) {
        const std::string_view name = viewOf(at(edit).name);
        want(places.nameBegin, places.nameEnd, name, edit);
        if (places.slash != nowhere) return;
        const uint64_t size = places.nameEnd - places.nameBegin;
        want(places.endNameBegin, places.endNameBegin + size, name, edit);
    }

    void fill(const ElementPlaces &places, std::string_view name, const NewContent &content) {
        if (places.slash != nowhere) {
            if (content.set.empty() && content.inserted.empty()) return;
            EditText text(">");
            text.append(content.set).append(content.inserted).append("</").append(name).append(">");
            want(places.slash, places.end, text, std::max(content.setBy, content.insertedBy));
            return;
        }
        const uint64_t end = places.contentEnd;
        if (content.setBy >= 0) want(places.contentBegin, end, content.set, content.setBy);
        if (content.insertedBy >= 0)
            want(end, end, content.inserted, content.insertedBy).order =
                Wanted::insertionBehindContent;
    }

    void setAttribute(uint64_t record, const ElementPlaces &places, int64_t edit) {
        const std::string_view name = viewOf(at(edit).name);
        const uint64_t behind = outline.firstIn(record);
        for (uint64_t number = record + 1; number < behind; ++number) {
            const Node node = outline.node(number);
            if (outline.names[node.name].bytes() == name) return setValue(node, edit);
        }
        EditText text(" ");
        text.append(name).append("=").append(attributeValue(edit, '"'));
        want(places.attributesEnd, places.attributesEnd, text, edit);
    }

    // ---------------------------------------------------------------- putting it together

    void failOverlap(int64_t edit, uint64_t place) {
        fail(XML_EDIT_ERROR_CODE_OVERLAP, edit, "two edits change this place", place);
    }

    /// Removes what stands within other removals, and refuses what overlaps otherwise.
    void settle(vo::Vec<Replacement> &plan) {
        std::stable_sort(wanted.begin(), wanted.end(), [](const Wanted &a, const Wanted &b) {
            return a.from != b.from ? a.from < b.from : a.order < b.order;
        });
        size_t kept = 0;
        for (Wanted &next : wanted) {
            const Wanted *last = kept > 0 ? &wanted[kept - 1] : nullptr;
            if (last && next.from < last->to) {
                if (next.deletes && last->deletes && next.to <= last->to) continue;
                return failOverlap(next.edit, next.from);
            }
            if (&next != &wanted[kept]) wanted[kept] = std::move(next);
            ++kept;
        }
        wanted.resize(kept);
        plan.reserve(kept);
        for (size_t i = 0; i < kept; ++i) {
            const uint64_t before = i > 0 ? wanted[i - 1].to : 0;
            const uint64_t behind =
                i + 1 < kept ? wanted[i + 1].from : uint64_t(outline.source.text.size());
            if (wanted[i].mayTakeLine) takeLine(wanted[i], before, behind);
        }
        for (Wanted &next : wanted)
            plan.push_back(std::move(static_cast<Replacement &>(next)));
    }

    /// Removes a whole line, with its end, where nothing else stands on it and nothing else is
    /// changed between the two places.
    void takeLine(Wanted &removal, uint64_t before, uint64_t behind) const {
        const auto isBlank = [&](uint64_t place) {
            return *outline.at(place) == ' ' || *outline.at(place) == '\t';
        };
        uint64_t from = removal.from, to = removal.to;
        while (from > before && isBlank(from - 1))
            --from;
        while (to < behind && isBlank(to))
            ++to;
        if (to < behind && *outline.at(to) == '\r') ++to;
        const bool isAlone =
            from > 0 && *outline.at(from - 1) == '\n' && to < behind && *outline.at(to) == '\n';
        if (!isAlone) return;
        removal.from = from;
        removal.to = to + 1;
    }

    const Outline &outline;
    const Edits edits;
    const std::span<const EditTarget> targets;
    const EndTags endTags;
    vo::Vec<EditText> values; ///< By edit: what an attribute is set to, once that was asked for.
    vo::Vec<Wanted> wanted;
    std::optional<EditFault> fault;
};

} // namespace

std::optional<EditFault> checkEdits(Edits edits) {
    for (size_t i = 0; i < edits.size(); ++i)
        if (const char *problem = whyNot(edits[i]))
            return EditFault{XML_EDIT_ERROR_CODE_ARGUMENT, int64_t(i), problem, {}};
    return std::nullopt;
}

std::optional<EditFault> planEdits(const Outline &outline, Edits edits, vo::Vec<EditTarget> targets,
                                   vo::Vec<Replacement> &plan) {
    std::stable_sort(targets.begin(), targets.end(),
                     [](const EditTarget &a, const EditTarget &b) { return a.record < b.record; });
    return Planner(outline, edits, targets).run(plan);
}

} // namespace xml
