// What a program can tell about objects through the public functions: what they hold, and which of
// them are the same.
#pragma once

#include "tests/support.hpp"

#include <vector>

namespace test {

using Objects = std::vector<Ref<voObj>>;

/// What an object's getters give, empty references for null.
struct Parts {
    Objects names; ///< Of an element or attribute: its own, a namespace's or a prefix.
    Objects others;
    std::string value; ///< Everything that is not an object.
};
Parts partsOf(voObj *object);

/// Whether names count as objects or only as texts. Which names share a string object is not
/// defined once namespaces were resolved.
enum class Names { objects, texts };

/// All that can be reached from `roots`, numbered in the order in which it is seen. Everything is
/// asked for twice, and must then be the same.
std::string viewOf(const Objects &roots, Names names);

} // namespace test
