// The names of one document, each kept once.
#pragma once

#include "source/vo/vo_object.hpp"
#include "source/xml/base/xml_hash_table.hpp"
#include "vo/vo.h"

#include <cstdint>
#include <string_view>

namespace xml {

class Builder;

/// A name that occurs in the document.
struct Name {
    std::string_view bytes; ///< In the text that is decoded.
    vo::Ref<voString> string;
    /// The attribute list that had the name last, which tells a duplicate at once.
    uint64_t seenIn = 0;
    /// The name that came after this one last time, which is a good guess for the next time.
    Name *follower = nullptr;
};

/// The hash is keyed, so that no document can be made to collide.
class Names {
  public:
    /// The entry of a name. `bytes` must outlive the table, which may keep them; `builder` makes
    /// the string of a name that is new.
    Name *intern(Builder &builder, std::string_view bytes);

  private:
    HashTable<Name> table;
};

} // namespace xml
