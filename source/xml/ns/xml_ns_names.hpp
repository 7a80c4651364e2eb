// The names of a document split into prefix and local name, and what the prefixes are bound to.
#pragma once

#include "source/vo/vo_hash.hpp"
#include "source/vo/vo_inline_vector.hpp"
#include "source/xml/base/xml_hash_table.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "source/xml/ns/xml_ns_outline.hpp"
#include "source/xml/ns/xml_ns_skip.hpp"
#include "xml/xml_ns_decode_error_code.h"

#include <string>

namespace xml {

/// A prefix, or the default namespace, and what it is bound to now.
struct NsPrefix {
    std::basic_string<char, std::char_traits<char>, vo::Allocator<char>> key; ///< UTF-8.
    bool isBound = false;
    NsNumber ns = 0;
};

/// A name, split into prefix and local name.
struct NsName {
    bool isKnown = false;
    bool isValid = false;
    bool declares = false;        ///< Whether an attribute of this name is a declaration.
    NsPrefix *declared = nullptr; ///< The prefix that it declares; null: the default namespace.
    NsPrefix *prefix = nullptr;   ///< Null when there is none.
    std::string_view local;       ///< The bytes of its code units, to be compared.
    XML_NS_DECODE_ERROR_CODE error = 0; ///< Why an element or attribute cannot have the name.
};

/// The prefixes of a document and the bindings in force while its tree is walked: elements bind on
/// the way in, and all that they bound is undone on the way out.
class NsPrefixes {
  public:
    NsPrefixes() { bind(&xml(), nsOfXml); }

    /// Splits a name, in code points or UTF-8, which must stay where it is.
    NsName takeApart(std::span<const uint32_t> whole) { return takenApart(whole); }
    NsName takeApart(std::span<const uint8_t> whole) { return takenApart(whole); }

    NsPrefix &forDefault() { return unprefixed; }

    /// Binds the prefix from here on, unless it is "xml", which keeps its namespace.
    void bind(NsPrefix *prefix, NsNumber ns) {
        undoing.push({prefix, prefix->isBound, prefix->ns});
        if (prefix->isBound && prefix == xmlPrefix) return;
        prefix->isBound = true;
        prefix->ns = ns;
    }

    /// The number of bindings so far, for undo(), which undoes the later ones.
    size_t mark() const { return undoing.size(); }
    void undo(size_t mark) {
        for (; undoing.size() > mark; undoing.pop()) {
            const Undo &last = undoing.back();
            last.prefix->isBound = last.wasBound;
            last.prefix->ns = last.former;
        }
    }

  private:
    struct Undo {
        NsPrefix *prefix;
        bool wasBound;
        NsNumber former;
    };

    template <class Unit> NsName takenApart(std::span<const Unit> whole);
    NsPrefix &at(std::span<const uint32_t> key);
    NsPrefix &at(std::span<const uint8_t> key);
    NsPrefix &xml();

    HashTable<NsPrefix> prefixes;
    NsPrefix unprefixed;
    NsPrefix *xmlPrefix = nullptr;
    vo::InlineVector<Undo, 16> undoing;
};

} // namespace xml
