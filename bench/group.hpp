// The documents that a race is about.
#pragma once

#include "bench/owned.hpp"
#include "vo/vo.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace bench {

/// A text in the two forms in which contestants take it.
struct File {
    std::string path;
    std::string bytes;
    Owned<voBuffer, voBufferRelease> buffer; ///< The same bytes.
};

File makeFile(std::string path, std::string bytes);
File readFile(std::string path);

struct Group {
    std::string name;
    std::vector<File> files;
    std::map<std::string, int> refusals; ///< Files left out, by the contestant that refused.

    int64_t bytes() const;
    const File &largest() const;
};

/// The files of a folder that every contestant accepts. Ends the process if the readers of this
/// library do not agree on one of them.
Group readGroup(const std::filesystem::path &folder);

/// A document of exactly `size` bytes, 64 or more, with elements, attributes and texts.
std::string smallDocument(size_t size);

} // namespace bench
