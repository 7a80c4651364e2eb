#include "xml/xml_text.h"

#include "source/vo/vo_array.hpp"
#include "source/vo/vo_int.hpp"
#include "source/xml/base/xml_object.hpp"
#include "source/xml/base/xml_quoting.hpp"
#include "source/xml/base/xml_reference.hpp"
#include "xml/xml_value.h"

#include <algorithm>
#include <span>

using vo::assign;
using vo::Ref;
using vo::retained;

XML_OBJECT(Text, XML_TEXT, text);
XML_LOCATION(Text, XML_TEXT, text);

constexpr uint32_t xml___EntityLt[4] = {'&', 'l', 't', ';'};
constexpr uint32_t xml___EntityGt[4] = {'&', 'g', 't', ';'};
constexpr uint32_t xml___EntityAmp[5] = {'&', 'a', 'm', 'p', ';'};
constexpr uint32_t xml___EntityQuot[6] = {'&', 'q', 'u', 'o', 't', ';'};
constexpr uint32_t xml___EntityApos[6] = {'&', 'a', 'p', 'o', 's', ';'};

namespace {

using Chars = std::span<const uint32_t>;

/// The reference for a character that has one.
Chars referenceTo(uint32_t ch) {
    const auto charOf = [](auto &entity) { return entity.ch; };
    return std::ranges::find(xml::predefinedEntities, ch, charOf)->reference;
}

Chars charsOf(voString *string) { return {string->items(), size_t(string->length)}; }

int64_t count(Chars chars, uint32_t ch) { return std::ranges::count(chars, ch); }

/// Writes a new string into memory of its own, without a check for each character: the caller must
/// not write more than the length that it has announced.
class StringWriter {
  public:
    explicit StringWriter(int64_t mostChars)
        : begin(static_cast<uint32_t *>(voMemAllocN(mostChars, sizeof *begin))), at(begin) {}
    StringWriter(const StringWriter &) = delete;
    StringWriter &operator=(const StringWriter &) = delete;
    ~StringWriter() { voMemFree(begin); }

    void put(uint32_t ch) { *at++ = ch; }
    void put(Chars chars) {
        voMemCopyN(at, chars.data(), int64_t(chars.size()), sizeof *at);
        at += chars.size();
    }
    template <class Predicate> void putEscaped(Chars chars, Predicate needsEscape) {
        for (uint32_t ch : chars)
            needsEscape(ch) ? put(referenceTo(ch)) : put(ch);
    }
    voString *take() {
        const int64_t length = at - begin;
        return voStringCreateFromCharsUse(std::exchange(begin, nullptr), length);
    }

  private:
    uint32_t *begin;
    uint32_t *at;
};

/// The escaped form of plain characters; the string itself when there is nothing to escape.
voString *createEscaped(voString *vos) {
    Chars plain = charsOf(vos);
    int64_t growth = 3 * count(plain, '<') + 4 * count(plain, '&');
    if (!growth) return retained(vos);
    StringWriter out(vos->length + growth);
    out.putEscaped(plain, [](uint32_t ch) { return ch == '<' || ch == '&'; });
    return out.take();
}

} // namespace

XML_TEXT *xmlTextCreate(void) {
    auto *text = vo::create<XML_TEXT>(xmlTextSort());
    text->value = voStringCreate();
    return text;
}

XML_TEXT *xmlTextCreateValue(voString *value) {
    VO_ASSERT(xmlValueTextOk( value ));
    auto *text = vo::create<XML_TEXT>(xmlTextSort());
    text->value = retained(value);
    return text;
}

XML_TEXT *xmlTextCreateEscape(voString *vos) {
    VO_ASSERT(vos);
    auto *text = vo::create<XML_TEXT>(xmlTextSort());
    text->value = createEscaped(vos);
    return text;
}

voString *xmlTextValue(XML_TEXT *text) { return retained(VO_READ(text)->value); }

void xmlTextSetValue(XML_TEXT **text, voString *value) {
    VO_ASSERT_REF(text);
    VO_ASSERT(xmlValueTextOk( value ));
    assign(VO_EDIT(text)->value, value);
}

void xmlTextSetEscape(XML_TEXT **text, voString *vos) {
    VO_ASSERT_REF(text);
    VO_ASSERT(vos);
    Ref escaped(createEscaped(vos));
    assign(VO_EDIT(text)->value, escaped);
}

voString *xmlTextTryUnescape(XML_TEXT *text) {
    voString *value = VO_READ(text)->value;
    if (!count(charsOf(value), '&')) return retained(value);
    StringWriter out(value->length);
    return xml::unescape(charsOf(value), out) ? out.take() : nullptr;
}

voString *xml___TextAttributify(XML_TEXT *text) {
    Chars value = charsOf(VO_READ(text)->value);
    const auto [delimiter, escCnt] = xml::quotingOf(value.data(), value.data() + value.size());
    int64_t length = int64_t(value.size());
    VO_ASSERT(VO_INT_MUL_OK( escCnt, 6 ));
    VO_ASSERT(VO_INT_ADD_OK( length, escCnt * 6 ));
    VO_ASSERT(VO_INT_ADD_OK( length + escCnt * 6, 2 ));
    StringWriter out(length + escCnt * 6 + 2);
    out.put(delimiter);
    out.putEscaped(value, [quote = delimiter](uint32_t ch) { return ch == quote; });
    out.put(delimiter);
    return out.take();
}
