// The names of one document, each kept once.
#pragma once

#include "source/vo/vo_allocator.hpp"
#include "vo/vo.h"

#include <cstdint>
#include <deque>
#include <string_view>

namespace xml {

class Builder;

/// A name that occurs in the document.
struct Name {
    std::string_view bytes; ///< In the text that is decoded.
    uint64_t hash;
    voString *string;
    /// The attribute list that had the name last, which tells a duplicate at once.
    uint64_t seenIn = 0;
    /// The name that came after this one last time, which is a good guess for the next time.
    Name *follower = nullptr;
};

/// A hash table, keyed so that no document can be made to collide.
class Names {
  public:
    Names();
    ~Names();
    Names(const Names &) = delete;
    Names &operator=(const Names &) = delete;

    /// The entry of a name. `bytes` must outlive the table, which may keep them; `builder` makes
    /// the string of a name that is new.
    Name *intern(Builder &builder, std::string_view bytes);

  private:
    Name *add(Builder &builder, std::string_view bytes, uint64_t hash);
    void grow();
    void place(Name *name);

    std::deque<Name, vo::Allocator<Name>> names; ///< Entries stay where they are.
    vo::Vec<Name *> slots; ///< A power of two; null where free; at most half full.
};

} // namespace xml
