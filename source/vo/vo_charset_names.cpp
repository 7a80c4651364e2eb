// The character sets that there are.
#include "source/vo/vo_charset_codec.hpp"
#include "vo/vo_string.h"
#include "vo/vo_vector.h"

#include <algorithm>

namespace vo {
namespace {

using namespace families;

/// By id. The aliases are those of the IANA registry and the spellings that documents use besides.
/// Shift_JIS is read as everybody writes it: its standard mapping has no backslash and no tilde.
/// UTF-16 and UTF-32 without a byte order get one before anything is converted.
constexpr Charset table[] = {
    {"US-ASCII", singleByte, nullptr,
     "ASCII iso-ir-6 ANSI_X3.4-1968 ANSI_X3.4-1986 ISO_646.irv:1991 ISO646-US us IBM367 cp367 "
     "csASCII"},
    {"ISO-8859-1", singleByte, nullptr,
     "latin1 l1 ISO_8859-1 ISO_8859-1:1987 ISO8859-1 ISO88591 iso-ir-100 IBM819 CP819 csISOLatin1"},
    {"ISO-8859-2", singleByte, "ISO-8859-2",
     "latin2 l2 ISO_8859-2 ISO_8859-2:1987 ISO8859-2 ISO88592 iso-ir-101 csISOLatin2"},
    {"ISO-8859-3", singleByte, "ISO-8859-3",
     "latin3 l3 ISO_8859-3 ISO_8859-3:1988 ISO8859-3 ISO88593 iso-ir-109 csISOLatin3"},
    {"ISO-8859-4", singleByte, "ISO-8859-4",
     "latin4 l4 ISO_8859-4 ISO_8859-4:1988 ISO8859-4 ISO88594 iso-ir-110 csISOLatin4"},
    {"ISO-8859-5", singleByte, "ISO-8859-5",
     "cyrillic ISO_8859-5 ISO_8859-5:1988 ISO8859-5 ISO88595 iso-ir-144 csISOLatinCyrillic"},
    {"ISO-8859-6", singleByte, "ISO-8859-6",
     "arabic ISO_8859-6 ISO_8859-6:1987 ISO8859-6 ISO88596 iso-ir-127 ECMA-114 ASMO-708 "
     "csISOLatinArabic"},
    {"ISO-8859-7", singleByte, "ISO-8859-7",
     "greek greek8 ISO_8859-7 ISO_8859-7:1987 ISO8859-7 ISO88597 iso-ir-126 ELOT_928 ECMA-118 "
     "csISOLatinGreek"},
    {"ISO-8859-8", singleByte, "ISO-8859-8",
     "hebrew ISO_8859-8 ISO_8859-8:1988 ISO8859-8 ISO88598 iso-ir-138 csISOLatinHebrew"},
    {"ISO-8859-9", singleByte, "ISO-8859-9",
     "latin5 l5 ISO_8859-9 ISO_8859-9:1989 ISO8859-9 ISO88599 iso-ir-148 csISOLatin5"},
    {"ISO-8859-10", singleByte, "ISO-8859-10",
     "latin6 l6 ISO_8859-10 ISO_8859-10:1992 ISO8859-10 ISO885910 iso-ir-157 csISOLatin6"},
    {"TIS-620", singleByte, "ISO-8859-11",
     "csTIS620 TIS620 ISO-8859-11 ISO_8859-11 ISO8859-11 ISO885911"},
    {"ISO-8859-13", singleByte, "ISO-8859-13",
     "latin7 l7 ISO_8859-13 ISO8859-13 ISO885913 iso-ir-179 csISO885913"},
    {"ISO-8859-14", singleByte, "ISO-8859-14",
     "latin8 l8 ISO_8859-14 ISO_8859-14:1998 ISO8859-14 ISO885914 iso-ir-199 iso-celtic "
     "csISO885914"},
    {"ISO-8859-15", singleByte, "ISO-8859-15",
     "latin9 latin-9 l9 ISO_8859-15 ISO_8859-15:1998 ISO8859-15 ISO885915 iso-ir-203 csISO885915"},
    {"ISO-8859-16", singleByte, "ISO-8859-16",
     "latin10 l10 ISO_8859-16 ISO_8859-16:2001 ISO8859-16 ISO885916 iso-ir-226 csISO885916"},
    {"windows-1250", singleByte, "CP1250", "cp1250 x-cp1250 ms-ee cswindows1250"},
    {"windows-1251", singleByte, "CP1251", "cp1251 x-cp1251 ms-cyrl cswindows1251"},
    {"windows-1252", singleByte, "CP1252", "cp1252 x-cp1252 ms-ansi cswindows1252"},
    {"windows-1253", singleByte, "CP1253", "cp1253 x-cp1253 ms-greek cswindows1253"},
    {"windows-1254", singleByte, "CP1254", "cp1254 x-cp1254 ms-turk cswindows1254"},
    {"windows-1255", singleByte, "CP1255", "cp1255 x-cp1255 ms-hebr cswindows1255"},
    {"windows-1256", singleByte, "CP1256", "cp1256 x-cp1256 ms-arab cswindows1256"},
    {"windows-1257", singleByte, "CP1257", "cp1257 x-cp1257 winbaltrim cswindows1257"},
    {"windows-1258", singleByte, "CP1258", "cp1258 x-cp1258 cswindows1258"},
    {"windows-874", singleByte, "CP874", "cp874 dos-874 cswindows874"},
    {"KOI8-R", singleByte, "KOI8-R", "koi8_r koi8r koi csKOI8R"},
    {"KOI8-U", singleByte, "KOI8-U", "koi8_u koi8u csKOI8U"},
    {"IBM437", singleByte, "IBM437", "cp437 437 csPC8CodePage437"},
    {"IBM850", singleByte, "IBM850", "cp850 850 csPC850Multilingual"},
    {"IBM852", singleByte, "IBM852", "cp852 852 csPCp852"},
    {"IBM855", singleByte, "IBM855", "cp855 855 csIBM855"},
    {"IBM857", singleByte, "IBM857", "cp857 857 csIBM857"},
    {"IBM862", singleByte, "IBM862", "cp862 862 csPC862LatinHebrew"},
    {"IBM866", singleByte, "IBM866", "cp866 866 csIBM866"},
    {"macintosh", singleByte, "MACINTOSH", "mac macroman mac-roman x-mac-roman csMacintosh"},
    {"Shift_JIS", eastAsian, "CP932",
     "MS_Kanji Shift-JIS shiftjis x-sjis sjis ms932 cp932 Windows-31J csWindows31J csShiftJIS"},
    {"EUC-JP", eastAsian, "EUC-JP",
     "eucjp x-euc-jp ujis Extended_UNIX_Code_Packed_Format_for_Japanese csEUCPkdFmtJapanese"},
    {"ISO-2022-JP", eastAsian, "ISO-2022-JP", "iso2022jp csISO2022JP"},
    {"EUC-KR", eastAsian, "EUC-KR", "euckr csEUCKR"},
    {"GB2312", eastAsian, "EUC-CN", "EUC-CN euccn x-euc-cn gb_2312 csGB2312"},
    {"GBK", eastAsian, "GBK", "CP936 MS936 windows-936 x-gbk csGBK"},
    {"GB18030", eastAsian, "GB18030", "gb-18030 csGB18030"},
    {"Big5", eastAsian, "BIG5", "big-5 big5-eten x-x-big5 cn-big5 csBig5"},
    {"UTF-8", utf8, nullptr, "utf8 unicode-1-1-utf-8 csUTF8"},
    {"UTF-16", utf16Be, nullptr, "utf16 csUTF16"},
    {"UTF-16BE", utf16Be, nullptr, "utf16be csUTF16BE"},
    {"UTF-16LE", utf16Le, nullptr, "utf16le csUTF16LE"},
    {"UTF-32", utf32Be, nullptr, "utf32 ISO-10646-UCS-4 UCS-4 csUTF32"},
    {"UTF-32BE", utf32Be, nullptr, "utf32be UCS-4BE csUTF32BE"},
    {"UTF-32LE", utf32Le, nullptr, "utf32le UCS-4LE csUTF32LE"},
};
static_assert(VO_CHARSET_OK(std::size(table) - 1) && !VO_CHARSET_OK(std::size(table)));

/// Calls `use` with each alias until it gives true; gives whether it did.
template <class Use> bool anyAlias(const Charset &charset, Use use) {
    for (std::string_view rest = charset.aliases; !rest.empty();) {
        size_t length = std::min(rest.find(' '), rest.size());
        if (use(rest.substr(0, length))) return true;
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return false;
}

constexpr uint32_t lowerCase(uint32_t ch) { return ch >= 'A' && ch <= 'Z' ? ch | 0x20 : ch; }

/// Finds the character set with a name that meets a condition. Preferred names come first: they
/// are what most documents use, and there are few of them.
template <class Matches> voCharset find(Matches matches) {
    for (voCharset id = 0; const Charset &charset : table) {
        if (matches(charset.preferred)) return id;
        ++id;
    }
    for (voCharset id = 0; const Charset &charset : table) {
        if (anyAlias(charset, matches)) return id;
        ++id;
    }
    return -1;
}

} // namespace

const Charset &charsetOf(voCharset id) { return table[id]; }

} // namespace vo

using namespace vo;

voCharset voCharsetFromIanaName(voString *name) {
    VO_ASSERT(name);
    const uint32_t *chars = voStringBacking(name);
    auto length = size_t(voStringLength(name));
    return find([=](std::string_view known) {
        return known.size() == length &&
               std::equal(known.begin(), known.end(), chars, [](char a, uint32_t b) {
                   return lowerCase(uint32_t(a)) == lowerCase(b);
               });
    });
}

voString *voCharsetToIanaName(voCharset charset) {
    VO_ASSERT(VO_CHARSET_OK( charset ));
    return voStringCreateFromCstr(table[charset].preferred.data(), -1);
}

voVector *voCharsetAliases(voCharset charset) {
    VO_ASSERT(VO_CHARSET_OK( charset ));
    Ref aliases(voVectorCreate());
    anyAlias(table[charset], [&](std::string_view alias) {
        Ref name(voStringCreateFromCstr(alias.data(), int64_t(alias.size())));
        voVectorAppendObj(aliases.edit(), voStringObj(name));
        return false;
    });
    return aliases.take();
}
