// `voxml check --strict`: whether it takes a file is for Expat to say.
#include "tests/import/readers.hpp"
#include "tests/xml/mutator.hpp"
#include "tests/xml/random_xml.hpp"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <set>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;

/// The files below a folder for which the tool has errors. One process checks all, by one thread:
/// iconv_close() of the C library unloads modules, which ThreadSanitizer takes for a race.
std::set<std::string> refusedBelow(const fs::path &folder) {
    const std::string command =
        VOXML_TOOL " check --strict --json-errors -r --name '*' '" + folder.string() + "' 2>&1";
    std::FILE *messages = popen(command.c_str(), "r");
    std::set<std::string> refused;
    std::string line;
    for (int ch; (ch = std::getc(messages)) != EOF;) {
        line += char(ch);
        if (ch != '\n') continue;
        constexpr std::string_view opening = "{\"file\":\"";
        EXPECT_TRUE(line.starts_with(opening)) << line;
        const size_t end = line.find('"', opening.size());
        if (line.find("\"severity\":\"error\"") != line.npos)
            refused.insert(line.substr(opening.size(), end - opening.size()));
        line.clear();
    }
    const int status = pclose(messages);
    EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, refused.empty() ? 0 : 1);
    return refused;
}

bool hasDoctype(std::string document) {
    std::erase(document, '\0'); // of UTF-16
    return document.find("<!DOCTYPE") != document.npos;
}

/// How many files there are to compare.
int compareWithExpat(const fs::path &folder) {
    const std::set<std::string> refused = refusedBelow(folder);
    int compared = 0, refusals = 0;
    for (const auto &entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) continue;
        const std::string document = test::readFile(entry);
        if (hasDoctype(document)) continue;
        const bool isRefused = test::refusalByExpat(document).code != 0;
        EXPECT_EQ(refused.contains(entry.path().string()), isRefused) << entry.path();
        ++compared;
        refusals += isRefused;
    }
    std::printf("%d files compared, %d of them refused\n", compared, refusals);
    return compared;
}

TEST(Strict, ConformanceFilesAreTakenAndRefusedAsByExpat) {
    if (!fs::exists(VOXML_CONFORMANCE)) GTEST_SKIP() << "skipped: no " << VOXML_CONFORMANCE;
    EXPECT_GT(compareWithExpat(VOXML_CONFORMANCE), 1000);
}

TEST(Strict, CorpusFilesAreTakenAndRefusedAsByExpat) {
    const char *corpus = std::getenv("VOXML_CORPUS");
    if (!corpus) GTEST_SKIP() << "skipped: VOXML_CORPUS names no files";
    EXPECT_GT(compareWithExpat(corpus), 0);
}

std::vector<std::string> seeds() {
    std::vector<std::string> texts;
    test::RandomXml documents(3);
    for (int i = 0; i < 40; ++i)
        texts.push_back(documents.document(i));
    const char *folders[] = {VOXML_CONFORMANCE, std::getenv("VOXML_CORPUS")};
    for (const char *folder : folders) {
        if (!folder || !fs::exists(folder)) continue;
        for (const auto &entry : fs::recursive_directory_iterator(folder))
            if (entry.is_regular_file() && entry.file_size() < 20'000)
                if (std::string text = test::readFile(entry); !hasDoctype(text))
                    texts.push_back(std::move(text));
    }
    return texts;
}

/// VOXML_TEXTS tells how many.
TEST(Strict, ChangedFilesAreTakenAndRefusedAsByExpat) {
    const char *count = std::getenv("VOXML_TEXTS");
    const std::string name = "voxml-strict-" + std::to_string(getpid());
    const fs::path folder = fs::path(testing::TempDir()) / name;
    fs::create_directories(folder);
    const std::vector<std::string> texts = seeds();
    test::Mutator mutator(11);
    for (int i = count ? std::atoi(count) : 5'000; i > 0; --i) {
        const std::string &other = texts[mutator.below(texts.size())];
        std::ofstream(folder / std::to_string(i), std::ios::binary)
            << mutator.changed(texts[mutator.below(texts.size())], other);
    }
    EXPECT_GT(compareWithExpat(folder), 1000);
    if (!HasFailure()) fs::remove_all(folder);
}

} // namespace
