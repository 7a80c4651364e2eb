// What edits change in a text.
#pragma once

#include "source/vo/vo_allocator.hpp"
#include "source/xml/outline/xml_outline.hpp"
#include "xml/xml_edit.h"

#include <optional>
#include <span>
#include <string>

namespace xml {

using EditText = std::basic_string<char, std::char_traits<char>, vo::Allocator<char>>;

/// A part of a text and what stands there instead.
struct Replacement {
    uint64_t from, to;
    EditText text;
    int64_t edit; ///< The index of the one that wants it.
};

/// Why edits cannot be done.
struct EditFault {
    XML_EDIT_ERROR_CODE code;
    int64_t edit; ///< -1 for none.
    const char *text;
    std::optional<uint64_t> place; ///< In the text.
};

/// A node that an edit has selected.
struct EditTarget {
    uint64_t record;
    int64_t edit;
};

using Edits = std::span<const XML_EDIT>;

/// Whether edits can be done anywhere.
std::optional<EditFault> checkEdits(Edits edits);

/// Finds the parts of an outline's text that edits change, in ascending order; none overlaps with
/// another. `targets` are in the order of edits.
std::optional<EditFault> planEdits(const Outline &outline, Edits edits, vo::Vec<EditTarget> targets,
                                   vo::Vec<Replacement> &plan);

} // namespace xml
