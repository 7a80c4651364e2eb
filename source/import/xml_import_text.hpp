// Characters in the escaped form in which a tree holds them.
#pragma once

#include "source/vo/vo_allocator.hpp"
#include "vo/vo_charset.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace xml {

using Bytes = std::basic_string<char, std::char_traits<char>, vo::Allocator<char>>;

/// Which characters a document's character set has.
class Repertoire {
  public:
    explicit Repertoire(voCharset documentCharset) : charset(documentCharset) {}

    bool has(uint32_t ch);
    bool hasAll(std::string_view utf8);

  private:
    bool lookUp(uint32_t ch) const;

    voCharset charset;
    std::unordered_map<uint32_t, bool, std::hash<uint32_t>, std::equal_to<>,
                       vo::Allocator<std::pair<const uint32_t, bool>>>
        known;
};

/// Where escaped characters are to stand: between tags or between quotes.
enum class Within { content, quotes };

/// Appends characters so that a reader gets them back as they are: with references for those that
/// are markup, that a reader would normalize, or that the repertoire lacks. False when it lacks
/// U+10FFFF, to which a tree cannot refer, so that it stands there as it is.
bool appendEscaped(Bytes &out, std::string_view utf8, Within within, Repertoire &repertoire);

} // namespace xml
