// Threads that work with one decoded document: what one of them makes, all of them get.
#include "tests/xml/codec.hpp"
#include "tests/xml/random_program.hpp"
#include "tests/xml/random_xml.hpp"

#include <barrier>
#include <thread>

using namespace test;

namespace {

#if TEST_SANITIZED
constexpr uint32_t rounds = 5;
#else
constexpr uint32_t rounds = 20;
#endif
constexpr int threadCounts[] = {2, 4, 16};

/// Calls `work` with a number on each of so many threads, all of which begin together.
void onThreads(int count, const std::function<void(int)> &work) {
    std::barrier start(count);
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            work(i);
        });
    for (std::thread &thread : threads)
        thread.join();
}

template <class Layer> Ref<typename Layer::Document> documentOf(const std::string &text);
template <> Ref<XML_DOCUMENT> documentOf<Plain>(const std::string &text) {
    return decode(text, XML_FLAG_DECODE_LOCATION).document;
}
template <> Ref<XML_NS_DOCUMENT> documentOf<Namespaced>(const std::string &text) {
    return nsDecode(documentOf<Plain>(text)).document;
}

/// The vectors and nodes of a document in the order in which they are asked for, before each of
/// which `wait` is called.
template <class Layer>
Objects madeOf(typename Layer::Document *document, const std::function<void()> &wait) {
    Objects made;
    std::vector<Ref<typename Layer::Items>> lists;
    lists.emplace_back(Layer::documentItems(document));
    for (size_t next = 0; next < lists.size(); ++next) {
        wait();
        Ref vector(Layer::itemsVector(lists[next]));
        for (int64_t i = 0; i < voVectorLength(vector); ++i) {
            wait();
            Ref el(Layer::elementAt(lists[next], i));
            if (el) lists.emplace_back(Layer::elementItems(el));
            Parts parts = partsOf(Ref(voVectorObjAt(vector, i)));
            std::ranges::move(parts.others, std::back_inserter(made));
        }
        made.emplace_back(voVectorObj(vector.take()));
    }
    return made;
}

std::string documentWithNamespaces(uint32_t seed, int nodes) {
    RandomXml documents(seed);
    for (;;) {
        std::string text = documents.document(nodes);
        if (documentOf<Namespaced>(text)) return text;
    }
}

/// What a program begins with.
struct Start {
    std::string text;
    Ref<XML_DOCUMENT> plain;
    Ref<XML_NS_DOCUMENT> resolved;

    Start(const std::string &xml, bool whole)
        : text(xml), plain(documentOf<Plain>(text)), resolved(nsDecode(plain).document) {
        if (!whole) return;
        xmlDocumentMakeAll(plain);
        xmlNsDocumentMakeAll(resolved);
    }
    Start(Start &&) = default;
    Start(const Start &other)
        : text(other.text), plain(xmlDocumentRetain(other.plain)),
          resolved(xmlNsDocumentRetain(other.resolved)) {}
};

/// What a program sees that shares the documents with others, or that has made them whole.
std::string seenBy(uint32_t seed, bool whole, Start start) {
    const Names names = seed % 2 ? Names::objects : Names::texts;
    Program program(seed, names, whole, {start.text});
    program.keep(xmlDocumentObj(start.plain.take()));
    if (names == Names::texts) program.keep(xmlNsDocumentObj(start.resolved.take()));
    start.resolved = {};
    for (int steps = 0; steps < 30; ++steps)
        program.step();
    return program.view();
}

} // namespace

LAYER_TEST_SUITE(OnDemandThreads);

TYPED_TEST(OnDemandThreads, ThatAskAtOnceGetOneObject) {
    for (int count : threadCounts) {
        auto document = documentOf<TypeParam>(documentWithNamespaces(uint32_t(count), 200));
        std::barrier together(count);
        std::vector<Objects> made{size_t(count)};
        onThreads(count, [&](int i) {
            made[size_t(i)] = madeOf<TypeParam>(document, [&] { together.arrive_and_wait(); });
        });
        for (const Objects &objects : made)
            EXPECT_TRUE(std::ranges::equal(objects, made.front(), [](auto &a, auto &b) {
                return a.operator->() == b.operator->();
            })) << count;
    }
}

TEST(OnDemandThreads, EachSeesWhatItWouldSeeAlone) {
    for (uint32_t round = 1; round <= rounds; ++round) {
        const std::string text = documentWithNamespaces(round, round % 4 ? 60 : 1000);
        const int count = threadCounts[round % std::size(threadCounts)];
        std::vector<std::string> expected;
        for (int i = 0; i < count; ++i)
            expected.push_back(seenBy(round * 100 + uint32_t(i), true, Start(text, true)));
        std::vector<Start> starts(size_t(count), Start(text, false));
        std::vector<std::string> seen{size_t(count)};
        onThreads(count, [&](int i) {
            seen[size_t(i)] =
                seenBy(round * 100 + uint32_t(i), false, std::move(starts[size_t(i)]));
        });
        EXPECT_EQ(seen, expected) << "round " << round;
    }
}
