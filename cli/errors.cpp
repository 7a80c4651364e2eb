#include "errors.hpp"

#include "markup.hpp"

#include <algorithm>

namespace tool {
namespace {

constexpr std::string_view declaration = R"(<?xml version="1.0"?>)";
constexpr std::string_view codes = "XML_DECODE_ERROR_CODE_";

/// What became of an error in the text.
enum class Mended {
    no,   ///< It is one, and what follows may come of it.
    moot, ///< It is none of its own, and does not matter any more.
    yes   ///< It is one, and does not matter any more.
};

/// A text in which errors give way to white space, so that the decoder gets to the next one. All
/// else stays at its place.
///
/// Which of two tags that do not match is wrong remains open. Both elements are made to end there;
/// an end tag of one of them that is left over by this goes silently.
class RepairedText {
  public:
    RepairedText(Chars original, const Accepts &acceptsAnyway)
        : accepts(acceptsAnyway), text(utf8(original)) {
        if (isDeclaration(text)) {
            forgetEncoding();
        } else {
            text.insert(0, declaration);
            inserted = declaration.size();
        }
    }

    /// The first error that the decoder finds at a place.
    std::optional<Failure> firstError() const {
        Ref bytes(voBufferCreateFromBytesCopy(text.data(), static_cast<int64_t>(text.size())));
        Decoded decoded = decode(bytes, {.locations = true});
        if (!decoded.failure || !decoded.failure->decoderPlace) return std::nullopt;
        moveBack(*decoded.failure);
        return decoded.failure;
    }

    Mended mend(const Failure &failure) {
        if (!failure.decoderPlace || !failure.code.starts_with(codes)) return Mended::no;
        const std::string_view code = std::string_view(failure.code).substr(codes.size());
        if (code == "TEXT" || code == "ATTRIBUTE_LIST")
            return mendReference(byteAt(*failure.place));
        const size_t at = byteAt(*failure.decoderPlace);
        if (code == "TAG_MISMATCH") return mendMismatch(at);
        if (code == "COMMENT") return mendComment(at);
        if (code == "XML_DECLARATION") return mendDeclaration(at);
        return Mended::no;
    }

  private:
    /// The text is UTF-8 now, whatever it was.
    void forgetEncoding() {
        const std::string_view name = declaredEncoding(text);
        if (name.empty()) return;
        const auto end = static_cast<size_t>(name.data() - text.data()) + name.size();
        blank(text.rfind("encoding", end - name.size()), end + 1);
    }

    size_t byteAt(Place place) const {
        return byteOf(text, static_cast<size_t>(place.offset) + inserted);
    }

    /// Hints quote names and single characters, so that only a place reads like one.
    void moveBack(Failure &failure) const {
        if (inserted == 0) return;
        const auto shift = static_cast<int64_t>(inserted);
        for (std::optional<Place> *place : {&failure.place, &failure.decoderPlace}) {
            if (!*place) continue;
            (*place)->offset -= shift;
            if ((*place)->line == 1) (*place)->column -= shift;
        }
        constexpr std::string_view firstLine = " line 1, column ";
        const size_t found = failure.hint.find(firstLine);
        if (found == std::string::npos) return;
        const size_t digits = found + firstLine.size();
        const size_t end = failure.hint.find_first_not_of("0123456789", digits);
        const int64_t column = std::stoll(failure.hint.substr(digits)) - shift;
        failure.hint.replace(digits, end - digits, std::to_string(column));
    }

    /// Markup is ASCII; other characters are as good as white space.
    void blank(size_t from, size_t to) {
        std::replace_if(
            text.begin() + static_cast<ptrdiff_t>(from), text.begin() + static_cast<ptrdiff_t>(to),
            [](char ch) { return static_cast<unsigned char>(ch) < 0x80 && !isXmlSpace(ch); }, ' ');
    }

    // ---------------------------------------------------------------- tags

    Mended mendMismatch(size_t at) {
        const std::vector<size_t> open = surroundingsOf(text, at).open;
        const std::string name(tagName(text, at));
        const auto hasName = [&](size_t tag) { return tagName(text, tag) == name; };
        const auto match = std::find_if(open.rbegin(), open.rend(), hasName);
        const bool hasMatch = match != open.rend();
        if (isExpected(name, hasMatch ? *match : 0)) {
            blank(at, endOfTag(text, at));
            return Mended::moot;
        }
        if (hasMatch) { // what is open within it has no end
            expected.push_back({name, at});
            std::for_each(open.rbegin(), match, [&](size_t tag) { removeStart(tag, at); });
        } else { // a slip in the name, or nothing was opened
            blank(at, endOfTag(text, at));
            if (!open.empty()) removeStart(open.back(), at);
        }
        return Mended::yes;
    }

    void removeStart(size_t tag, size_t since) {
        expected.push_back({std::string(tagName(text, tag)), since});
        blank(tag, endOfTag(text, tag));
    }

    /// Whether an end tag may have been left over before the element at `match` began.
    bool isExpected(const std::string &name, size_t match) {
        const auto found = std::ranges::find_if(
            expected, [&](const EndTag &tag) { return tag.name == name && tag.since >= match; });
        if (found == expected.end()) return false;
        expected.erase(found);
        return true;
    }

    // ---------------------------------------------------------------- references

    /// Whether what stands at a place is a reference by its number, and left to others.
    bool isLeft(size_t at) const {
        return accepts && std::string_view(text).substr(at).starts_with("&#");
    }

    /// The error may be another one in a tag. References that are left to others can be many.
    Mended mendReference(size_t at) {
        if (text[at] != '&') return Mended::no;
        const bool left = isLeft(at);
        text[at] = ' ';
        while (left && (at = text.find("&#", at)) != text.npos)
            text[at] = ' ';
        return left ? Mended::moot : Mended::yes;
    }

    // ---------------------------------------------------------------- what others take

    bool isLifted(const std::string &document) const { return accepts && accepts(document); }

    Mended mendComment(size_t at) {
        const size_t end = text.find("-->", at + 4);
        if (end == text.npos || !isLifted(text.substr(at, end + 3 - at) + "<a/>"))
            return Mended::no;
        blank(at, end + 3);
        return Mended::moot;
    }

    Mended mendDeclaration(size_t at) {
        at = text.rfind("<?xml", at);
        const size_t end = text.find("?>", at);
        if (end == text.npos || end - at + 2 < declaration.size() ||
            !isLifted(text.substr(at, end - at) + "?><a/>"))
            return Mended::no;
        blank(at, end + 2);
        text.replace(at, declaration.size(), declaration);
        return Mended::moot;
    }

    /// An end tag that may come without an element, because of the error at `since`.
    struct EndTag {
        std::string name;
        size_t since;
    };

    const Accepts &accepts;
    std::string text;
    size_t inserted = 0; ///< How much the text begins with that is not the author's.
    std::vector<EndTag> expected;
};

/// Whether what has been mended was not what the error is about.
bool isStill(const Failure &error, const Failure &last) {
    return error.place->offset == last.place->offset && error.hint == last.hint;
}

Errors collect(std::optional<Failure> failure, RepairedText &repaired) {
    Errors errors;
    for (size_t round = 0; failure && round < 2 * mostErrors; ++round) {
        const Mended mended = repaired.mend(*failure);
        if (mended != Mended::moot) {
            if ((errors.hasMore = errors.list.size() == mostErrors)) break;
            errors.list.push_back(*std::move(failure));
        }
        if (mended == Mended::no) break;
        failure = repaired.firstError();
        if (failure && !errors.list.empty() && isStill(*failure, errors.list.back())) break;
    }
    return errors;
}

} // namespace

Errors errorsFrom(Failure first, Chars text) {
    const Accepts nothing;
    RepairedText repaired(text, nothing);
    return collect(std::move(first), repaired);
}

Errors strictErrors(const Accepts &accepts, Chars text) {
    RepairedText repaired(text, accepts);
    Errors errors = collect(repaired.firstError(), repaired);
    const bool endsAtDoctype =
        !errors.list.empty() && errors.list.back().code == "XML_DECODE_ERROR_CODE_DOCTYPE";
    if (endsAtDoctype) errors.list.pop_back();
    return errors;
}

} // namespace tool
