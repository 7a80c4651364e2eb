// The real files of the folder that the environment variable VOXML_CORPUS names.
#pragma once

#include "tests/xml/codec.hpp"

#include <algorithm>
#include <cstdlib>

namespace test {

inline std::vector<std::filesystem::path> corpusFiles() {
    namespace fs = std::filesystem;
    const char *folder = std::getenv("VOXML_CORPUS");
    std::vector<fs::path> files;
    if (!folder) return files;
    for (const auto &entry : fs::recursive_directory_iterator(folder)) {
        const fs::path &path = entry.path();
        const bool hidden = path.string().find("/.") != std::string::npos;
        if (entry.is_regular_file() && !hidden && path.extension() != ".tsv") files.push_back(path);
    }
    std::sort(files.begin(), files.end());
    return files;
}

class CorpusTest : public testing::Test {
  protected:
    void SetUp() override {
        files = corpusFiles();
        if (files.empty()) GTEST_SKIP() << "skipped: VOXML_CORPUS names no files";
    }
    std::vector<std::filesystem::path> files;
};

} // namespace test
