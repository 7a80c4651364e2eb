/** @file
 *  The library for C++: values over the counted objects of the C interface.
 *
 *  Needs C++17 and nothing but the standard library and the C headers; works without exceptions
 *  and without run-time type information. The library starts before main() and stays started.
 *
 *      auto doc = voxml::document::decode_file("menu.xml");
 *      if (!doc) return std::cerr << doc.error().to_string() << '\n', 1;
 *      for (const voxml::element &dish : doc->root()->elements("dish"))
 *          if (auto name = dish.attribute("name")) std::cout << *name << '\n';
 *
 *  Rules that hold unless a comment says otherwise:
 *  - A type of this header is a value: a copy shares everything and costs one atomic increment, a
 *    move steals, and changing one value never changes another. A value that was moved from may
 *    only be assigned and destroyed.
 *  - What may be absent is a std::optional or an empty range.
 *  - Strings go in as UTF-8 or as the library's own. What a tree cannot hold is an error in a
 *    result; then nothing has changed. Names that no tree holds are found nowhere. Trees hold and
 *    write control characters and line ends as they are, though other readers refuse the former and
 *    read line ends as LF.
 *  - Attribute and text values are plain characters; what deals in the escaped form, as it stands
 *    between markup, says `escaped`.
 *  - Indexes count from 0; one outside a list ends the process.
 *  - Threads may read, copy and destroy values that share parts. One variable is for one thread at
 *    a time as soon as one of them changes it.
 *
 *  The plain tree is in namespace voxml, the one with resolved names in voxml::ns. To read and to
 *  build, take voxml::ns where there are namespaces. To change a document that people wrote, so
 *  that each prefix stays as it stands, take the plain tree: there a declaration is the attribute
 *  `xmlns` or `xmlns:p`, and giving it another value moves all names below. */
#ifndef VOXML_HPP
#define VOXML_HPP

#include "vo/vo.h"
#include "xml/xml.h"
#include "xml/xml_import.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <iosfwd>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#if __has_include(<version>)
#include <version>
#endif
#if defined(__cpp_lib_format)
#include <format>
#endif

/** The result refers to the object or argument that carries this mark; compilers that know it warn
 *  when the result outlives that. */
#if defined(__clang__)
#define VOXML_LIFETIMEBOUND [[clang::lifetimebound]]
#else
#define VOXML_LIFETIMEBOUND
#endif

namespace voxml {

/** What went wrong. */
enum class errc {
    // The document is refused.
    charset,                ///< See XML_DECODE_ERROR_CODE_CHARSET; a missing declaration as well.
    xml_declaration,        ///< See XML_DECODE_ERROR_CODE_XML_DECLARATION.
    doctype,                ///< See XML_DECODE_ERROR_CODE_DOCTYPE.
    tag,                    ///< See XML_DECODE_ERROR_CODE_TAG.
    tag_mismatch,           ///< See XML_DECODE_ERROR_CODE_TAG_MISMATCH.
    tag_not_closed,         ///< See XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED.
    processing_instruction, ///< See XML_DECODE_ERROR_CODE_PROCESSING_INSTRUCTION.
    comment,                ///< See XML_DECODE_ERROR_CODE_COMMENT.
    cdata,                  ///< See XML_DECODE_ERROR_CODE_CDATA.
    attribute_list,         ///< See XML_DECODE_ERROR_CODE_ATTRIBUTE_LIST.
    text,                   ///< See XML_DECODE_ERROR_CODE_TEXT.

    // Its namespaces are refused.
    namespace_name,           ///< See XML_NS_DECODE_ERROR_CODE_NAMESPACE.
    namespace_prefix,         ///< See XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX.
    namespace_prefix_unknown, ///< See XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX_UNKNOWN.
    local_name,               ///< See XML_NS_DECODE_ERROR_CODE_LOCAL_NAME.

    // A value is refused, which the tree does not come to hold.
    bad_utf8,                   ///< Ill-formed UTF-8.
    bad_name,                   ///< No XML name, or with namespaces no name without a colon.
    bad_namespace,              ///< No name of a namespace, see xmlNsValueNamespaceOk().
    bad_prefix,                 ///< No prefix, see xmlNsValuePrefixOk().
    bad_escaped_text,           ///< See xmlValueTextOk().
    bad_comment,                ///< See xmlValueCommentOk().
    bad_cdata,                  ///< See xmlValueCdataOk().
    bad_processing_instruction, ///< See xmlValueProcessingInstructionValueOk().
    bad_version,                ///< See xmlValueVersionNumOk().

    charset_too_small, ///< The document's character set lacks a character of the text. All lack
                       ///< surrogates, for which references in attribute values may stand.
    file,              ///< The system refuses a file; see failure::system_error().
    not_well_formed,   ///< import_document() refuses the text.
    bad_path,          ///< No path, see xml/xml_path.h.
};

/** The kinds of node. */
enum class item_type {
    element = XML_ITEM_TYPE_ELEMENT,
    processing_instruction = XML_ITEM_TYPE_PROCESSING_INSTRUCTION,
    comment = XML_ITEM_TYPE_COMMENT,
    text = XML_ITEM_TYPE_TEXT,
    cdata = XML_ITEM_TYPE_CDATA,
    document = 5,  ///< Of views only.
    attribute = 6, ///< Of views only.
};

namespace detail {

/// The library stays started: values may live as long as any other object of the program.
inline const bool started = voModuleStartup(xmlModule()) != 0;

inline constexpr char32_t replacement = U'\uFFFD';

/// Reads a code point of UTF-8 and moves `at` behind it; U+FFFFFFFF where the bytes are ill-formed.
inline char32_t read_utf8(const char *&at, const char *end) noexcept {
    const auto byte = [](char c) { return static_cast<char32_t>(static_cast<unsigned char>(c)); };
    const char32_t first = byte(*at++);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    constexpr char32_t bad = 0xFFFFFFFF, least[] = {0, 0x80, 0x800, 0x10000};
    if (first < 0xC2 || first > 0xF4 || end - at < more) return bad;
    char32_t point = first & (0x3Fu >> more);
    for (int i = 0; i < more; ++i) {
        const char32_t next = byte(*at++);
        if ((next & 0xC0) != 0x80) return bad;
        point = point << 6 | (next & 0x3F);
    }
    const bool scalar = point <= 0x10FFFF && (point < 0xD800 || point > 0xDFFF);
    return scalar && point >= least[more] ? point : bad;
}

inline void append_utf8(std::string &out, char32_t point) {
    if (point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) point = replacement;
    const auto put = [&](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (point < 0x80) return put(point);
    if (point < 0x800) {
        put(0xC0 | point >> 6);
    } else if (point < 0x10000) {
        put(0xE0 | point >> 12);
        put(0x80 | (point >> 6 & 0x3F));
    } else {
        put(0xF0 | point >> 18);
        put(0x80 | (point >> 12 & 0x3F));
        put(0x80 | (point >> 6 & 0x3F));
    }
    put(0x80 | (point & 0x3F));
}

inline bool equals_utf8(std::u32string_view points, std::string_view utf8) noexcept {
    const char *at = utf8.data(), *const end = at + utf8.size();
    for (const char32_t point : points)
        if (at == end || read_utf8(at, end) != point) return false;
    return at == end;
}

/// A string for functions of the C interface that take its length; they refuse null.
inline const char *bytes_of(std::string_view utf8) noexcept {
    return utf8.empty() ? "" : utf8.data();
}
inline std::int64_t length_of(std::string_view utf8) noexcept {
    return static_cast<std::int64_t>(utf8.size());
}

} // namespace detail

/** Adopts a new reference of the C interface: `voxml::comment(voxml::adopt, xmlCommentCreate(v))`.
 *  The reference must not be null and belongs to the value from now on. */
struct adopt_t {};
inline constexpr adopt_t adopt{}; ///< The value to pass.

/** A value over a counted object of the C type `T`: the base of the types below. Two values are
 *  equal when they are the same object, strings and buffers when their content is. */
template <class T> class handle {
  public:
    using native_type = T;

    handle(adopt_t, T *reference) noexcept : object_(reference) {}
    handle(const handle &other) noexcept : object_(retained(other.object_)) {}
    handle(handle &&other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    handle &operator=(const handle &other) noexcept {
        handle copy(other);
        std::swap(object_, copy.object_);
        return *this;
    }
    handle &operator=(handle &&other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~handle() {
        if (object_) voObjRelease(as_object(object_));
    }

    /** The object for calls of the C interface, borrowed. */
    [[nodiscard]] T *get() const noexcept VOXML_LIFETIMEBOUND { return object_; }
    /** The address of the reference, for functions of the C interface that change a value. */
    [[nodiscard]] T **address() noexcept VOXML_LIFETIMEBOUND { return &object_; }

    friend bool operator==(const handle &a, const handle &b) noexcept {
        return a.object_ == b.object_;
    }
    friend bool operator!=(const handle &a, const handle &b) noexcept { return !(a == b); }

  private:
    static voObj *as_object(T *object) noexcept { return reinterpret_cast<voObj *>(object); }
    static T *retained(T *object) noexcept {
        if (object) voObjRetain(as_object(object));
        return object;
    }

    T *object_;
};

namespace detail {

/// A new reference as a value, or none for null.
template <class Value>
std::optional<Value> optional_of(typename Value::native_type *reference) noexcept {
    if (!reference) return std::nullopt;
    return std::optional<Value>(std::in_place, adopt, reference);
}

} // namespace detail

/** A string of the library, immutable. Compares with UTF-8 without an allocation; str() is the one
 *  to join with others or to replace by a default. */
class string : public handle<voString> {
  public:
    using handle::handle;

    /** The code points, as long as this value lives and is not assigned. Hand-made strings may hold
     *  values that are no Unicode scalar values. */
    [[nodiscard]] std::u32string_view u32() const noexcept VOXML_LIFETIMEBOUND {
        return {reinterpret_cast<const char32_t *>(voStringBacking(get())), size()};
    }
    /** In code points. */
    [[nodiscard]] std::size_t size() const noexcept {
        return static_cast<std::size_t>(voStringLength(get()));
    }
    /** Whether there are no code points. */
    [[nodiscard]] bool empty() const noexcept { return size() == 0; }

    /** As UTF-8; what that cannot express becomes U+FFFD. */
    [[nodiscard]] std::string str() const {
        const std::u32string_view points = u32();
        std::string utf8;
        utf8.reserve(points.size());
        for (const char32_t point : points)
            detail::append_utf8(utf8, point);
        return utf8;
    }
    /** As str() gives it. */
    operator std::string() const { return str(); }

    friend bool operator==(const string &a, const string &b) noexcept { return a.u32() == b.u32(); }
    friend bool operator!=(const string &a, const string &b) noexcept { return !(a == b); }
    friend bool operator==(const string &a, std::string_view utf8) noexcept {
        return detail::equals_utf8(a.u32(), utf8);
    }
    friend bool operator!=(const string &a, std::string_view utf8) noexcept { return !(a == utf8); }
    friend bool operator==(std::string_view utf8, const string &a) noexcept { return a == utf8; }
    friend bool operator!=(std::string_view utf8, const string &a) noexcept { return !(a == utf8); }
    /** By code points. */
    friend bool operator<(const string &a, const string &b) noexcept { return a.u32() < b.u32(); }

    template <class Traits> friend std::basic_ostream<char, Traits> &
    operator<<(std::basic_ostream<char, Traits> &out, const string &printed) {
        return out << printed.str();
    }
};

/** A string as a parameter: UTF-8, or a string of the library. Refers to what it was made from. */
class string_arg {
  public:
    template <class Text,
              class = std::enable_if_t<std::is_convertible_v<const Text &, std::string_view>>>
    string_arg(const Text &utf8 VOXML_LIFETIMEBOUND) : utf8_(utf8) {}
    string_arg(const string &made VOXML_LIFETIMEBOUND) noexcept : made_(&made) {}

    /** Whether it is the empty string. */
    [[nodiscard]] bool empty() const noexcept { return made_ ? made_->empty() : utf8_.empty(); }
    /** Whether it is that string. */
    [[nodiscard]] bool is(std::string_view utf8) const noexcept {
        return made_ ? *made_ == utf8 : utf8_ == utf8;
    }
    /** What it was made from, if that is UTF-8. */
    [[nodiscard]] std::string_view utf8() const noexcept { return utf8_; }
    /** As a string of the library; none where the UTF-8 is ill-formed. */
    [[nodiscard]] std::optional<string> try_string() const noexcept {
        if (made_) return *made_;
        return detail::optional_of<string>(
            voStringTryCreateFromUtf8(detail::bytes_of(utf8_), detail::length_of(utf8_)));
    }
    using kept = std::string;
    /** As UTF-8, which lies in `room` where it was none. */
    [[nodiscard]] std::string_view in(kept &room VOXML_LIFETIMEBOUND) const {
        return made_ ? room = made_->str() : utf8_;
    }
    /** A copy as UTF-8. */
    [[nodiscard]] kept keep() const { return made_ ? made_->str() : kept(utf8_); }

  private:
    std::string_view utf8_;
    const string *made_ = nullptr; ///< Or null, for UTF-8.
};

/** Bytes, immutable. */
class buffer : public handle<voBuffer> {
  public:
    using handle::handle;

    /** Copies the bytes. */
    explicit buffer(std::string_view bytes)
        : handle(adopt, voBufferCreateFromBytesCopy(bytes.data(),
                                                    static_cast<std::int64_t>(bytes.size()))) {}

    /** The bytes, as long as this value lives and is not assigned. */
    [[nodiscard]] std::string_view view() const noexcept VOXML_LIFETIMEBOUND {
        return {reinterpret_cast<const char *>(voBufferBacking(get())),
                static_cast<std::size_t>(voBufferLength(get()))};
    }
    /** A copy of the bytes. */
    [[nodiscard]] std::string str() const { return std::string(view()); }

    friend bool operator==(const buffer &a, const buffer &b) noexcept {
        return a.view() == b.view();
    }
    friend bool operator!=(const buffer &a, const buffer &b) noexcept { return !(a == b); }
};

/** Where something stands in the text that was decoded. */
struct location {
    std::int64_t offset = 0;      ///< In code points, from 0.
    std::int64_t line = 1;        ///< From 1.
    std::int64_t column = 1;      ///< In code points, from 1.
    std::optional<string> source; ///< The name of the text, where it was given one.
};

/** Why an operation failed. */
class failure {
  public:
    explicit failure(errc code) noexcept : code_(code) {}

    /** Which failure it is. */
    [[nodiscard]] errc code() const noexcept { return code_; }
    /** What is wrong, in English. */
    [[nodiscard]] std::string message() const {
        return details_ ? details_->message : std::string(describe(code_));
    }
    /** Where, if it is about a place in a text; then line() and column() are not 0. */
    [[nodiscard]] std::optional<location> where() const {
        return details_ ? details_->where : std::nullopt;
    }
    /** The line of where(), or 0. */
    [[nodiscard]] std::int64_t line() const noexcept { return at_place(&location::line); }
    /** The column of where(), or 0. */
    [[nodiscard]] std::int64_t column() const noexcept { return at_place(&location::column); }
    /** The place in bytes from 0, or -1 where that is not known. */
    [[nodiscard]] std::int64_t byte_offset() const noexcept {
        return details_ ? details_->byte_offset : -1;
    }
    /** How to mend it; empty where nothing is known. May quote the text, control characters
     *  included. */
    [[nodiscard]] std::string hint() const { return details_ ? details_->hint : std::string(); }
    /** The value of errno, for errc::file, or else 0. */
    [[nodiscard]] int system_error() const noexcept {
        return details_ ? details_->system_error : 0;
    }
    /** `source:line:column: error: message`, less what is unknown; without the hint. */
    [[nodiscard]] std::string to_string() const {
        std::string text = details_ ? details_->source : std::string();
        if (line() != 0) {
            if (!text.empty()) text += ':';
            text.append(std::to_string(line())).append(":").append(std::to_string(column()));
        }
        return text + (text.empty() ? "error: " : ": error: ") + message();
    }

    /** What is known beyond the code. */
    struct details {
        std::string message, source, hint;
        std::optional<location> where;
        std::int64_t byte_offset = -1; ///< Where that is not known.
        int system_error = 0;
    };
    failure(errc code, details known)
        : code_(code), details_(std::make_shared<const details>(std::move(known))) {}

  private:
    std::int64_t at_place(std::int64_t location::*member) const noexcept {
        return details_ && details_->where ? (*details_->where).*member : 0;
    }
    static const char *describe(errc code) noexcept {
        switch (code) {
        case errc::bad_utf8:
            return "ill-formed UTF-8";
        case errc::bad_name:
            return "not a name";
        case errc::bad_namespace:
            return "not the name of a namespace";
        case errc::bad_prefix:
            return "not a namespace prefix";
        case errc::bad_escaped_text:
            return "a raw < or & in escaped text";
        case errc::bad_comment:
            return "a comment that is empty or has hyphens where they must not be";
        case errc::bad_cdata:
            return "]]> in a CDATA section";
        case errc::bad_processing_instruction:
            return "a processing instruction without a target, or with ?> in it";
        case errc::bad_version:
            return "not a version number of XML";
        case errc::charset_too_small:
            return "a character that the character set of the document lacks";
        default:
            return "refused";
        }
    }

    errc code_;
    std::shared_ptr<const details> details_; ///< Null: what the code says is all.
};

namespace detail {

[[noreturn]] inline void abort_result(const char *text) {
    vo___Abort("voxml::result", __FILE__, __LINE__, text);
}

} // namespace detail

/** A value, or why there is none. Taking the value where there is none ends the process with the
 *  failure's text. */
template <class T> class [[nodiscard]] result {
  public:
    using value_type = T;

    result(T value) : held_(std::in_place_index<0>, std::move(value)) {}
    result(failure why) : held_(std::in_place_index<1>, std::move(why)) {}

    /** Whether there is a value. */
    [[nodiscard]] bool has_value() const noexcept { return held_.index() == 0; }
    /** The same. */
    explicit operator bool() const noexcept { return has_value(); }
    /** Why there is no value; where there is one, asking ends the process. */
    [[nodiscard]] const failure &error() const noexcept VOXML_LIFETIMEBOUND {
        if (has_value()) detail::abort_result("error() of a result that has a value");
        return *std::get_if<1>(&held_);
    }

    /** The value; where there is none, the process ends. */
    T &value() & VOXML_LIFETIMEBOUND { return check(), *std::get_if<0>(&held_); }
    const T &value() const &VOXML_LIFETIMEBOUND { return check(), *std::get_if<0>(&held_); }
    T value() && { return check(), std::move(*std::get_if<0>(&held_)); }
    /** The same. */
    T &operator*() & VOXML_LIFETIMEBOUND { return value(); }
    const T &operator*() const &VOXML_LIFETIMEBOUND { return value(); }
    T operator*() && { return std::move(*this).value(); }
    /** A member of the value; where there is none, the process ends. */
    T *operator->() VOXML_LIFETIMEBOUND { return &value(); }
    const T *operator->() const VOXML_LIFETIMEBOUND { return &value(); }

  private:
    void check() const {
        if (!has_value()) detail::abort_result(error().to_string().c_str());
    }

    std::variant<T, failure> held_;
};

/** Success, or why there is none. */
template <> class [[nodiscard]] result<void> {
  public:
    using value_type = void;

    result() = default;
    result(failure why) : why_(std::move(why)) {}

    /** Whether it succeeded. */
    [[nodiscard]] bool has_value() const noexcept { return !why_; }
    /** The same. */
    explicit operator bool() const noexcept { return has_value(); }
    /** Why it failed; where it did not, asking ends the process. */
    [[nodiscard]] const failure &error() const noexcept VOXML_LIFETIMEBOUND {
        if (!why_) detail::abort_result("error() of a result without a failure");
        return *why_;
    }
    /** Ends the process with the failure's text if it failed. */
    void value() const {
        if (why_) detail::abort_result(why_->to_string().c_str());
    }

  private:
    std::optional<failure> why_;
};

namespace detail {

/// A string that `ok` must accept; it is an error of code `bad` otherwise.
template <class Ok> result<string> checked(const string_arg &given, Ok ok, errc bad) {
    auto made = given.try_string();
    if (!made) return failure(errc::bad_utf8);
    if (!ok(made->get())) return failure(bad);
    return std::move(*made);
}

/// Whether it is a name of ASCII letters and digits, as almost all are: no other check is needed.
inline bool is_plain_name(std::string_view name) noexcept {
    const auto starts = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    if (name.empty() || !starts(name[0])) return false;
    for (const char c : name)
        if (!starts(c) && !(c >= '0' && c <= '9') && c != '-' && c != '.') return false;
    return true;
}
inline result<string> checked_name_part(const string_arg &given, int (*ok)(voString *)) {
    const auto is_name = [&](voString *name) {
        return is_plain_name(given.utf8()) || ok(name) != 0;
    };
    return checked(given, is_name, errc::bad_name);
}
inline result<string> checked_namespace(const string_arg &given) {
    return checked(given, xmlNsValueNamespaceOk, errc::bad_namespace);
}

inline result<string> plain_characters(const string_arg &given) {
    return checked(
        given, [](voString *) { return true; }, errc::bad_utf8);
}
inline result<string> escaped_characters(const string_arg &given) {
    return checked(given, xmlValueTextOk, errc::bad_escaped_text);
}

inline std::optional<location> location_of(voParserLocation *adopted) {
    if (!adopted) return std::nullopt;
    const handle<voParserLocation> held(adopt, adopted);
    return location{voParserLocationOffset(adopted), voParserLocationLine(adopted),
                    voParserLocationColumn(adopted),
                    optional_of<string>(voParserLocationSource(adopted))};
}

/// Comments, CDATA sections and processing instructions: a string that a check accepts.
template <class T, auto Create, auto Value, auto SetValue, auto Ok, errc Bad, auto Location>
class marked_text : public handle<T> {
  public:
    using handle<T>::handle;

    /** Makes a node of what stands between the delimiters. */
    static result<marked_text> make(string_arg value) {
        auto made = checked(value, Ok, Bad);
        if (!made) return made.error();
        return marked_text(adopt, Create(made->get()));
    }
    /** What stands between the delimiters. */
    [[nodiscard]] string value() const noexcept { return string(adopt, Value(this->get())); }
    /** Replaces what stands between the delimiters; make() tells what is refused. */
    result<void> set_value(string_arg value) {
        auto made = checked(value, Ok, Bad);
        if (!made) return made.error();
        SetValue(this->address(), made->get());
        return {};
    }
    /** Where it was found, if that was recorded. */
    [[nodiscard]] std::optional<voxml::location> location() const {
        return location_of(Location(this->get()));
    }
};

} // namespace detail

/** @name Nodes that both trees share @{ */
using comment =
    detail::marked_text<XML_COMMENT, xmlCommentCreate, xmlCommentValue, xmlCommentSetValue,
                        xmlValueCommentOk, errc::bad_comment, xmlCommentLocation>;
using cdata = detail::marked_text<XML_CDATA, xmlCdataCreate, xmlCdataValue, xmlCdataSetValue,
                                  xmlValueCdataOk, errc::bad_cdata, xmlCdataLocation>;
/** The value holds the target, white space and the data. */
using processing_instruction =
    detail::marked_text<XML_PROCESSING_INSTRUCTION, xmlProcessingInstructionCreate,
                        xmlProcessingInstructionValue, xmlProcessingInstructionSetValue,
                        xmlValueProcessingInstructionValueOk, errc::bad_processing_instruction,
                        xmlProcessingInstructionLocation>;

/** A text node, or the value of an attribute. */
class text : public handle<XML_TEXT> {
  public:
    using handle::handle;

    /** Makes a text of plain characters. */
    static result<text> make(string_arg value) {
        auto made = detail::plain_characters(value);
        if (!made) return made.error();
        return text(adopt, xmlTextCreateEscape(made->get()));
    }
    /** Makes a text of the escaped form. Character references in it are written as they stand, and
     *  decoding refuses them outside of attributes. */
    static result<text> make_escaped(string_arg value) {
        auto made = detail::escaped_characters(value);
        if (!made) return made.error();
        return text(adopt, xmlTextCreateValue(made->get()));
    }
    /** The plain characters; none where the text refers to an entity that is not predefined. */
    [[nodiscard]] std::optional<string> value() const noexcept {
        return detail::optional_of<string>(xmlTextTryUnescape(get()));
    }
    /** As it stands between markup, references and all. */
    [[nodiscard]] string escaped_value() const noexcept {
        return string(adopt, xmlTextValue(get()));
    }
    /** Where it was found, if that was recorded. */
    [[nodiscard]] std::optional<voxml::location> location() const {
        return detail::location_of(xmlTextLocation(get()));
    }
};
/** @} */

/** A name in a tree with namespaces, as views give it: a local name and the name of its namespace,
 *  which is empty for none. Refers to strings that it does not keep; a map that outlives the view
 *  takes keys of its own strings, such as a pair of std::string. */
struct qname {
    std::string_view ns, local;

    template <class Text,
              class = std::enable_if_t<std::is_convertible_v<const Text &, std::string_view>>>
    qname(const Text &local_name VOXML_LIFETIMEBOUND) : local(local_name) {}
    qname(std::string_view ns_name VOXML_LIFETIMEBOUND,
          std::string_view local_name VOXML_LIFETIMEBOUND)
        : ns(ns_name), local(local_name) {}

    friend bool operator==(const qname &a, const qname &b) noexcept {
        return a.local == b.local && a.ns == b.ns;
    }
    friend bool operator!=(const qname &a, const qname &b) noexcept { return !(a == b); }
    /** By namespace, then by local name. */
    friend bool operator<(const qname &a, const qname &b) noexcept {
        return a.ns != b.ns ? a.ns < b.ns : a.local < b.local;
    }
};

/** A name in a tree with namespaces, as values give it. */
struct expanded_name {
    std::optional<string> ns;
    string local;

    friend bool operator==(const expanded_name &a, const qname &b) noexcept {
        return a.local == b.local && (a.ns ? *a.ns == b.ns : b.ns.empty());
    }
    friend bool operator!=(const expanded_name &a, const qname &b) noexcept { return !(a == b); }
    friend bool operator==(const expanded_name &a, const expanded_name &b) noexcept {
        return a.local == b.local && a.ns == b.ns;
    }
    friend bool operator!=(const expanded_name &a, const expanded_name &b) noexcept {
        return !(a == b);
    }
    /** By namespace, none first, then by local name. */
    friend bool operator<(const expanded_name &a, const expanded_name &b) noexcept {
        return a.ns != b.ns ? a.ns < b.ns : a.local < b.local;
    }
};

/** A name in a tree with namespaces as a parameter: `"local"`, `{ns, "local"}`, or a name that a
 *  tree gave. An empty namespace stands for none. Refers to what it was made from. The braces are
 *  needed: make("u", "r") is an element u without a namespace that holds the text r. */
struct qname_arg {
    string_arg ns, local;

    template <class Text, class = std::enable_if_t<std::is_convertible_v<const Text &, string_arg>>>
    qname_arg(const Text &local_name VOXML_LIFETIMEBOUND) : ns(""), local(local_name) {}
    qname_arg(string_arg ns_name VOXML_LIFETIMEBOUND, string_arg local_name VOXML_LIFETIMEBOUND)
        : ns(ns_name), local(local_name) {}
    qname_arg(const qname &name VOXML_LIFETIMEBOUND) : ns(name.ns), local(name.local) {}
    qname_arg(const expanded_name &name VOXML_LIFETIMEBOUND)
        : ns(name.ns ? string_arg(*name.ns) : string_arg("")), local(name.local) {}

    /** Whether it is that name. */
    [[nodiscard]] bool is(const qname &name) const noexcept {
        return local.is(name.local) && ns.is(name.ns);
    }
    struct kept {
        std::string ns, local;
        operator qname() const noexcept VOXML_LIFETIMEBOUND { return {ns, local}; }
    };
    /** As a name; its strings lie in `room` where they were no UTF-8. */
    [[nodiscard]] qname in(kept &room VOXML_LIFETIMEBOUND) const {
        return {ns.in(room.ns), local.in(room.local)};
    }
    /** A copy of its strings. */
    [[nodiscard]] kept keep() const { return {ns.keep(), local.keep()}; }
};

/** How to decode. */
struct decode_options {
    bool locations = false;    ///< Gives every node its location; errors at a place have it anyway.
    std::string_view source{}; ///< The name of the text in locations and failures.
    voCharsetFlags charset_flags = VO_CHARSET_FLAG_BOM; ///< See xml/xml_options.h.
};

/** How to lay text out for people, see xml/xml_format.h. */
struct layout {
    int indent = 2; ///< Blanks for each level, from 0 to 16, or `tab`.
    int width = 0;  ///< Most columns of a start tag; 0 is without limit.
    static constexpr int tab = XML_LAYOUT_TAB;
};

/** How to encode. */
struct encode_options {
    bool declaration = true;               ///< Writes the XML declaration.
    voCharsetFlags charset_flags = 0;      ///< See xml/xml_options.h.
    std::optional<voxml::layout> layout{}; ///< The canonical layout without.
};

namespace detail {

inline std::string utf8_of(voString *adopted) {
    return adopted ? string(adopt, adopted).str() : std::string();
}

/// The place of a byte of UTF-8 behind the place where that begins; none where the bytes before are
/// no UTF-8.
inline std::optional<location> place_of_byte(std::string_view utf8, std::int64_t byte,
                                             voParserLocation *optional_start) {
    if (byte < 0) return std::nullopt;
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    std::string_view before = utf8.substr(0, static_cast<std::size_t>(byte));
    if (before.substr(0, mark.size()) == mark) before.remove_prefix(mark.size());
    const auto text = string_arg(before).try_string();
    if (!text) return std::nullopt;
    const std::int64_t length = voStringLength(text->get());
    const handle<XML_OPTIONS> options(adopt, xmlOptionsCreate());
    const handle<voParserLocationMap> lines(
        adopt, voParserLocationMapCreate(optional_start, xmlOptionsDecodeNlfFlags(options.get()),
                                         voStringBacking(text->get()), length));
    return location_of(voParserLocationMapLookup(lines.get(), length));
}

/// A failure from an error object of either layer.
template <class Error, class Code, class Location, class Text, class Hint, class Offset>
failure failure_of(Error *err, Code code, errc first, Location where, Text text, Hint hint,
                   Offset offset, const buffer *optional_xml) {
    const auto number = code(err);
    const auto kind = static_cast<errc>(static_cast<std::int64_t>(first) + number);
    failure::details known;
    known.message = utf8_of(text(number));
    known.where = location_of(where(err));
    if (known.where && known.where->source) known.source = known.where->source->str();
    if (optional_xml) known.hint = utf8_of(hint(err, optional_xml->get()));
    if (optional_xml) known.byte_offset = offset(err, optional_xml->get());
    if (optional_xml && kind == errc::charset) // It is said to be at the beginning.
        known.where = place_of_byte(optional_xml->view(), known.byte_offset,
                                    handle<voParserLocation>(adopt, where(err)).get());
    return {kind, std::move(known)};
}

inline handle<XML_OPTIONS> decoding(const decode_options &wanted) {
    handle<XML_OPTIONS> options(adopt, xmlOptionsCreate());
    if (wanted.locations) xmlOptionsSetFlags(options.address(), XML_FLAG_DECODE_LOCATION);
    xmlOptionsSetDecodeCharsetFlags(options.address(), wanted.charset_flags);
    return options;
}

/// The place where a text begins, if it has a name. What is no UTF-8 in that becomes U+FFFD.
inline std::optional<handle<voParserLocation>> beginning(std::string_view source) {
    if (source.empty()) return std::nullopt;
    const string name(adopt, voCharsetTryConvertBufferToStringWithFlags(
                                 VO_CHARSET_UTF_8, buffer(source).get(), VO_CHARSET_FLAG_SNIFF));
    return handle<voParserLocation>(adopt, voParserLocationCreate(name.get(), 0, 1, 1));
}

inline result<handle<XML_DOCUMENT>> decode(const buffer &xml, decode_options wanted) {
    const auto start = beginning(wanted.source);
    const auto options = decoding(wanted);
    const handle<XML_DECODE_RESULT> decoded(
        adopt, xmlDocumentDecode(xml.get(), options.get(), start ? start->get() : nullptr));
    if (auto *doc = xmlDecodeResultDocument(decoded.get())) return handle<XML_DOCUMENT>(adopt, doc);
    if (!std::exchange(wanted.locations, true)) return decode(xml, wanted); // for the failure's
    const handle<XML_DECODE_ERROR> err(adopt, xmlDecodeResultError(decoded.get()));
    return failure_of(err.get(), xmlDecodeErrorErrorCode, errc::charset, xmlDecodeErrorLocation,
                      xmlDecodeErrorCodeMessageText, xmlDecodeErrorTryHint,
                      xmlDecodeErrorByteOffset, &xml);
}

/// @param optional_xml what the document was decoded from.
inline result<handle<XML_NS_DOCUMENT>> resolve(XML_DOCUMENT *plain, const buffer *optional_xml) {
    const handle<XML_NS_DECODE_RESULT> decoded(adopt, xmlNsDocumentTryDecode(plain));
    if (auto *doc = xmlNsDecodeResultDocument(decoded.get()))
        return handle<XML_NS_DOCUMENT>(adopt, doc);
    const handle<XML_NS_DECODE_ERROR> err(adopt, xmlNsDecodeResultError(decoded.get()));
    return failure_of(err.get(), xmlNsDecodeErrorErrorCode, errc::namespace_name,
                      xmlNsDecodeErrorLocation, xmlNsDecodeErrorCodeMessageText,
                      xmlNsDecodeErrorTryHint, xmlNsDecodeErrorByteOffset, optional_xml);
}

inline result<handle<XML_NS_DOCUMENT>> decode_ns(const buffer &xml, decode_options wanted) {
    auto plain = decode(xml, wanted);
    if (!plain) return plain.error();
    auto doc = resolve(plain->get(), &xml);
    if (doc || wanted.locations) return doc;
    wanted.locations = true;
    return decode_ns(xml, wanted);
}

inline failure file_failure(std::string_view path, int error) {
    failure::details known;
    known.message = utf8_of(voFileErrorText(error));
    known.source = std::string(path);
    known.system_error = error;
    return {errc::file, std::move(known)};
}

inline result<buffer> read_file(const std::string &path) {
    int error = 0;
    auto bytes = optional_of<buffer>(voFileTryRead(path.c_str(), &error));
    if (!bytes) return file_failure(path, error);
    return std::move(*bytes);
}

/// The first character that a character set lacks; 0 where it has each of them.
inline char32_t first_lacking(std::u32string_view text, voCharset charset) {
    const auto has = [&](std::u32string_view part) {
        const string piece(
            adopt, voStringCreateFromCharsCopy(reinterpret_cast<const std::uint32_t *>(part.data()),
                                               static_cast<std::int64_t>(part.size())));
        return optional_of<buffer>(
                   voCharsetTryConvertStringToBufferWithFlags(charset, piece.get(), 0))
            .has_value();
    };
    while (text.size() > 1) {
        const std::size_t half = text.size() / 2;
        text = has(text.substr(0, half)) ? text.substr(half) : text.substr(0, half);
    }
    return text.empty() || has(text) ? 0 : text[0];
}

/// @param optional_utf8 what cannot be written in the character set; null where no one can hold it.
inline failure charset_failure(const std::optional<buffer> &optional_utf8, voCharset charset,
                               std::string source) {
    failure::details known;
    known.source = std::move(source);
    known.message = utf8_of(voCharsetToIanaName(charset)) + " lacks a character of the text";
    const auto text = optional_utf8 ? string_arg(optional_utf8->view()).try_string() : std::nullopt;
    if (const char32_t lacking = text ? first_lacking(text->u32(), charset) : 0) {
        char number[16];
        std::snprintf(number, sizeof number, "U+%04lX", static_cast<unsigned long>(lacking));
        known.message += std::string(": ") + number;
        known.hint = "UTF-8 has every character";
    }
    return {errc::charset_too_small, std::move(known)};
}

/// @param target what a failure is about, if that has a name.
inline result<buffer> encode(handle<XML_DOCUMENT> doc, const encode_options &wanted,
                             std::string target) {
    handle<XML_OPTIONS> options(adopt, xmlOptionsCreate());
    if (!wanted.declaration)
        xmlOptionsSetFlags(options.address(), XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
    xmlOptionsSetEncodeCharsetFlags(options.address(), wanted.charset_flags);
    const auto encoded = [&] {
        if (!wanted.layout)
            return optional_of<buffer>(xmlDocumentTryEncode(doc.get(), options.get()));
        const XML_LAYOUT layout{wanted.layout->indent, wanted.layout->width};
        return optional_of<buffer>(
            xmlDocumentTryEncodeFormatted(doc.get(), &layout, options.get()));
    };
    if (auto bytes = encoded()) return std::move(*bytes);
    const voCharset charset = xmlDocumentCharset(doc.get());
    xmlDocumentSetCharset(doc.address(), VO_CHARSET_UTF_8);
    return charset_failure(encoded(), charset, std::move(target));
}

} // namespace detail

/** A namespace declaration: a prefix, or none for the default namespace, bound to the name of a
 *  namespace, or to none. It does not change; make() another one. See
 *  xml/xml_ns_namespace_mapping.h. */
class namespace_mapping : public handle<XML_NS_NAMESPACE_MAPPING> {
  public:
    using handle::handle;

    /** Empty stands for no prefix and for no namespace. */
    static result<namespace_mapping> make(string_arg prefix, string_arg ns) {
        namespace_mapping made(adopt, xmlNsNamespaceMappingCreate());
        if (!prefix.empty()) {
            auto checked = detail::checked(prefix, xmlNsValuePrefixOk, errc::bad_prefix);
            if (!checked) return checked.error();
            xmlNsNamespaceMappingSetPrefix(made.address(), checked->get());
        }
        if (!ns.empty()) {
            auto checked = detail::checked_namespace(ns);
            if (!checked) return checked.error();
            xmlNsNamespaceMappingSetNamespace(made.address(), checked->get());
        }
        return made;
    }
    /** None for the default namespace. */
    [[nodiscard]] std::optional<string> prefix() const noexcept {
        return detail::optional_of<string>(xmlNsNamespaceMappingPrefix(get()));
    }
    /** None where the prefix is bound to no namespace. */
    [[nodiscard]] std::optional<string> ns() const noexcept {
        return detail::optional_of<string>(xmlNsNamespaceMappingNamespace(get()));
    }
};

namespace detail {

/// Steps through the places of a range from one that the range calls first() to -1, by its
/// next(place); at(place) gives what is there.
template <class Range> class place_iterator {
  public:
    using iterator_concept = std::forward_iterator_tag;
    using iterator_category = std::input_iterator_tag; // at() gives values
    using value_type = decltype(std::declval<const Range &>().at(0));
    using difference_type = std::ptrdiff_t;
    using reference = value_type;
    using pointer = void;

    place_iterator() = default;
    place_iterator(const Range *range, std::int64_t place) noexcept
        : range_(range), place_(place) {}

    value_type operator*() const { return range_->at(place_); }
    place_iterator &operator++() {
        place_ = range_->next(place_);
        return *this;
    }
    place_iterator operator++(int) {
        place_iterator before(*this);
        ++*this;
        return before;
    }
    friend bool operator==(const place_iterator &a, const place_iterator &b) noexcept {
        return a.place_ == b.place_;
    }
    friend bool operator!=(const place_iterator &a, const place_iterator &b) noexcept {
        return !(a == b);
    }

  private:
    const Range *range_ = nullptr;
    std::int64_t place_ = -1;
};

/// What every list offers over size() and operator[]: a forward range of values. `List` is the type
/// that derives from this.
template <class List> class list_range {
  public:
    /** Whether the list is empty. */
    [[nodiscard]] bool empty() const noexcept { return list().size() == 0; }
    /** To the first value. */
    [[nodiscard]] auto begin() const noexcept VOXML_LIFETIMEBOUND {
        return place_iterator<list_range>(this, next(-1));
    }
    /** Behind the last. */
    [[nodiscard]] auto end() const noexcept VOXML_LIFETIMEBOUND {
        return place_iterator<list_range>(this, -1);
    }

    /** For the iterator: what stands at a place. */
    [[nodiscard]] auto at(std::int64_t place) const { return list()[place]; }
    /** For the iterator: the next place, or -1. */
    [[nodiscard]] std::int64_t next(std::int64_t place) const noexcept {
        return place + 1 < list().size() ? place + 1 : -1;
    }

  private:
    const List &list() const noexcept { return static_cast<const List &>(*this); }
};

} // namespace detail

/** The namespace declarations of an element, in order, no two of one prefix. */
class namespace_map : public handle<XML_NS_NAMESPACE_MAP>,
                      public detail::list_range<namespace_map> {
  public:
    using handle::handle;

    namespace_map() : namespace_map(adopt, xmlNsNamespaceMapCreate()) {}

    /** The number of declarations. */
    [[nodiscard]] std::int64_t size() const noexcept { return xmlNsNamespaceMapLength(get()); }
    /** The declaration at `index`. */
    [[nodiscard]] namespace_mapping operator[](std::int64_t index) const noexcept {
        return namespace_mapping(adopt, xmlNsNamespaceMapMappingAt(get(), index));
    }
    /** Puts it in the place of the mapping of its prefix, or at the end. */
    void set(const namespace_mapping &mapping) noexcept {
        xmlNsNamespaceMapSetMapping(address(), mapping.get());
    }
    /** Removes the declaration at `index`. */
    void erase(std::int64_t index) noexcept { xmlNsNamespaceMapDelMappingAt(address(), index); }
    /** The mapping of a prefix; empty stands for the default namespace. */
    [[nodiscard]] std::optional<namespace_mapping> find_prefix(string_arg prefix) const {
        if (prefix.empty())
            return detail::optional_of<namespace_mapping>(
                xmlNsNamespaceMapMappingForDefault(get()));
        const auto checked = detail::checked(prefix, xmlNsValuePrefixOk, errc::bad_prefix);
        if (!checked) return std::nullopt;
        return detail::optional_of<namespace_mapping>(
            xmlNsNamespaceMapMappingForPrefix(get(), checked->get()));
    }
    /** The first mapping to that namespace. */
    [[nodiscard]] std::optional<namespace_mapping> find_namespace(string_arg ns) const {
        const auto checked = detail::checked_namespace(ns);
        if (!checked) return std::nullopt;
        return detail::optional_of<namespace_mapping>(
            xmlNsNamespaceMapMappingForNamespace(get(), checked->get()));
    }
};

/** A path to nodes, read once and used any number of times, by any number of threads; see
 *  xml/xml_path.h for what it may hold. */
class path : public handle<XML_PATH> {
  public:
    using handle::handle;

    /** A prefix is a part of the name, as plain trees have it. */
    static result<path> make(std::string_view expression) { return make(expression, nullptr); }
    /** With the namespaces of prefixes, for trees with namespaces. */
    static result<path> make(std::string_view expression, const namespace_map &bindings) {
        return make(expression, bindings.get());
    }

  private:
    static result<path> make(std::string_view expression, XML_NS_NAMESPACE_MAP *optional_bindings) {
        XML_PATH_ERROR error;
        if (auto *made = xmlPathTryCreate(detail::bytes_of(expression),
                                          detail::length_of(expression), optional_bindings, &error))
            return path(adopt, made);
        const handle<voMessage> message(adopt, error.message);
        failure::details known;
        known.message = detail::utf8_of(voMessageText(message.get()));
        known.where = detail::location_of(voMessageLocation(message.get()));
        known.byte_offset = error.byteOffset;
        return failure(errc::bad_path, std::move(known));
    }
};

// The two layers. Everything below is written once over what these structures tell.

namespace detail {

/// What is called alike in both layers. `xml` is the prefix of functions and `XML` that of types.
#define VOXML_LAYER_ALIKE(xml, XML)                                                                \
    using document_t = XML##DOCUMENT;                                                              \
    using element_t = XML##ELEMENT;                                                                \
    using attribute_t = XML##ATTRIBUTE;                                                            \
    using attributes_t = XML##ATTRIBUTES;                                                          \
    using item_t = XML##ITEM;                                                                      \
    using items_t = XML##ITEMS;                                                                    \
    static constexpr auto document_create = xml##DocumentCreate;                                   \
    static constexpr auto document_version = xml##DocumentVersion;                                 \
    static constexpr auto document_set_version = xml##DocumentSetVersion;                          \
    static constexpr auto document_charset = xml##DocumentCharset;                                 \
    static constexpr auto document_set_charset = xml##DocumentSetCharset;                          \
    static constexpr auto document_standalone = xml##DocumentStandalone;                           \
    static constexpr auto document_set_standalone = xml##DocumentSetStandalone;                    \
    static constexpr auto document_items = xml##DocumentItems;                                     \
    static constexpr auto document_set_items = xml##DocumentSetItems;                              \
    static constexpr auto document_location = xml##DocumentLocation;                               \
    static constexpr auto document_make_all = xml##DocumentMakeAll;                                \
    static constexpr auto element_make_all = xml##ElementMakeAll;                                  \
    static constexpr auto document_root = xml##DocumentRoot;                                       \
    static constexpr auto document_take_root = xml##DocumentTakeRoot;                              \
    static constexpr auto document_set_root = xml##DocumentSetRoot;                                \
    static constexpr auto element_attributes = xml##ElementAttributes;                             \
    static constexpr auto element_set_attributes = xml##ElementSetAttributes;                      \
    static constexpr auto element_items = xml##ElementItems;                                       \
    static constexpr auto element_set_items = xml##ElementSetItems;                                \
    static constexpr auto element_items_length = xml##ElementItemsLength;                          \
    static constexpr auto element_items_clear = xml##ElementItemsClear;                            \
    static constexpr auto element_item_at = xml##ElementItemAt;                                    \
    static constexpr auto element_item_type_at = xml##ElementItemTypeAt;                           \
    static constexpr auto element_item_element_at = xml##ElementItemElementAt;                     \
    static constexpr auto element_insert_item = xml##ElementInsertItem;                            \
    static constexpr auto element_set_item_at = xml##ElementSetItemAt;                             \
    static constexpr auto element_set_item_element_at = xml##ElementSetItemElementAt;              \
    static constexpr auto element_append_item = xml##ElementAppendItem;                            \
    static constexpr auto element_append_element = xml##ElementAppendItemElement;                  \
    static constexpr auto element_append_text = xml##ElementAppendItemTextEscape;                  \
    static constexpr auto element_del_item_at = xml##ElementDelItemAt;                             \
    static constexpr auto element_take_element_at = xml##ElementTakeItemElementAt;                 \
    static constexpr auto element_content = xml##ElementTryContent;                                \
    static constexpr auto element_encode = xml##ElementTryEncode;                                  \
    static constexpr auto element_location = xml##ElementLocation;                                 \
    static constexpr auto attribute_text = xml##AttributeText;                                     \
    static constexpr auto attribute_value = xml##AttributeTextTryUnescape;                         \
    static constexpr auto attribute_escaped_value = xml##AttributeTextValue;                       \
    static constexpr auto attribute_set_value = xml##AttributeSetTextEscape;                       \
    static constexpr auto attribute_set_escaped_value = xml##AttributeSetTextValue;                \
    static constexpr auto attribute_location = xml##AttributeLocation;                             \
    static constexpr auto attributes_create = xml##AttributesCreate;                               \
    static constexpr auto attributes_length = xml##AttributesLength;                               \
    static constexpr auto attributes_at = xml##AttributesAttributeAt;                              \
    static constexpr auto attributes_set_at = xml##AttributesSetAttributeAt;                       \
    static constexpr auto attributes_set = xml##AttributesSetAttribute;                            \
    static constexpr auto attributes_insert = xml##AttributesInsertAttribute;                      \
    static constexpr auto attributes_del_at = xml##AttributesDelAttributeAt;                       \
    static constexpr auto item_type = xml##ItemType;                                               \
    static constexpr auto item_element = xml##ItemElement;                                         \
    static constexpr auto item_text = xml##ItemText;                                               \
    static constexpr auto item_cdata = xml##ItemCdata;                                             \
    static constexpr auto item_comment = xml##ItemComment;                                         \
    static constexpr auto item_pi = xml##ItemProcessingInstruction;                                \
    static item_t *item_of(element_t *node) noexcept { return xml##ItemCreateElement(node); }      \
    static item_t *item_of(XML_TEXT *node) noexcept { return xml##ItemCreateText(node); }          \
    static item_t *item_of(XML_CDATA *node) noexcept { return xml##ItemCreateCdata(node); }        \
    static item_t *item_of(XML_COMMENT *node) noexcept { return xml##ItemCreateComment(node); }    \
    static item_t *item_of(XML_PROCESSING_INSTRUCTION *node) noexcept {                            \
        return xml##ItemCreateProcessingInstruction(node);                                         \
    }                                                                                              \
    static constexpr auto items_create = xml##ItemsCreate;                                         \
    static constexpr auto items_length = xml##ItemsLength;                                         \
    static constexpr auto items_at = xml##ItemsItemAt;                                             \
    static constexpr auto items_set_at = xml##ItemsSetItemAt;                                      \
    static constexpr auto items_insert = xml##ItemsInsertItem;                                     \
    static constexpr auto items_del_at = xml##ItemsDelItemAt

struct plain_layer {
    VOXML_LAYER_ALIKE(xml, XML_);

    static constexpr bool has_namespaces = false;
    using name_view = std::string_view;
    using name_value = voxml::string;
    using name_arg = string_arg;

    /// A name as the library has it.
    struct name {
        voxml::string whole;
    };
    static result<name> checked_name(const name_arg &given) {
        auto made = checked_name_part(given, xmlValueNameOk);
        if (!made) return made.error();
        return name{std::move(*made)};
    }
    static result<name> checked_attribute_name(const name_arg &given) {
        return checked_name(given);
    }

    static std::int64_t find_child(element_t *el, std::int64_t from,
                                   const name_view &name) noexcept {
        return xmlElementFindChildUtf8(el, from, bytes_of(name), length_of(name));
    }

    static name_value name_of(element_t *el) noexcept {
        return voxml::string(adopt, xmlElementName(el));
    }
    static name_value name_of(attribute_t *attr) noexcept {
        return voxml::string(adopt, xmlAttributeName(attr));
    }
    static void rename(element_t **el, const name &to) noexcept {
        xmlElementSetName(el, to.whole.get());
    }
    static void rename(attribute_t **attr, const name &to) noexcept {
        xmlAttributeSetName(attr, to.whole.get());
    }

    static element_t *element_create(const name &of) noexcept {
        return xmlElementCreate(of.whole.get());
    }
    static attribute_t *attribute_create(const name &of, voString *plain) noexcept {
        return xmlAttributeCreateTextEscape(of.whole.get(), plain);
    }
    static attribute_t *find(attributes_t *attrs, const name &of) noexcept {
        return xmlAttributesAttribute(attrs, of.whole.get());
    }
    static voString *attribute(element_t *el, const name &of) noexcept {
        return xmlElementAttributeTextTryUnescape(el, of.whole.get());
    }
    static voString *escaped_attribute(element_t *el, const name &of) noexcept {
        return xmlElementAttributeTextValue(el, of.whole.get());
    }
    static int has_attribute(element_t *el, const name &of) noexcept {
        return xmlElementHasAttribute(el, of.whole.get());
    }
    static void set_attribute(element_t **el, const name &of, voString *plain) noexcept {
        xmlElementSetAttributeNameTextEscape(el, of.whole.get(), plain);
    }
    static void set_escaped_attribute(element_t **el, const name &of, voString *value) noexcept {
        xmlElementSetAttributeNameTextValue(el, of.whole.get(), value);
    }
    static void del_attribute(element_t **el, const name &of) noexcept {
        xmlElementDelAttribute(el, of.whole.get());
    }

    static result<handle<document_t>> decode(const buffer &xml, const decode_options &wanted) {
        return detail::decode(xml, wanted);
    }
    static handle<XML_DOCUMENT> plain(const handle<document_t> &doc) noexcept { return doc; }
    static result<handle<XML_NS_DOCUMENT>> resolve(document_t *doc) {
        return detail::resolve(doc, nullptr);
    }

    static XML_CURSOR *cursor(document_t *doc) noexcept { return xmlCursorCreate(doc); }
    static XML_CURSOR *cursor(element_t *el) noexcept { return xmlCursorCreateElement(el); }
    static name_view name_at(XML_CURSOR *cursor) noexcept {
        const XML_UTF8 found = xmlCursorName(cursor);
        return {found.bytes, static_cast<std::size_t>(found.length)};
    }
};

struct ns_layer {
    VOXML_LAYER_ALIKE(xmlNs, XML_NS_);

    static constexpr bool has_namespaces = true;
    using name_view = qname;
    using name_value = expanded_name;
    using name_arg = qname_arg;

    struct name {
        voxml::string local;
        std::optional<voxml::string> ns;

        voString *ns_or_null() const noexcept { return ns ? ns->get() : nullptr; }
    };
    static result<name> checked_name(const name_arg &given) {
        auto local = checked_name_part(given.local, xmlNsValueLocalNameOk);
        if (!local) return local.error();
        if (given.ns.empty()) return name{std::move(*local), std::nullopt};
        auto ns = checked_namespace(given.ns);
        if (!ns) return ns.error();
        return name{std::move(*local), std::move(*ns)};
    }
    /// An attribute `xmlns` without a namespace would be read again as a declaration.
    static result<name> checked_attribute_name(const name_arg &given) {
        if (given.is("xmlns")) return failure(errc::bad_name);
        return checked_name(given);
    }

    static std::int64_t find_child(element_t *el, std::int64_t from,
                                   const name_view &name) noexcept {
        return xmlNsElementFindChildUtf8(el, from, bytes_of(name.local), length_of(name.local),
                                         name.ns.empty() ? nullptr : name.ns.data(),
                                         length_of(name.ns));
    }

    static name_value name_of(element_t *el) noexcept {
        return {optional_of<voxml::string>(xmlNsElementNamespace(el)),
                voxml::string(adopt, xmlNsElementLocalName(el))};
    }
    static name_value name_of(attribute_t *attr) noexcept {
        return {optional_of<voxml::string>(xmlNsAttributeNamespace(attr)),
                voxml::string(adopt, xmlNsAttributeLocalName(attr))};
    }
    static void rename(element_t **el, const name &to) noexcept {
        xmlNsElementSetName(el, to.local.get(), to.ns_or_null());
    }
    static void rename(attribute_t **attr, const name &to) noexcept {
        xmlNsAttributeSetName(attr, to.local.get(), to.ns_or_null());
    }

    static element_t *element_create(const name &of) noexcept {
        return xmlNsElementCreate(of.local.get(), of.ns_or_null());
    }
    static attribute_t *attribute_create(const name &of, voString *plain) noexcept {
        return xmlNsAttributeCreateTextEscape(of.local.get(), of.ns_or_null(), plain);
    }
    static attribute_t *find(attributes_t *attrs, const name &of) noexcept {
        return xmlNsAttributesAttribute(attrs, of.local.get(), of.ns_or_null());
    }
    static voString *attribute(element_t *el, const name &of) noexcept {
        return xmlNsElementAttributeTextTryUnescape(el, of.local.get(), of.ns_or_null());
    }
    static voString *escaped_attribute(element_t *el, const name &of) noexcept {
        return xmlNsElementAttributeTextValue(el, of.local.get(), of.ns_or_null());
    }
    static int has_attribute(element_t *el, const name &of) noexcept {
        return xmlNsElementHasAttribute(el, of.local.get(), of.ns_or_null());
    }
    static void set_attribute(element_t **el, const name &of, voString *plain) noexcept {
        xmlNsElementSetAttributeNameTextEscape(el, of.local.get(), of.ns_or_null(), plain);
    }
    static void set_escaped_attribute(element_t **el, const name &of, voString *value) noexcept {
        xmlNsElementSetAttributeNameTextValue(el, of.local.get(), of.ns_or_null(), value);
    }
    static void del_attribute(element_t **el, const name &of) noexcept {
        xmlNsElementDelAttribute(el, of.local.get(), of.ns_or_null());
    }

    static constexpr auto namespaces = xmlNsElementNamespaceMap;
    static constexpr auto set_namespaces = xmlNsElementSetNamespaceMap;
    static constexpr auto remove_namespaces = xmlNsElementDelNamespaceMap;

    static result<handle<document_t>> decode(const buffer &xml, const decode_options &wanted) {
        return decode_ns(xml, wanted);
    }
    static handle<XML_DOCUMENT> plain(const handle<document_t> &doc) noexcept {
        return {adopt, xmlNsDocumentEncode(doc.get())};
    }

    static XML_CURSOR *cursor(document_t *doc) noexcept { return xmlCursorCreateNs(doc); }
    static XML_CURSOR *cursor(element_t *el) noexcept { return xmlCursorCreateNsElement(el); }
    static name_view name_at(XML_CURSOR *cursor) noexcept {
        const XML_UTF8 ns = xmlCursorNamespace(cursor), local = xmlCursorName(cursor);
        return {{ns.bytes, static_cast<std::size_t>(ns.length)},
                {local.bytes, static_cast<std::size_t>(local.length)}};
    }
};

#undef VOXML_LAYER_ALIKE

} // namespace detail

/** @name Attributes and their list @{ */

/** An attribute: a name and a value. */
template <class Layer> class basic_attribute : public handle<typename Layer::attribute_t> {
  public:
    using handle<typename Layer::attribute_t>::handle;
    using name_arg = typename Layer::name_arg;

    /** Makes an attribute with a value of plain characters. */
    static result<basic_attribute> make(const name_arg &name, string_arg value) {
        auto checked = Layer::checked_attribute_name(name);
        if (!checked) return checked.error();
        auto plain = detail::plain_characters(value);
        if (!plain) return plain.error();
        return basic_attribute(adopt, Layer::attribute_create(*checked, plain->get()));
    }
    /** As the document writes it, or in the tree with namespaces an expanded_name. */
    [[nodiscard]] auto name() const noexcept { return Layer::name_of(this->get()); }
    /** Renames the attribute. */
    result<void> set_name(const name_arg &name) {
        auto checked = Layer::checked_attribute_name(name);
        if (!checked) return checked.error();
        Layer::rename(this->address(), *checked);
        return {};
    }
    /** None where the value refers to an entity that is not predefined. */
    [[nodiscard]] std::optional<string> value() const noexcept {
        return detail::optional_of<string>(Layer::attribute_value(this->get()));
    }
    /** The value as it stands between the quotes. */
    [[nodiscard]] string escaped_value() const noexcept {
        return string(adopt, Layer::attribute_escaped_value(this->get()));
    }
    /** Sets a value of plain characters. */
    result<void> set_value(string_arg value) {
        auto plain = detail::plain_characters(value);
        if (!plain) return plain.error();
        Layer::attribute_set_value(this->address(), plain->get());
        return {};
    }
    /** Sets a value as it stands between quotes. */
    result<void> set_escaped_value(string_arg value) {
        auto escaped = detail::escaped_characters(value);
        if (!escaped) return escaped.error();
        Layer::attribute_set_escaped_value(this->address(), escaped->get());
        return {};
    }
    /** Where it was found, if that was recorded. */
    [[nodiscard]] std::optional<voxml::location> location() const {
        return detail::location_of(Layer::attribute_location(this->get()));
    }
};

/** The attributes of an element, in order, no two of one name. */
template <class Layer> class basic_attributes : public handle<typename Layer::attributes_t>,
                                                public detail::list_range<basic_attributes<Layer>> {
  public:
    using handle<typename Layer::attributes_t>::handle;
    using attribute_type = basic_attribute<Layer>;

    basic_attributes() : basic_attributes(adopt, Layer::attributes_create()) {}

    /** The number of attributes. */
    [[nodiscard]] std::int64_t size() const noexcept {
        return Layer::attributes_length(this->get());
    }
    /** The attribute at `index`. */
    [[nodiscard]] attribute_type operator[](std::int64_t index) const noexcept {
        return attribute_type(adopt, Layer::attributes_at(this->get(), index));
    }
    /** The attribute of that name. */
    [[nodiscard]] std::optional<attribute_type> find(const typename Layer::name_arg &name) const {
        auto checked = Layer::checked_name(name);
        if (!checked) return std::nullopt;
        return detail::optional_of<attribute_type>(Layer::find(this->get(), *checked));
    }
    /** Puts it in the place of the attribute of its name, or at the end. */
    void set(const attribute_type &attr) noexcept {
        Layer::attributes_set(this->address(), attr.get());
    }
    /** In the place of the attribute at `index`. Another one of its name goes, which moves those
     *  behind that. */
    void set(std::int64_t index, const attribute_type &attr) noexcept {
        Layer::attributes_set_at(this->address(), index, attr.get());
    }
    /** Before the attribute at `index`, which may be the size. Another one of its name goes,
     *  which moves those behind that. */
    void insert(std::int64_t index, const attribute_type &attr) noexcept {
        Layer::attributes_insert(this->address(), index, attr.get());
    }
    /** Removes the attribute at `index`. */
    void erase(std::int64_t index) noexcept { Layer::attributes_del_at(this->address(), index); }
};
/** @} */

template <class Layer> class basic_element;
template <class Layer> class basic_document;
template <class Layer> class basic_view;
template <class Layer> class basic_selection;

/** A node below an element or a document. */
template <class Layer> class basic_item : public handle<typename Layer::item_t> {
  public:
    using handle<typename Layer::item_t>::handle;

    basic_item(const basic_element<Layer> &node) noexcept : basic_item(of(node)) {}
    basic_item(const voxml::text &node) noexcept : basic_item(of(node)) {}
    basic_item(const voxml::cdata &node) noexcept : basic_item(of(node)) {}
    basic_item(const voxml::comment &node) noexcept : basic_item(of(node)) {}
    basic_item(const voxml::processing_instruction &node) noexcept : basic_item(of(node)) {}

    /** The kind of the node. */
    [[nodiscard]] item_type type() const noexcept {
        return static_cast<item_type>(Layer::item_type(this->get()));
    }
    /** @name Content
     *  The node; none where the item holds one of another kind. @{ */
    [[nodiscard]] std::optional<basic_element<Layer>> element() const noexcept {
        return detail::optional_of<basic_element<Layer>>(Layer::item_element(this->get()));
    }
    [[nodiscard]] std::optional<voxml::text> text() const noexcept {
        return detail::optional_of<voxml::text>(Layer::item_text(this->get()));
    }
    [[nodiscard]] std::optional<voxml::cdata> cdata() const noexcept {
        return detail::optional_of<voxml::cdata>(Layer::item_cdata(this->get()));
    }
    [[nodiscard]] std::optional<voxml::comment> comment() const noexcept {
        return detail::optional_of<voxml::comment>(Layer::item_comment(this->get()));
    }
    [[nodiscard]] std::optional<voxml::processing_instruction>
    processing_instruction() const noexcept {
        return detail::optional_of<voxml::processing_instruction>(Layer::item_pi(this->get()));
    }
    /** @} */

  private:
    template <class Node> static basic_item of(const Node &node) noexcept {
        return basic_item(adopt, Layer::item_of(node.get()));
    }
};

/** Nodes in document order. */
template <class Layer> class basic_items : public handle<typename Layer::items_t>,
                                           public detail::list_range<basic_items<Layer>> {
  public:
    using handle<typename Layer::items_t>::handle;
    using item_type = basic_item<Layer>;

    basic_items() : basic_items(adopt, Layer::items_create()) {}

    /** The number of nodes. */
    [[nodiscard]] std::int64_t size() const noexcept { return Layer::items_length(this->get()); }
    /** The node at `index`. */
    [[nodiscard]] item_type operator[](std::int64_t index) const noexcept {
        return item_type(adopt, Layer::items_at(this->get(), index));
    }
    /** In the place of the node at `index`. */
    void set(std::int64_t index, const item_type &item) noexcept {
        Layer::items_set_at(this->address(), index, item.get());
    }
    /** Before the node at `index`, which may be the size. */
    void insert(std::int64_t index, const item_type &item) noexcept {
        Layer::items_insert(this->address(), index, item.get());
    }
    /** Behind all nodes. */
    void append(const item_type &item) noexcept { insert(size(), item); }
    /** Removes the node at `index`. */
    void erase(std::int64_t index) noexcept { Layer::items_del_at(this->address(), index); }
};

/** The child elements of an element, all or those of one name: a forward range of values. */
template <class Layer> class basic_elements {
  public:
    /** All of them. */
    explicit basic_elements(basic_element<Layer> parent) : parent_(std::move(parent)) {}
    /** Those of a name. */
    basic_elements(basic_element<Layer> parent, typename Layer::name_arg::kept name)
        : parent_(std::move(parent)), name_(std::move(name)) {}

    /** Whether there is none. */
    [[nodiscard]] bool empty() const noexcept { return next(-1) < 0; }
    /** To the first element. */
    [[nodiscard]] auto begin() const noexcept VOXML_LIFETIMEBOUND {
        return detail::place_iterator<basic_elements>(this, next(-1));
    }
    /** Behind the last. */
    [[nodiscard]] auto end() const noexcept VOXML_LIFETIMEBOUND {
        return detail::place_iterator<basic_elements>(this, -1);
    }

    /** For the iterator: the element at an index among the items. */
    [[nodiscard]] basic_element<Layer> at(std::int64_t place) const noexcept {
        return basic_element<Layer>(adopt, Layer::element_item_element_at(parent_.get(), place));
    }
    /** For the iterator: the index of the next element behind that one, or -1. */
    [[nodiscard]] std::int64_t next(std::int64_t place) const noexcept {
        if (name_) return Layer::find_child(parent_.get(), place + 1, *name_);
        const std::int64_t length = Layer::element_items_length(parent_.get());
        for (++place; place < length; ++place)
            if (Layer::element_item_type_at(parent_.get(), place) == XML_ITEM_TYPE_ELEMENT)
                return place;
        return -1;
    }

  private:
    basic_element<Layer> parent_;
    std::optional<typename Layer::name_arg::kept> name_;
};

/** An attribute in an expression that builds an element: a name and plain characters. It refers to
 *  the strings that it was made from, so it is for that expression only. */
template <class Name> struct basic_attr {
    Name name;
    string_arg value;
};

namespace detail {

template <class T, class = void> struct is_range : std::false_type {};
template <class T> struct is_range<T, std::void_t<decltype(std::begin(std::declval<const T &>()))>>
    : std::true_type {};

template <class Layer> struct need_namespaces {
    static_assert(Layer::has_namespaces,
                  "the plain tree keeps declarations as attributes; see voxml::ns and resolve()");
    using layer = Layer;
};
template <class Layer, class Other> constexpr void need_same_tree() noexcept {
    static_assert(std::is_same_v<Layer, Other>,
                  "this belongs to the other tree: one of voxml and voxml::ns; see resolve() and "
                  "plain() of documents");
}

template <class T> struct is_result : std::false_type {};
template <class T> struct is_result<result<T>> : std::true_type {};

template <class Edit, class Element> struct edit_result : std::invoke_result<Edit &, Element &> {};
struct no_edit_result {
    using type = void;
};
/// What a function that edits an element gives; void if it is none, which apply() refuses.
template <class Edit, class Element> using given_by =
    typename std::conditional_t<std::is_invocable_v<Edit &, Element &>, edit_result<Edit, Element>,
                                no_edit_result>::type;

/// Whether a function that edits an element gives a result.
template <class Edit, class Element> inline constexpr bool may_fail =
    is_result<given_by<Edit, Element>>::value;

/// What changing elements in their place gives: a result where that of the function is one.
template <class Edit, class Element, class Found> using edited =
    std::conditional_t<may_fail<Edit, Element>, result<Found>, Found>;

/// Whether the function has done what it was called for.
template <class T> bool is_done(const T &given) noexcept {
    if constexpr (std::is_arithmetic_v<T>)
        return given != 0;
    else
        return true;
}

/// Calls the function; gives whether that has done what it was called for, or its failure.
template <class Edit, class Element>
edited<Edit, Element, bool> apply(Edit &edit, Element &element) {
    static_assert(
        std::is_invocable_v<Edit &, Element &> && !std::is_invocable_v<Edit &, Element>,
        "the function is called with an element of this tree, of voxml or of voxml::ns, and must "
        "take it as `element &`: whatever it does to a copy is lost");
    using given = given_by<Edit, Element>;
    if constexpr (std::is_void_v<given>) {
        edit(element);
    } else if constexpr (is_result<given>::value) {
        auto done = edit(element);
        if (!done) return done.error();
        if constexpr (!std::is_void_v<typename given::value_type>) return is_done(*done);
    } else {
        return is_done(edit(element));
    }
    return true;
}

/// Adds what apply() gave to a count; gives the failure if it is one.
inline std::optional<failure> count_done(bool done, std::int64_t &count) {
    count += done ? 1 : 0;
    return std::nullopt;
}
inline std::optional<failure> count_done(const result<bool> &done, std::int64_t &count) {
    if (!done) return done.error();
    return count_done(*done, count);
}

} // namespace detail

/** An element: a name, attributes and children. */
template <class Layer> class basic_element : public handle<typename Layer::element_t> {
  public:
    using handle<typename Layer::element_t>::handle;
    using name_arg = typename Layer::name_arg;
    using attr = basic_attr<name_arg>;
    using item_type = basic_item<Layer>;

    /** Builds an element. The parts are what append() takes, or results of those:
     *
     *      auto menu = element::make("menu", attr{"day", "Monday"},
     *                                element::make("dish", "Bread & butter"),
     *                                comment::make("more to come"));
     *
     *  Gives the first failure among them. */
    template <class... Parts>
    static result<basic_element> make(const name_arg &name, const Parts &...parts) {
        auto checked = Layer::checked_name(name);
        if (!checked) return checked.error();
        basic_element made(adopt, Layer::element_create(*checked));
        auto done = made.append(parts...);
        if (!done) return done.error();
        return made;
    }

    /** @name Name @{ */
    /** As the document writes it, or in the tree with namespaces an expanded_name. */
    [[nodiscard]] auto name() const noexcept { return Layer::name_of(this->get()); }
    /** Renames the element. */
    result<void> set_name(const name_arg &name) {
        auto checked = Layer::checked_name(name);
        if (!checked) return checked.error();
        Layer::rename(this->address(), *checked);
        return {};
    }
    /** @} */

    /** @name Attributes
     *  A value is none where there is no such attribute; the plain one also where it refers to an
     *  entity that is not predefined. Looking for, setting and removing one take time linear in the
     *  number of the element's attributes. @{ */
    [[nodiscard]] std::optional<string> attribute(const name_arg &name) const {
        auto checked = Layer::checked_name(name);
        if (!checked) return std::nullopt;
        return detail::optional_of<string>(Layer::attribute(this->get(), *checked));
    }
    [[nodiscard]] std::optional<string> escaped_attribute(const name_arg &name) const {
        auto checked = Layer::checked_name(name);
        if (!checked) return std::nullopt;
        return detail::optional_of<string>(Layer::escaped_attribute(this->get(), *checked));
    }
    [[nodiscard]] bool has_attribute(const name_arg &name) const {
        auto checked = Layer::checked_name(name);
        return checked && Layer::has_attribute(this->get(), *checked) != 0;
    }
    result<void> set_attribute(const name_arg &name, string_arg value) {
        return change_attribute(name, detail::plain_characters(value), Layer::set_attribute);
    }
    result<void> set_escaped_attribute(const name_arg &name, string_arg value) {
        return change_attribute(name, detail::escaped_characters(value),
                                Layer::set_escaped_attribute);
    }
    void remove_attribute(const name_arg &name) {
        if (auto checked = Layer::checked_name(name))
            Layer::del_attribute(this->address(), *checked);
    }
    [[nodiscard]] basic_attributes<Layer> attributes() const noexcept {
        return basic_attributes<Layer>(adopt, Layer::element_attributes(this->get()));
    }
    void set_attributes(const basic_attributes<Layer> &attrs) noexcept {
        Layer::element_set_attributes(this->address(), attrs.get());
    }
    /** @} */

    /** @name Children @{ */
    /** All children, of every kind. */
    [[nodiscard]] basic_items<Layer> items() const noexcept {
        return basic_items<Layer>(adopt, Layer::element_items(this->get()));
    }
    /** Replaces them. */
    void set_items(const basic_items<Layer> &items) noexcept {
        Layer::element_set_items(this->address(), items.get());
    }
    /** The number of items. */
    [[nodiscard]] std::int64_t size() const noexcept {
        return Layer::element_items_length(this->get());
    }
    /** The child elements, all or those of a name. */
    [[nodiscard]] basic_elements<Layer> elements() const { return basic_elements<Layer>(*this); }
    [[nodiscard]] basic_elements<Layer> elements(const name_arg &name) const {
        return {*this, name.keep()};
    }
    /** The first child element of that name. */
    [[nodiscard]] std::optional<basic_element> child(const name_arg &name) const {
        const std::int64_t index = index_of_child(name);
        if (index < 0) return std::nullopt;
        return basic_element(adopt, Layer::element_item_element_at(this->get(), index));
    }
    /** The texts and CDATA sections below the element at any depth, joined; none where one refers
     *  to an entity that is not predefined. */
    [[nodiscard]] std::optional<string> text() const noexcept {
        return detail::optional_of<string>(Layer::element_content(this->get()));
    }
    /** @} */

    /** @name Changing the children @{ */

    /** Appends nodes and sets attributes, from left to right. A part is an element, another node or
     *  an item; a string, which becomes a text of these plain characters; an `attr{name, value}`; a
     *  range of parts; or a result of any of them. The parts before the first that fails stay. */
    template <class... Parts> result<void> append(const Parts &...parts) {
        result<void> done;
        (void)(... && (done = add(parts)).has_value());
        return done;
    }
    /** Before the item at `index`, which may be the size. Unlike append() it takes one
     *  item, no strings and no results. Inserting and erasing take time in proportion to the items
     *  behind. */
    void insert(std::int64_t index, const item_type &item) noexcept {
        Layer::element_insert_item(this->address(), index, item.get());
    }
    /** In the place of the item at `index`. */
    void set(std::int64_t index, const item_type &item) noexcept {
        Layer::element_set_item_at(this->address(), index, item.get());
    }
    /** Removes the item at `index`. */
    void erase(std::int64_t index) noexcept { Layer::element_del_item_at(this->address(), index); }
    /** Removes all items. */
    void clear() noexcept { Layer::element_items_clear(this->address()); }
    /** Replaces all items by a text of plain characters. */
    result<void> set_text(string_arg value) {
        auto plain = detail::plain_characters(value);
        if (!plain) return plain.error();
        clear();
        Layer::element_append_text(this->address(), plain->get());
        return {};
    }
    /** Erases the items for which `is_unwanted(item)` holds, in time linear in the number of all.
     *  Gives how many those were. */
    template <class Predicate> std::int64_t erase_if(Predicate &&is_unwanted) {
        basic_items<Layer> kept;
        for (const auto &each : items())
            if (!is_unwanted(each)) kept.append(each);
        const std::int64_t erased = size() - kept.size();
        if (erased != 0) set_items(kept);
        return erased;
    }
    /** @} */

    /** Makes all objects below now, so that this element does without the text that it was decoded
     *  from: for keeping a small part of a large document. */
    void make_all() const noexcept { Layer::element_make_all(this->get()); }

    /** @name Changing elements in their place
     *  `edit(element)` is called with elements that were moved out of their parents for the time,
     *  so that whatever nobody else holds is changed where it is: a change copies neither brothers
     *  nor parents and takes time that does not grow with their number. The function takes
     *  `element &` and must leave an element in the variable; a moved-from one ends the process.
     * Where it throws, the element is put back, and what was changed stays changed. While it runs,
     * an empty text stands in the element's place, and that text must stay where it is: otherwise
     * the process ends when the element is put back. What is appended to the parent meanwhile
     * stays, and edit_children() visits it.
     *
     *  These give whether there was such an element, or how many. One for which the function gives
     *  false or 0, as these do, or a result of these, does not count. Where the function gives a
     * `result`, these do too; the first failure ends the work, and what was changed before stays
     * changed. @{ */

    /** The child element at `index` among the items, if one is there. An index outside the items
     *  ends the process. */
    template <class Edit>
    detail::edited<Edit, basic_element, bool> edit_at(std::int64_t index, Edit &&edit) {
        auto *taken = Layer::element_take_element_at(this->address(), index);
        if (!taken) return false;
        returned back{this, {*this, index, basic_element(adopt, taken)}};
        return detail::apply(edit, back.lent.child);
    }
    /** The first child element of that name. */
    template <class Edit>
    detail::edited<Edit, basic_element, bool> edit_child(const name_arg &name, Edit &&edit) {
        const std::int64_t index = index_of_child(name);
        if (index < 0) return false;
        return edit_at(index, edit);
    }
    /** Every child element of that name, in order. */
    template <class Edit> detail::edited<Edit, basic_element, std::int64_t>
    edit_children(const name_arg &name, Edit &&edit) {
        typename name_arg::kept room;
        const typename Layer::name_view wanted = name.in(room);
        std::int64_t count = 0;
        for (std::int64_t at = 0; (at = Layer::find_child(this->get(), at, wanted)) >= 0; ++at) {
            [[maybe_unused]] auto failed = detail::count_done(edit_at(at, edit), count);
            if constexpr (detail::may_fail<Edit, basic_element>)
                if (failed) return std::move(*failed);
        }
        return count;
    }
    /** This element and every one below at any depth, without recursion, each before those below.
     *  Elements that the function adds below the one it is given are visited, too. It is not told
     *  where the element lies: who must know what is around it goes down with take_at() and set(),
     *  with a stack of elements and indexes. */
    template <class Edit> detail::edited<Edit, basic_element, std::int64_t> edit_all(Edit &&edit) {
        std::int64_t count = 0;
        descent way(*this);
        do {
            [[maybe_unused]] auto failed =
                detail::count_done(detail::apply(edit, way.current()), count);
            if constexpr (detail::may_fail<Edit, basic_element>)
                if (failed) return std::move(*failed);
        } while (way.next());
        return count;
    }
    /** Moves the child element at `index` among the items out, if one is there; an index outside
     *  the items ends the process. In its place stands an empty text, which counts as an item,
     *  until set() puts the element back. */
    [[nodiscard]] std::optional<basic_element> take_at(std::int64_t index) noexcept {
        return detail::optional_of<basic_element>(
            Layer::element_take_element_at(this->address(), index));
    }
    /** @} */

    /** The element in the canonical layout as UTF-8, without an XML declaration. */
    [[nodiscard]] result<buffer> encode() const { return encode(VO_CHARSET_UTF_8); }
    /** The same in a character set, one of the constants in vo/vo_charset.h. */
    [[nodiscard]] result<buffer> encode(voCharset charset) const {
        const auto encoded = [this](voCharset in) {
            return detail::optional_of<buffer>(Layer::element_encode(this->get(), in));
        };
        auto bytes = encoded(charset);
        if (!bytes) return detail::charset_failure(encoded(VO_CHARSET_UTF_8), charset, {});
        return std::move(*bytes);
    }
    /** Where it was found, if that was recorded. */
    [[nodiscard]] std::optional<voxml::location> location() const {
        return detail::location_of(Layer::element_location(this->get()));
    }
    /** Reads the element without making objects. */
    [[nodiscard]] basic_view<Layer> view() const { return basic_view<Layer>(*this); }

    /** @name Namespace declarations
     *  Those of this element itself, if it has any; only in the tree with namespaces. An element
     *  that goes to another document keeps its names, but leaves the declarations around it behind:
     *  when it is written, prefixes are found anew. Whoever wants the same ones, or has prefixes in
     *  texts and values, sets them here. A prefix in a value means what the innermost element
     *  around it says that declares it: who needs that collects these from the root down to the
     *  element. Views do not show them. Keep the map in a variable to go through it. @{ */
    [[nodiscard]] std::optional<namespace_map> namespaces() const noexcept {
        using layer = typename detail::need_namespaces<Layer>::layer;
        return detail::optional_of<namespace_map>(layer::namespaces(this->get()));
    }
    void set_namespaces(const namespace_map &map) noexcept {
        using layer = typename detail::need_namespaces<Layer>::layer;
        layer::set_namespaces(this->address(), map.get());
    }
    void remove_namespaces() noexcept {
        using layer = typename detail::need_namespaces<Layer>::layer;
        layer::remove_namespaces(this->address());
    }
    /** @} */

  private:
    std::int64_t index_of_child(const name_arg &name) const {
        typename name_arg::kept room;
        return Layer::find_child(this->get(), 0, name.in(room));
    }

    /// A child that was taken out.
    struct loan {
        std::int64_t index;
        basic_element child;
        basic_item<Layer> hole; ///< What stands in its place.

        loan(const basic_element &parent, std::int64_t place, basic_element taken)
            : index(place), child(std::move(taken)), hole(parent.item_at(place)) {}
    };
    /// Puts a child back, whatever happens.
    struct returned {
        basic_element *parent;
        loan lent;
        ~returned() { parent->put_back(lent); }
    };

    basic_item<Layer> item_at(std::int64_t index) const noexcept {
        return basic_item<Layer>(adopt, Layer::element_item_at(this->get(), index));
    }
    void put_back(const loan &lent) noexcept {
        if (lent.index >= size() || item_at(lent.index) != lent.hole)
            vo___Abort("voxml::element", __FILE__, __LINE__,
                       "the items of an element were changed while a child was edited");
        Layer::element_set_item_element_at(this->address(), lent.index, lent.child.get());
    }

    /// The way from an element to one below it. Each on it is taken out of the one before and put
    /// back when it is left.
    class descent {
      public:
        explicit descent(basic_element &top) : top_(top) {}
        descent(const descent &) = delete;
        descent &operator=(const descent &) = delete;
        ~descent() {
            while (!levels_.empty())
                leave();
        }

        basic_element &current() noexcept {
            return levels_.empty() ? top_ : levels_.back().lent.child;
        }
        /// To the next element in document order; false at the end.
        bool next() {
            while (!enter_next()) {
                if (levels_.empty()) return false;
                leave();
            }
            return true;
        }

      private:
        struct level {
            loan lent;
            std::int64_t next; ///< The item to look at next.
        };

        bool enter_next() {
            basic_element &parent = current();
            std::int64_t &next = levels_.empty() ? top_next_ : levels_.back().next;
            while (next < parent.size()) {
                const std::int64_t at = next++;
                auto taken = parent.take_at(at);
                if (!taken) continue;
                levels_.push_back({{parent, at, std::move(*taken)}, 0});
                return true;
            }
            return false;
        }
        void leave() {
            const level left = std::move(levels_.back());
            levels_.pop_back();
            current().put_back(left.lent);
        }

        basic_element &top_;
        std::int64_t top_next_ = 0;
        std::vector<level> levels_;
    };

    template <class Set>
    result<void> change_attribute(const name_arg &name, const result<string> &value, Set put) {
        auto checked = Layer::checked_attribute_name(name);
        if (!checked) return checked.error();
        if (!value) return value.error();
        put(this->address(), *checked, value->get());
        return {};
    }

    result<void> add(const basic_element &child) {
        Layer::element_append_element(this->address(), child.get());
        return {};
    }
    template <class Other> result<void> add(const basic_element<Other> &) {
        return detail::need_same_tree<Layer, Other>(), result<void>();
    }
    template <class Other> result<void> add(const basic_item<Other> &child) {
        detail::need_same_tree<Layer, Other>();
        Layer::element_append_item(this->address(), child.get());
        return {};
    }
    template <class Name> result<void> add(const basic_attr<Name> &added) {
        static_assert(std::is_convertible_v<Name, name_arg>,
                      "an attribute of the tree with namespaces in the plain one");
        return set_attribute(added.name, added.value);
    }
    template <class T> result<void> add(const result<T> &part) {
        return part ? add(*part) : result<void>(part.error());
    }
    template <class Part> result<void> add(const Part &part) {
        if constexpr (std::is_convertible_v<const Part &, string_arg>) {
            auto plain = detail::plain_characters(part);
            if (!plain) return plain.error();
            Layer::element_append_text(this->address(), plain->get());
        } else if constexpr (std::is_convertible_v<const Part &, item_type>) {
            Layer::element_append_item(this->address(), item_type(part).get());
        } else {
            static_assert(detail::is_range<Part>::value,
                          "this cannot be put into an element; of a view, find its element by "
                          "child() and elements()");
            for (const auto &each : part)
                if (auto done = add(each); !done) return done;
        }
        return {};
    }
};

/** A document: the settings of the XML declaration and the nodes at the top. */
template <class Layer> class basic_document : public handle<typename Layer::document_t> {
  public:
    using handle<typename Layer::document_t>::handle;
    using element_type = basic_element<Layer>;

    /** An empty document: version 1.0, UTF-8, not standalone. */
    basic_document() : basic_document(adopt, Layer::document_create()) {}
    /** A document with this root. */
    explicit basic_document(const element_type &root) : basic_document() { set_root(root); }
    /** The same object as a document. */
    explicit basic_document(handle<typename Layer::document_t> same) noexcept
        : handle<typename Layer::document_t>(std::move(same)) {}

    /** @name Decoding
     *  See xml/xml_document_decode.h, which also tells what to do about documents without an XML
     *  declaration or with a DOCTYPE; import_document() reads them as they are. For files see
     *  xml/xml_document_file.h. The tree keeps the buffer, or a copy of the bytes, until all of its
     *  objects are made. In the tree with namespaces they are resolved too. @{ */
    static result<basic_document> decode(std::string_view bytes,
                                         const decode_options &options = {}) {
        return decode(buffer(bytes), options);
    }
    static result<basic_document> decode(const buffer &bytes, const decode_options &options = {}) {
        auto decoded = Layer::decode(bytes, options);
        if (!decoded) return decoded.error();
        return basic_document(std::move(*decoded));
    }
    /** The path names the text unless the options do. It ends at a NUL. */
    static result<basic_document> decode_file(const std::string &path,
                                              decode_options options = {}) {
        auto bytes = detail::read_file(path);
        if (!bytes) return bytes.error();
        if (options.source.empty()) options.source = path;
        return decode(*bytes, options);
    }
    /** @} */

    /** @name Encoding
     *  In the canonical layout or the one that is asked for, and the document's character set. In
     *  the tree with namespaces a name does not remember the prefix that it was written with: see
     *  xml/xml_ns_document_encode.h for those that are chosen. Programs that must keep each prefix
     *  as it stands change the plain tree. @{ */
    [[nodiscard]] result<buffer> encode(const encode_options &wanted = {}) const {
        return detail::encode(Layer::plain(*this), wanted, {});
    }
    /** Replaces the file once the new one is whole; after a failure it is as it was. */
    result<void> encode_file(const std::string &path, const encode_options &options = {}) const {
        auto bytes = detail::encode(Layer::plain(*this), options, path);
        if (!bytes) return bytes.error();
        const int error = voFileReplace(path.c_str(), bytes->get());
        if (error != 0) return detail::file_failure(path, error);
        return {};
    }
    /** @} */

    /** @name Nodes @{ */
    /** The first element at the top. */
    [[nodiscard]] std::optional<element_type> root() const noexcept {
        return detail::optional_of<element_type>(Layer::document_root(this->get()));
    }
    /** Puts it in the place of the first element at the top, or behind all nodes. */
    void set_root(const element_type &root) noexcept {
        Layer::document_set_root(this->address(), root.get());
    }
    /** The nodes at the top, of any number and kind. */
    [[nodiscard]] basic_items<Layer> items() const noexcept {
        return basic_items<Layer>(adopt, Layer::document_items(this->get()));
    }
    /** Replaces them. */
    void set_items(const basic_items<Layer> &items) noexcept {
        Layer::document_set_items(this->address(), items.get());
    }
    /** Changes the root in its place, as basic_element::edit_child() does a child. While the
     *  function runs, the document has no items and must be given none. */
    template <class Edit> detail::edited<Edit, element_type, bool> edit_root(Edit &&edit) {
        auto *taken = Layer::document_take_root(this->address());
        if (!taken) return false;
        loan back(this, element_type(adopt, taken));
        return detail::apply(edit, back.root);
    }
    /** Changes the root and every element below it, see basic_element::edit_all(). A document may
     *  have further elements at its top, which are among items(). */
    template <class Edit> detail::edited<Edit, element_type, std::int64_t> edit_all(Edit &&edit) {
        auto *taken = Layer::document_take_root(this->address());
        if (!taken) return std::int64_t{0};
        loan back(this, element_type(adopt, taken));
        return back.root.edit_all(edit);
    }
    /** @} */

    /** @name The XML declaration @{ */
    /** Such as "1.0". */
    [[nodiscard]] string version() const noexcept {
        return string(adopt, Layer::document_version(this->get()));
    }
    /** Fails with errc::bad_version unless it is "1." and digits. */
    result<void> set_version(string_arg version) {
        auto checked = detail::checked(version, xmlValueVersionNumOk, errc::bad_version);
        if (!checked) return checked.error();
        Layer::document_set_version(this->address(), checked->get());
        return {};
    }
    /** One of the constants in vo/vo_charset.h. */
    [[nodiscard]] voCharset charset() const noexcept {
        return Layer::document_charset(this->get());
    }
    /** Of what encode() writes; the tree stays as it is. A charset that is none of the constants
     *  ends the process. */
    void set_charset(voCharset charset) noexcept {
        Layer::document_set_charset(this->address(), charset);
    }
    /** Whether the declaration says standalone="yes". */
    [[nodiscard]] bool standalone() const noexcept {
        return Layer::document_standalone(this->get()) != 0;
    }
    /** Sets that. */
    void set_standalone(bool standalone) noexcept {
        Layer::document_set_standalone(this->address(), standalone ? 1 : 0);
    }
    /** @} */

    /** Where it was found, if that was recorded. */
    [[nodiscard]] std::optional<voxml::location> location() const {
        return detail::location_of(Layer::document_location(this->get()));
    }
    /** Reads the document without making objects. */
    [[nodiscard]] basic_view<Layer> view() const { return basic_view<Layer>(*this); }
    /** The nodes to which a path leads. */
    [[nodiscard]] basic_selection<Layer> select(const path &to) const { return view().select(to); }
    /** See xmlDocumentMakeAll(). */
    void make_all() const noexcept { Layer::document_make_all(this->get()); }

    /** @name From one tree to the other @{ */
    /** The document with its names resolved; a failure has no hint and no offset in bytes, and a
     *  place only if locations were recorded. Only in the plain tree. */
    [[nodiscard]] result<basic_document<detail::ns_layer>> resolve() const {
        static_assert(!Layer::has_namespaces, "the names of this document are resolved already");
        auto resolved = Layer::resolve(this->get());
        if (!resolved) return resolved.error();
        return basic_document<detail::ns_layer>(std::move(*resolved));
    }
    /** The document with names as encode() writes them, with prefixes. */
    [[nodiscard]] basic_document<detail::plain_layer> plain() const noexcept {
        return basic_document<detail::plain_layer>(Layer::plain(*this));
    }
    /** @} */

  private:
    /// Puts the root back, whatever happens.
    struct loan {
        basic_document *document;
        element_type root;

        basic_items<Layer> others;

        loan(basic_document *from, element_type taken)
            : document(from), root(std::move(taken)), others(from->items()) {
            document->set_items({});
        }
        loan(const loan &) = delete;
        loan &operator=(const loan &) = delete;
        ~loan() {
            if (document->items().size() != 0)
                vo___Abort("voxml::document", __FILE__, __LINE__,
                           "a document was given items while its root was edited");
            document->set_items(others);
            others = {}; // The document alone holds them now.
            document->set_root(root);
        }
    };
};

// ---------------------------------------------------------------- views

namespace detail {

/// Short strings that stay where they are until all are forgotten. Those that lie in a text which
/// stays anyway are not copied.
class text_store {
  public:
    explicit text_store(XML_UTF8 staying) noexcept : staying_(staying) {}

    XML_UTF8 staying() const noexcept { return staying_; }

    std::string_view keep(std::string_view text) { return stays(text) ? text : copy(text); }
    void forget() noexcept {
        if (at_) clear();
    }

  private:
    bool stays(std::string_view text) const noexcept {
        const auto address = [](const char *at) { return reinterpret_cast<std::uintptr_t>(at); };
        return address(text.data()) - address(staying_.bytes) <
               static_cast<std::uintptr_t>(staying_.length);
    }
    std::string_view copy(std::string_view text) {
        if (text.empty()) return {"", 0};
        if (text.size() > left_) provide(text.size());
        char *const kept = at_;
        std::memcpy(kept, text.data(), text.size());
        at_ += text.size();
        left_ -= text.size();
        return {kept, text.size()};
    }
    void provide(std::size_t least) {
        if (at_ || least > capacity_) {
            const std::size_t size = capacity_ * 2 + 256 > least ? capacity_ * 2 + 256 : least;
            std::unique_ptr<char[]> next(new char[size]);
            if (at_) former_.push_back(std::move(block_));
            block_ = std::move(next);
            capacity_ = size;
        }
        at_ = block_.get();
        left_ = capacity_;
    }
    void clear() noexcept {
        former_.clear();
        at_ = nullptr;
        left_ = 0;
    }

    XML_UTF8 staying_;
    std::unique_ptr<char[]> block_; ///< The last one,
    std::size_t capacity_ = 0;      ///< which has so many bytes.
    std::vector<std::unique_ptr<char[]>> former_;
    char *at_ = nullptr;   ///< Where the next copy goes; null when there is none yet.
    std::size_t left_ = 0; ///< So many bytes of the block are left behind that.
};

/// Takes a cursor back from so many levels below.
struct way_back {
    XML_CURSOR *cursor;
    std::int64_t depth = 0;

    explicit way_back(XML_CURSOR *stray) noexcept : cursor(stray) {}
    way_back(const way_back &) = delete;
    way_back &operator=(const way_back &) = delete;
    ~way_back() {
        for (; depth != 0; --depth)
            xmlCursorParent(cursor);
    }
};

/// Moves a cursor, which stands so many levels below a node, to the next item below that in
/// document order; to the node itself at the end.
inline bool next_below(XML_CURSOR *cursor, std::int64_t &depth) noexcept {
    if (xmlCursorFirstChild(cursor)) return ++depth, true;
    for (; depth != 0; --depth) {
        if (xmlCursorNext(cursor)) return true;
        xmlCursorParent(cursor);
    }
    return false;
}

} // namespace detail

template <class Layer> class basic_views;

/** A node that is read without making or counting objects: a document, an element, an attribute or
 *  another node. A view has a cursor of its own (xml/xml_cursor.h) and keeps what is below it. To
 *  copy a view takes the same time however deep its node lies. It is for one thread at a time,
 *  reading included.
 *
 *  The strings that a view gives stay valid as long as the view lives, is not assigned and, in a
 *  range, is not followed by the next; those that are not in the document as it was decoded take
 *  memory until then. */
template <class Layer> class basic_view {
  public:
    using name_view = typename Layer::name_view;
    using name_arg = typename Layer::name_arg;

    explicit basic_view(const basic_document<Layer> &doc)
        : cursor_(adopt, Layer::cursor(doc.get())) {}
    explicit basic_view(const basic_element<Layer> &el) : cursor_(adopt, Layer::cursor(el.get())) {}
    basic_view(const basic_view &other)
        : cursor_(adopt, xmlCursorCreateHere(other.cursor_.get())), store_(other.store_.staying()) {
    }
    basic_view(basic_view &&) noexcept = default;
    basic_view &operator=(const basic_view &other) {
        basic_view copy(other);
        return *this = std::move(copy);
    }
    basic_view &operator=(basic_view &&) noexcept = default;
    ~basic_view() = default;

    /** The kind of the node. */
    [[nodiscard]] item_type type() const noexcept {
        return static_cast<item_type>(xmlCursorType(cursor_.get()));
    }
    /** Of an element or attribute; other nodes have an empty one. */
    [[nodiscard]] name_view name() const VOXML_LIFETIMEBOUND {
        return keep(Layer::name_at(cursor_.get()));
    }
    /** The value of an attribute or of a node that is no element, references resolved. None for
     *  others, and where it refers to an entity that is not predefined. */
    [[nodiscard]] std::optional<std::string_view> value() const VOXML_LIFETIMEBOUND {
        return keep(xmlCursorValueTryUnescape(cursor_.get()));
    }
    /** The same as it is stored. */
    [[nodiscard]] std::optional<std::string_view> escaped_value() const VOXML_LIFETIMEBOUND {
        return keep(xmlCursorValue(cursor_.get()));
    }
    /** The value of the attribute of that name, as basic_element::attribute() gives it. */
    [[nodiscard]] std::optional<std::string_view>
    attribute(const name_arg &name) const VOXML_LIFETIMEBOUND {
        return read_attribute(name, xmlCursorValueTryUnescape);
    }
    /** The same as it is stored. */
    [[nodiscard]] std::optional<std::string_view>
    escaped_attribute(const name_arg &name) const VOXML_LIFETIMEBOUND {
        return read_attribute(name, xmlCursorValue);
    }
    /** Whether there is an attribute of that name. */
    [[nodiscard]] bool has_attribute(const name_arg &name) const noexcept {
        detail::way_back way{cursor_.get()};
        return find_attribute(name, way);
    }
    /** As basic_element::text() gives it; of a node that holds no others its value(). */
    [[nodiscard]] std::optional<std::string_view> text() const VOXML_LIFETIMEBOUND {
        const item_type own = type();
        if (own != item_type::element && own != item_type::document) return value();
        std::string_view first;
        std::string joined;
        for (detail::way_back way{cursor_.get()}; detail::next_below(way.cursor, way.depth);) {
            const XML_ITEM_TYPE type = xmlCursorType(way.cursor);
            if (type != XML_ITEM_TYPE_TEXT && type != XML_ITEM_TYPE_CDATA) continue;
            const auto piece = string_of(xmlCursorValueTryUnescape(way.cursor));
            if (!piece) return std::nullopt;
            if (first.empty()) {
                first = store_.keep(*piece);
            } else {
                if (joined.empty()) joined = first;
                joined += *piece;
            }
        }
        return joined.empty() ? first : store_.keep(joined);
    }

    /** @name Nodes below
     *  Each range has a cursor of its own, so that this view may go, and is read once, from its
     *  begin() on. @{ */
    [[nodiscard]] basic_views<Layer> items() const { return {*this, kind::any_item, std::nullopt}; }
    [[nodiscard]] basic_views<Layer> attributes() const {
        return {*this, kind::any_attribute, std::nullopt};
    }
    [[nodiscard]] basic_views<Layer> elements() const {
        return {*this, kind::any_element, std::nullopt};
    }
    [[nodiscard]] basic_views<Layer> elements(const name_arg &name) const {
        return {*this, kind::any_element, name.keep()};
    }
    /** The elements below at any depth, all or those of a name, in document order. */
    [[nodiscard]] basic_views<Layer> descendants() const {
        return {*this, kind::any_descendant, std::nullopt};
    }
    [[nodiscard]] basic_views<Layer> descendants(const name_arg &name) const {
        return {*this, kind::any_descendant, name.keep()};
    }
    /** The nodes to which a path leads from here, in document order. */
    [[nodiscard]] basic_selection<Layer> select(const path &to) const {
        return basic_selection<Layer>(to, cursor_.get());
    }
    /** The first element at the top of a document. */
    [[nodiscard]] std::optional<basic_view> root() const { return elements().first(); }
    /** The first child element of that name. */
    [[nodiscard]] std::optional<basic_view> child(const name_arg &name) const {
        return elements(name).first();
    }
    /** @} */

    /** Where it was found, if that was recorded; without a source. */
    [[nodiscard]] std::optional<voxml::location> location() const {
        voxml::location found;
        if (!xmlCursorLocation(cursor_.get(), &found.offset, &found.line, &found.column))
            return std::nullopt;
        return found;
    }

  private:
    friend class basic_views<Layer>;
    friend class basic_selection<Layer>;

    /// On the node of another cursor.
    explicit basic_view(XML_CURSOR *source) : cursor_(adopt, xmlCursorCreateHere(source)) {}

    /// What a range goes through.
    enum class kind { any_item, any_attribute, any_element, any_descendant };

    static std::optional<std::string_view> string_of(XML_UTF8 text) noexcept {
        if (!text.bytes) return std::nullopt;
        return std::string_view(text.bytes, static_cast<std::size_t>(text.length));
    }
    std::optional<std::string_view> keep(XML_UTF8 text) const {
        if (!text.bytes) return std::nullopt;
        return store_.keep({text.bytes, static_cast<std::size_t>(text.length)});
    }
    std::string_view keep(std::string_view name) const { return store_.keep(name); }
    qname keep(const qname &name) const { return {store_.keep(name.ns), store_.keep(name.local)}; }

    bool find_attribute(const name_arg &name, detail::way_back &way) const noexcept {
        bool more = xmlCursorFirstAttribute(way.cursor) != 0;
        way.depth = more ? 1 : 0;
        while (more && !name.is(Layer::name_at(way.cursor)))
            more = xmlCursorNext(way.cursor) != 0;
        return more;
    }
    template <class Read>
    std::optional<std::string_view> read_attribute(const name_arg &name, Read read) const {
        detail::way_back way{cursor_.get()};
        if (!find_attribute(name, way)) return std::nullopt;
        return keep(read(way.cursor));
    }

    handle<XML_CURSOR> cursor_;
    mutable detail::text_store store_{xmlCursorKeptText(cursor_.get())};
};

/** The views of nodes below one: a range that is read once. `for (const auto &each : range)` moves
 *  one cursor along; whoever keeps a view for longer copies it. The range itself can be moved, not
 *  copied. */
template <class Layer> class basic_views {
    using view_type = basic_view<Layer>;
    using kind = typename view_type::kind;

  public:
    struct sentinel {};

    basic_views(const basic_views &) = delete;
    basic_views &operator=(const basic_views &) = delete;
    basic_views(basic_views &&) noexcept = default;
    basic_views &operator=(basic_views &&) noexcept = default;
    ~basic_views() = default;

    class iterator {
      public:
        using iterator_concept = std::input_iterator_tag;
        using iterator_category = std::input_iterator_tag;
        using value_type = view_type;
        using difference_type = std::ptrdiff_t;
        using reference = const view_type &;
        using pointer = const view_type *;

        iterator() = default;
        explicit iterator(basic_views *range VOXML_LIFETIMEBOUND) noexcept
            : range_(range->found_ ? range : nullptr) {}

        reference operator*() const noexcept VOXML_LIFETIMEBOUND { return range_->current_; }
        pointer operator->() const noexcept VOXML_LIFETIMEBOUND { return &range_->current_; }
        iterator &operator++() {
            if (!range_->advance()) range_ = nullptr;
            return *this;
        }
        void operator++(int) { ++*this; }

        friend bool operator==(const iterator &at, sentinel) noexcept { return !at.range_; }
        friend bool operator!=(const iterator &at, sentinel end) noexcept { return !(at == end); }
        friend bool operator==(sentinel end, const iterator &at) noexcept { return at == end; }
        friend bool operator!=(sentinel end, const iterator &at) noexcept { return !(at == end); }

      private:
        basic_views *range_ = nullptr; ///< Null at the end.
    };

    /** To the first view. Once, since the range is read once. */
    [[nodiscard]] iterator begin() noexcept VOXML_LIFETIMEBOUND { return iterator(this); }
    /** Behind the last. */
    [[nodiscard]] sentinel end() const noexcept { return {}; }

  private:
    friend class basic_view<Layer>;

    basic_views(const view_type &parent, kind wanted,
                std::optional<typename Layer::name_arg::kept> name)
        : current_(parent), wanted_(wanted), name_(std::move(name)) {
        const auto first =
            wanted == kind::any_attribute ? xmlCursorFirstAttribute : xmlCursorFirstChild;
        level_ = first(current_.cursor_.get());
        found_ = level_ != 0 && (is_wanted() || advance());
    }
    /// To the next that is wanted, if there is one.
    bool advance() noexcept {
        current_.store_.forget();
        do
            found_ = step();
        while (found_ && !is_wanted());
        return found_;
    }
    bool step() noexcept {
        XML_CURSOR *const cursor = current_.cursor_.get();
        return wanted_ == kind::any_descendant ? detail::next_below(cursor, level_)
                                               : xmlCursorNext(cursor) != 0;
    }
    bool is_wanted() const noexcept {
        if (wanted_ == kind::any_item || wanted_ == kind::any_attribute) return true;
        XML_CURSOR *const cursor = current_.cursor_.get();
        if (xmlCursorType(cursor) != XML_ITEM_TYPE_ELEMENT) return false;
        return !name_ || Layer::name_at(cursor) == typename Layer::name_view(*name_);
    }
    std::optional<view_type> first() && {
        if (!found_) return std::nullopt;
        return std::move(current_);
    }

    view_type current_;
    kind wanted_;
    std::optional<typename Layer::name_arg::kept> name_;
    bool found_;
    std::int64_t level_; ///< Of a descendant, counted from the node that the range is below.
};

/** The nodes to which a path leads: a range of views that is read once, and finds each node when it
 *  is asked for it. Nothing is above the node from which it was selected. */
template <class Layer> class basic_selection {
    using view_type = basic_view<Layer>;

  public:
    struct sentinel {};

    basic_selection(const basic_selection &) = delete;
    basic_selection &operator=(const basic_selection &) = delete;
    basic_selection(basic_selection &&) noexcept = default;
    basic_selection &operator=(basic_selection &&) noexcept = default;
    ~basic_selection() = default;

    class iterator {
      public:
        using iterator_concept = std::input_iterator_tag;
        using iterator_category = std::input_iterator_tag;
        using value_type = view_type;
        using difference_type = std::ptrdiff_t;
        using reference = const view_type &;
        using pointer = const view_type *;

        iterator() = default;
        explicit iterator(basic_selection *range VOXML_LIFETIMEBOUND) noexcept : range_(range) {}

        reference operator*() const noexcept VOXML_LIFETIMEBOUND { return *range_->current_; }
        pointer operator->() const noexcept VOXML_LIFETIMEBOUND { return &*range_->current_; }
        iterator &operator++() {
            range_->advance();
            return *this;
        }
        void operator++(int) { ++*this; }

        friend bool operator==(const iterator &at, sentinel) noexcept { return at.is_done(); }
        friend bool operator!=(const iterator &at, sentinel end) noexcept { return !(at == end); }
        friend bool operator==(sentinel end, const iterator &at) noexcept { return at == end; }
        friend bool operator!=(sentinel end, const iterator &at) noexcept { return !(at == end); }

      private:
        bool is_done() const noexcept { return !range_ || !range_->current_; }

        basic_selection *range_ = nullptr;
    };

    /** To the node that was found last, the first one to begin with. */
    [[nodiscard]] iterator begin() noexcept VOXML_LIFETIMEBOUND { return iterator(this); }
    /** Behind the last. */
    [[nodiscard]] sentinel end() const noexcept { return {}; }

    /** The node that the iterators stand on; none at the end. */
    [[nodiscard]] std::optional<view_type> first() const { return current_; }
    /** Its string value: for a document or element its texts, joined, for an attribute its value.
     */
    [[nodiscard]] std::string text() const {
        if (!current_) return {};
        const XML_UTF8 text = xmlSelectionText(selection_.get());
        return {text.bytes, static_cast<std::size_t>(text.length)};
    }

  private:
    friend class basic_view<Layer>;

    basic_selection(const path &to, XML_CURSOR *from)
        : selection_(adopt, xmlPathSelect(to.get(), from)) {
        advance();
    }
    void advance() {
        current_.reset();
        if (xmlSelectionNext(selection_.get()))
            current_.emplace(view_type(xmlSelectionCursor(selection_.get())));
    }

    handle<XML_SELECTION> selection_;
    std::optional<view_type> current_;
};

// ---------------------------------------------------------------- the types by name

/** @name The plain tree: names as they are written, prefixes included @{ */
using document = basic_document<detail::plain_layer>;
using element = basic_element<detail::plain_layer>;
using elements = basic_elements<detail::plain_layer>;
using attribute = basic_attribute<detail::plain_layer>;
using attributes = basic_attributes<detail::plain_layer>;
using item = basic_item<detail::plain_layer>;
using items = basic_items<detail::plain_layer>;
using view = basic_view<detail::plain_layer>;
using views = basic_views<detail::plain_layer>;
using selection = basic_selection<detail::plain_layer>;
using attr = basic_attr<string_arg>;
/** @} */

/** The tree with namespaces: names are pairs, see qname. */
namespace ns {
using document = basic_document<detail::ns_layer>;
using element = basic_element<detail::ns_layer>;
using elements = basic_elements<detail::ns_layer>;
using attribute = basic_attribute<detail::ns_layer>;
using attributes = basic_attributes<detail::ns_layer>;
using item = basic_item<detail::ns_layer>;
using items = basic_items<detail::ns_layer>;
using view = basic_view<detail::ns_layer>;
using views = basic_views<detail::ns_layer>;
using selection = basic_selection<detail::ns_layer>;
using attr = basic_attr<qname_arg>;
} // namespace ns

// ---------------------------------------------------------------- import

/** How to import; see xml/xml_import.h, where 0 stands for a default as here. */
struct import_options {
    /** Gives every node its location. Refusals have one anyway, those of resolve() only with this.
     */
    bool locations = false;
    std::string_view source{}; ///< The name of the text in locations and failures.
    std::int64_t most_expanded = 0, most_amplified = 0, most_nested = 0;
};

/** Reads any well-formed XML 1.0 document as xmlDocumentTryImport() does, for programs that link
 *  voxml::import too. Whatever decoding refuses a document for, this may take it. Where both refuse
 *  it, they may do so for different faults: with errc::charset and errc::doctype decoding has not
 *  looked at the rest, so this failure tells more; otherwise that of decoding does, with a hint.
 *  The document type declaration is gone then. document::resolve() gives the tree with namespaces.
 *
 *  Characters that the document's character set lacks, and CR, stand as references in texts, which
 *  decoding refuses once they are written, in whatever document or character set. To be rid of
 *  them, replace texts by text::make() of their value(). */
inline result<document> import_document(const buffer &xml, const import_options &wanted = {}) {
    const auto start = detail::beginning(wanted.source);
    const XML_IMPORT_OPTIONS options = {wanted.locations, wanted.most_expanded,
                                        wanted.most_amplified, wanted.most_nested};
    XML_IMPORT_ERROR error;
    if (auto *doc =
            xmlDocumentTryImport(xml.get(), &options, start ? start->get() : nullptr, &error))
        return document(adopt, doc);
    const handle<voMessage> message(adopt, error.message);
    failure::details known;
    known.message = detail::utf8_of(voMessageText(message.get()));
    known.where = detail::location_of(voMessageLocation(message.get()));
    known.source = std::string(wanted.source);
    known.byte_offset = error.byteOffset;
    return failure(errc::not_well_formed, std::move(known));
}
inline result<document> import_document(std::string_view xml, const import_options &wanted = {}) {
    return import_document(buffer(xml), wanted);
}
/** The path names the text unless the options do. It ends at a NUL. */
inline result<document> import_file(const std::string &path, import_options wanted = {}) {
    auto bytes = detail::read_file(path);
    if (!bytes) return bytes.error();
    if (wanted.source.empty()) wanted.source = path;
    return import_document(*bytes, wanted);
}

} // namespace voxml

/** Equal strings have equal hashes. */
template <> struct std::hash<voxml::string> {
    std::size_t operator()(const voxml::string &hashed) const noexcept {
        return std::hash<std::u32string_view>()(hashed.u32());
    }
};

template <> struct std::hash<voxml::expanded_name> {
    std::size_t operator()(const voxml::expanded_name &hashed) const noexcept {
        const std::hash<voxml::string> of;
        return of(hashed.local) * 31 + (hashed.ns ? of(*hashed.ns) : 0);
    }
};

#if defined(__cpp_lib_format)
/** Formats as a std::string_view does. */
template <> struct std::formatter<voxml::string> : std::formatter<std::string_view> {
    template <class Context> auto format(const voxml::string &formatted, Context &context) const {
        return std::formatter<std::string_view>::format(formatted.str(), context);
    }
};
#endif

#endif
