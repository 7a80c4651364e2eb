#include "misfit.hpp"

#include "charset.hpp"

#include <unordered_set>

namespace tool {

static bool fits(uint32_t ch, voCharset charset) {
    Ref encoded(voCharsetTryConvertStringToBufferWithFlags(charset, makeString(Chars(&ch, 1)), 0));
    return encoded;
}

/// Asks about each character once, of which a text has far fewer than it is long.
static size_t indexOfMisfit(Chars text, voCharset charset) {
    std::unordered_set<uint32_t> known;
    size_t index = 0;
    while (index < text.size() && (!known.insert(text[index]).second || fits(text[index], charset)))
        ++index;
    return index;
}

static std::optional<Place> placeAt(Chars text, size_t index) {
    Ref options(xmlOptionsCreate());
    Ref map(voParserLocationMapCreate(nullptr, xmlOptionsDecodeNlfFlags(options), text.data(),
                                      static_cast<int64_t>(text.size())));
    return placeOf(Ref(voParserLocationMapLookup(map, static_cast<int64_t>(index))));
}

static std::string describe(uint32_t ch) {
    const std::string name = "character U+" + hex(ch, 4);
    return isPrintable(ch) ? name + " '" + utf8(Chars(&ch, 1)) + "'" : name;
}

Misfit firstMisfit(Chars text, voCharset charset) {
    const std::string hint = "UTF-8 has every character";
    const size_t index = indexOfMisfit(text, charset);
    const std::string name = charsetName(charset);
    if (index == text.size())
        return {{}, "the document has a character that " + name + " lacks", hint};
    return {placeAt(text, index), name + " lacks the " + describe(text[index]), hint};
}

} // namespace tool
