// The outline of a namespace tree: the outline of the plain tree and the namespaces of its names.
//
// Decoding namespaces resolves all names and stores the number of a namespace for each. Objects of
// the namespace tree are made from that on demand, beside those of the plain tree, with which they
// share texts, comments and the like.
#pragma once

#include "source/xml/outline/xml_outline.hpp"
#include "xml/xml_ns_items.h"

#include <mutex>
#include <span>

namespace xml {

class NsObjectMaker;

/// The namespace of an element or attribute, or the one that a declaration binds: an index into
/// NsShared::namespaces, where 0 stands for none. Declarations are marked by a bit, and an
/// attribute that a later duplicate has displaced by a value of its own; both kinds are attributes
/// of the plain tree only.
using NsNumber = uint32_t;
inline constexpr NsNumber nsDeclares = NsNumber{1} << 31; ///< Set beside the declared number.
inline constexpr NsNumber nsDisplaced = nsDeclares - 1;
inline constexpr NsNumber nsOfXml = 1; ///< The namespace of the prefix "xml".
constexpr bool isNsAttribute(NsNumber ns) { return ns < nsDisplaced; }

/// What all parts of one decoded namespace tree share.
struct NsShared {
    voObj base;
    vo::Vec<vo::Ref<voString>> namespaces; ///< By number; number 0 is null.
    std::mutex mutex;     ///< For the maker. Only that of free memory is taken under it.
    NsObjectMaker *maker; ///< Made with the first object.
};

/// The namespaces of a run of records of an outline.
struct NsOutline {
    voObj base;
    vo::Ref<Outline> outline;
    vo::Ref<NsShared> shared;
    uint64_t first; ///< The record to which numbers[0] belongs.
    vo::Vec<NsNumber> numbers;

    /// The namespaces of an element and, behind it, of its attributes.
    const NsNumber *numbersOf(uint64_t element) const { return &numbers[element - first]; }

    /// The namespace of an element or attribute; null when it has none.
    voString *namespaceOf(uint64_t record) const {
        return shared->namespaces[numbers[record - first]];
    }
};

NsShared *createNsShared();
NsOutline *createNsOutline(Outline *outline, NsShared *shared, uint64_t first);

/// The part of a name behind its colon, or all of it.
template <class Unit> std::span<const Unit> localPart(std::span<const Unit> name) {
    for (size_t i = 0; i < name.size(); ++i)
        if (name[i] == ':') return name.subspan(i + 1);
    return name;
}

inline Piece localPart(Piece name) {
    const auto local = localPart(std::span(name.begin, name.end));
    return {local.data(), local.data() + local.size()};
}

} // namespace xml
