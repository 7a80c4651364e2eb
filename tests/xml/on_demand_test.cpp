// A decoded tree whose objects are made on demand, beside a second one of the same text that was
// made whole at once: whatever a program does with them, it sees the same.
#include "tests/xml/codec.hpp"
#include "tests/xml/random_program.hpp"
#include "tests/xml/random_xml.hpp"

#include <algorithm>

namespace {

/// A document of the same shape, whose nodes have the same numbers.
std::string withOtherWords(std::string text) {
    std::replace(text.begin() + ptrdiff_t(text.find("?>")), text.end(), 't', 'u');
    return text;
}

std::string seenAfter(int steps, uint32_t seed, bool whole) {
    test::RandomXml documents(seed);
    std::vector<std::string> texts;
    texts.push_back(documents.document(seed % 200 ? int(seed % 50) : 1500));
    texts.push_back(seed % 3 ? documents.document(int(seed * 7 % 50)) : withOtherWords(texts[0]));
    test::Program program(seed, seed % 2 ? test::Names::objects : test::Names::texts, whole,
                          std::move(texts));
    for (; steps > 0; --steps)
        program.step();
    return program.view();
}

/// Where two texts begin to differ, without the rest of them.
std::string difference(const std::string &a, const std::string &b) {
    const auto [inA, inB] = std::ranges::mismatch(a, b);
    const auto excerpt = [](const std::string &text, std::string::const_iterator from) {
        const auto place = size_t(from - text.begin());
        const size_t begin = place < 200 ? 0 : place - 200;
        return text.substr(begin, 400);
    };
    return excerpt(a, inA) + "\ninstead of\n" + excerpt(b, inB);
}

#if TEST_SANITIZED
constexpr uint32_t programs = 300;
#else
constexpr uint32_t programs = 1500;
#endif

} // namespace

TEST(OnDemand, NoProgramSeesWhatIsNotMade) {
    for (uint32_t seed = 1; seed <= programs; ++seed) {
        int steps = int(seed % 40);
        if (seenAfter(steps, seed, false) == seenAfter(steps, seed, true)) continue;
        for (int fewer = steps; fewer-- > 0;)
            if (seenAfter(fewer, seed, false) != seenAfter(fewer, seed, true)) steps = fewer;
        FAIL() << "seed " << seed << " after " << steps << " steps: "
               << difference(seenAfter(steps, seed, false), seenAfter(steps, seed, true));
    }
}

namespace {

/// The items of a list and of lists below it. Some elements are left out, and stay unmade.
template <class Layer>
void gather(const Ref<typename Layer::Items> &list, std::vector<Ref<typename Layer::Item>> &all) {
    for (int64_t i = 0; i < Layer::itemsLength(list); ++i) {
        all.emplace_back(Layer::itemAt(list, i));
        if (all.size() % 3 == 0) continue;
        if (Ref el(Layer::elementAt(list, i)); el) gather<Layer>(Ref(Layer::elementItems(el)), all);
    }
}

std::string encoded(XML_DOCUMENT *document) { return test::xmlOf(document); }
std::string encoded(XML_NS_DOCUMENT *document) {
    return test::xmlOf(Ref(xmlNsDocumentEncode(document)));
}

template <class Layer>
std::string encodedItems(const Ref<typename Layer::Document> &document,
                         std::initializer_list<typename Layer::Item *> items) {
    Ref changed(Layer::copyDocument(document));
    Ref list(Layer::createItems());
    for (typename Layer::Item *item : items)
        Layer::appendItem(list.edit(), item);
    Layer::setDocumentItems(changed.edit(), list);
    return encoded(changed);
}

/// What stood one behind the other in the text, but in different elements, is put side by side.
template <class Layer> void putSideBySide(const Ref<typename Layer::Document> &document) {
    std::vector<Ref<typename Layer::Item>> items;
    gather<Layer>(Ref(Layer::documentItems(document)), items);
    for (const auto &first : items)
        for (const auto &second : items)
            EXPECT_EQ(encodedItems<Layer>(document, {first, second}),
                      encodedItems<Layer>(document, {first}) +
                          encodedItems<Layer>(document, {second}));
}

} // namespace

TEST(OnDemand, ItemsOfDifferentElementsStandSideBySide) {
    const auto decoded = test::decode("<?xml?><r><a ><x/> <y b='1'>1</y></a> <b/>2<c><d><e/></d> "
                                      "</c><!--3--><f> </f><g><a><a/></a></g><a/>\n</r>\n<s/> ");
    putSideBySide<test::Plain>(decoded.document);
    putSideBySide<test::Namespaced>(test::nsDecode(decoded.document).document);
}
