// Documents changed at random: the verdict is Expat's, and what is written is stable.
#include "tests/import/readers.hpp"
#include "tests/xml/mutator.hpp"
#include "tests/xml/random_xml.hpp"

#include <expat.h>

#include <cstdlib>

namespace {

std::vector<std::string> seeds() {
    std::vector<std::string> texts = test::documentsForImport;
    test::RandomXml documents(1);
    for (int i = 0; i < 20; ++i)
        texts.push_back(documents.document(i));
    const char *corpus = std::getenv("VOXML_CORPUS");
    if (!corpus) return texts;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(corpus))
        if (entry.is_regular_file() && entry.file_size() < 20'000)
            texts.push_back(test::readFile(entry));
    return texts;
}

void check(const std::string &text) {
    SCOPED_TRACE(text);
    const test::Refusal refusal = test::refusalByExpat(text);
    auto imported = test::import(text, {1, 0, 0, 0});
    // Expat takes lone surrogates of UTF-16 for halves of characters.
    const bool isUtf16 =
        text.substr(0, 2).find_first_of(std::string_view("\0\xFE\xFF", 3)) != text.npos;
    const bool isKnown = refusal.code != XML_ERROR_UNKNOWN_ENCODING && !isUtf16;
    EXPECT_TRUE(!isKnown || imported.refusal == refusal) << imported.refusal << "; " << refusal;
    if (!imported.document) return;
    const std::string written = test::encode(imported.document);
    EXPECT_NE(written, "<null>");
    auto again = test::import(written);
    if (again.refusal.code == XML_ERROR_UNDEFINED_ENTITY) return; // in a document type elsewhere
    ASSERT_TRUE(again.document) << again.message;
    EXPECT_EQ(test::c14n(test::encode(again.document)), test::c14n(written));
}

/// VOXML_TEXTS tells how many, VOXML_CORPUS a folder with further documents to start from.
TEST(Import, ChangedDocumentsAreAcceptedAndRefusedAsByExpat) {
    const char *count = std::getenv("VOXML_TEXTS");
    std::vector<std::string> texts = seeds();
    test::Mutator mutator(7);
    for (int i = count ? std::atoi(count) : 10'000; i > 0 && !HasFailure(); --i) {
        const std::string &other = texts[mutator.below(texts.size())];
        check(mutator.changed(texts[mutator.below(texts.size())], other));
    }
}

} // namespace
