// Paths beside the XPath of libxml2, on random documents and on a folder of real files, which the
// environment variable VOXML_CORPUS names. VOXML_PATHS tells how many paths to try on each file.
#include "tests/path/peer.hpp"
#include "tests/path/random_path.hpp"
#include "tests/xml/codec.hpp"
#include "tests/xml/mutator.hpp"

#include <cstdlib>
#include <set>

namespace {

namespace fs = std::filesystem;

using Bindings = std::vector<std::pair<std::string, std::string>>;

std::string_view view(XML_UTF8 text) { return {text.bytes, size_t(text.length)}; }

/// To the next item in document order; false at the end.
bool toNextItem(XML_CURSOR *cursor) {
    if (xmlCursorFirstChild(cursor)) return true;
    while (!xmlCursorNext(cursor))
        if (!xmlCursorParent(cursor)) return false;
    return true;
}

/// A document in both libraries, and the words to ask about it.
struct Subject {
    Ref<XML_NS_DOCUMENT> document;
    test::Peer peer;
    Bindings bindings;
    test::Words words;

    explicit Subject(const std::string &xml) : peer(xml) {
        auto plain = test::decode(xml);
        if (!plain.document) return;
        document = test::nsDecode(plain.document).document;
        if (document) collect();
    }

    std::string qualified(std::string_view ns, std::string_view local) {
        if (ns.empty()) return std::string(local);
        size_t i = 0;
        while (i < bindings.size() && bindings[i].second != ns)
            ++i;
        if (i == bindings.size()) bindings.emplace_back("n" + std::to_string(i), ns);
        return bindings[i].first + ":" + std::string(local);
    }

    void collect() {
        std::set<std::string> elements, attributes, texts;
        const auto addText = [&](XML_UTF8 text) {
            const std::string_view all = view(text);
            const bool isSimple = all.find_first_of("'\r\n\t&<") == all.npos && all.size() < 60;
            if (isSimple && texts.size() < 100) texts.emplace(all);
        };
        Ref cursor(xmlCursorCreateNs(document));
        while (toNextItem(cursor)) {
            const XML_ITEM_TYPE type = xmlCursorType(cursor);
            if (type == XML_ITEM_TYPE_TEXT) addText(xmlCursorValueTryUnescape(cursor));
            if (type != XML_ITEM_TYPE_ELEMENT) continue;
            elements.insert(
                qualified(view(xmlCursorNamespace(cursor)), view(xmlCursorName(cursor))));
            if (!xmlCursorFirstAttribute(cursor)) continue;
            do {
                attributes.insert(
                    qualified(view(xmlCursorNamespace(cursor)), view(xmlCursorName(cursor))));
                addText(xmlCursorValueTryUnescape(cursor));
            } while (xmlCursorNext(cursor));
            xmlCursorParent(cursor);
        }
        words.elements.assign(elements.begin(), elements.end());
        words.attributes.assign(attributes.begin(), attributes.end());
        words.texts.assign(texts.begin(), texts.end());
        if (words.texts.empty()) words.texts.emplace_back("1");
    }
};

Ref<XML_PATH> compile(const std::string &expression, const Bindings &bindings) {
    Ref map(xmlNsNamespaceMapCreate());
    for (const auto &[prefix, ns] : bindings) {
        Ref mapping(xmlNsNamespaceMappingCreate());
        xmlNsNamespaceMappingSetPrefix(mapping.edit(), test::str(prefix));
        xmlNsNamespaceMappingSetNamespace(mapping.edit(), test::str(ns));
        xmlNsNamespaceMapSetMapping(map.edit(), mapping);
    }
    return Ref(xmlPathTryCreate(expression.data(), int64_t(expression.size()), map, nullptr));
}

std::vector<std::string> select(XML_PATH *path, XML_NS_DOCUMENT *document, int64_t from) {
    Ref cursor(xmlCursorCreateNs(document));
    for (; from >= 0; --from)
        do
            toNextItem(cursor);
        while (xmlCursorType(cursor) != XML_ITEM_TYPE_ELEMENT);
    Ref selection(xmlPathSelect(path, cursor));
    std::vector<std::string> nodes;
    while (xmlSelectionNext(selection)) {
        static constexpr const char *kinds[] = {"element", "instruction", "comment",  "text",
                                                "text",    "document",    "attribute"};
        XML_CURSOR *at = xmlSelectionCursor(selection);
        nodes.push_back(test::shownNode(kinds[xmlCursorType(at)], view(xmlCursorName(at)),
                                        view(xmlCursorNamespace(at)),
                                        std::string(view(xmlSelectionText(selection)))));
    }
    return nodes;
}

struct Tally {
    int compared = 0, found = 0, different = 0;
};

void compare(Subject &subject, int count, uint32_t seed, Tally &tally) {
    test::RandomPath random(seed, subject.words);
    std::mt19937 choice(seed);
    for (int i = 0; i < count && tally.different < 10; ++i) {
        const std::string expression = random.path();
        const int64_t from = int64_t(choice() % uint32_t(subject.peer.elements() + 1)) - 1;
        const auto wanted = subject.peer.select(expression, from, subject.bindings);
        Ref path = compile(expression, subject.bindings);
        ASSERT_EQ(wanted.has_value(), path != nullptr) << expression;
        if (!path) continue;
        const auto nodes = select(path, subject.document, from);
        ++tally.compared;
        tally.found += !nodes.empty();
        if (nodes == *wanted) continue;
        ++tally.different;
        ADD_FAILURE() << expression << " from element " << from << "\nfound "
                      << testing::PrintToString(nodes).substr(0, 2000) << "\nwanted "
                      << testing::PrintToString(*wanted).substr(0, 2000);
    }
}

/// Few names and texts, so that paths find something.
class Document {
  public:
    explicit Document(uint32_t seed) : random(seed) {}

    std::string make() {
        left = 5 + below(60);
        out = "<?xml version='1.0'?><!--c--><?p d?><a xmlns:q='q'>";
        content(0);
        return out + "</a><!--x-->";
    }

  private:
    int below(int end) { return int(random() % unsigned(end)); }
    void content(int depth) {
        for (int i = below(depth < 2 ? 9 : 4); i >= 0 && left > 0; --i)
            node(depth);
    }
    void node(int depth) {
        static constexpr const char *texts[] = {"x", "1", " 2 ", "-3", "x&lt;1", "1.5", "xy"};
        --left;
        switch (below(9)) {
        case 0:
            out += texts[below(7)];
            return;
        case 1:
            out += "<![CDATA[" + std::string(texts[below(4)]) + "]]>";
            return;
        case 2:
            out += below(2) ? "<!--x-->" : "<?p  1?>";
            return;
        default:
            element(depth);
        }
    }
    void element(int depth) {
        static constexpr const char *names[] = {"a", "b", "b", "c", "q:a", "d"};
        static constexpr const char *attributes[] = {"b='x'", "c='1'", "q:b='2'", "d=' 1 '"};
        const std::string name = names[below(6)];
        out += "<" + name;
        for (const char *attribute : attributes)
            if (below(4) == 0) out += std::string(" ") + attribute;
        if (below(8) == 0) out += " xmlns='q'";
        out += ">";
        if (depth < 12) content(depth + 1);
        out += "</" + name + ">";
    }

    std::mt19937 random;
    std::string out;
    int left = 0;
};

TEST(PathPeer, RandomPathsFindTheSameInRandomDocuments) {
    Tally tally;
    const int documents = TEST_SANITIZED ? 40 : 200;
    for (int i = 0; i < documents; ++i) {
        const std::string xml = Document(uint32_t(i)).make();
        Subject subject(xml);
        ASSERT_TRUE(subject.document && subject.peer.isRead()) << xml;
        if (i % 2) xmlNsDocumentMakeAll(subject.document);
        compare(subject, 50, uint32_t(i), tally);
        if (tally.different) FAIL() << xml;
    }
    EXPECT_GT(tally.found, tally.compared / 5);
}

TEST(PathPeer, RandomPathsFindTheSameInRealFiles) {
    const char *folder = std::getenv("VOXML_CORPUS"), *number = std::getenv("VOXML_PATHS");
    if (!folder || !number) GTEST_SKIP() << "skipped: VOXML_CORPUS and VOXML_PATHS are not set";
    Tally tally;
    uint32_t seed = 0;
    int files = 0;
    for (const auto &entry : fs::recursive_directory_iterator(folder)) {
        constexpr size_t largest = 40'000;
        if (!entry.is_regular_file() || entry.file_size() > largest) continue;
        std::string xml = test::readFile(entry.path());
        if (xml.find('\0') == xml.npos) std::erase(xml, '\r'); // Line ends stay as they are here.
        Subject subject(xml);
        if (!subject.document || !subject.peer.isRead()) continue;
        SCOPED_TRACE(entry.path());
        ++files;
        if (++seed % 2) xmlNsDocumentMakeAll(subject.document);
        compare(subject, std::atoi(number), seed, tally);
        if (tally.different >= 10) break;
    }
    std::printf("%d pairs over %d files, %d that find something, %d differ\n", tally.compared,
                files, tally.found, tally.different);
}

/// An expression that this library takes is one of XPath, but for names in braces and prefixes. The
/// other one knows fewer letters and no control characters.
TEST(PathPeer, ChangedPathsAreTakenOrRefused) {
    Subject subject(Document(1).make());
    test::RandomPath random(1, subject.words);
    test::Mutator mutator(1);
    int refused = 0;
    for (int i = 0; refused < 5000; ++i) {
        const std::string expression = mutator.changed(random.path(), "[last()]|@*//text()'x'{q}");
        XML_PATH_ERROR error{};
        Ref path(xmlPathTryCreate(expression.data(), int64_t(expression.size()), nullptr, &error));
        refused += !path;
        if (path) {
            (void)select(path, subject.document, -1);
            const bool isOurs = std::ranges::any_of(expression, [](char ch) {
                return ch < ' ' || ch == '{' || ch == ':' || ch == 127;
            });
            const auto wanted = subject.peer.select(expression, -1, {});
            EXPECT_TRUE(wanted || isOurs) << expression;
            continue;
        }
        Ref message(error.message);
        Ref location(voMessageLocation(message));
        ASSERT_TRUE(location);
        EXPECT_LE(error.byteOffset, int64_t(expression.size()));
        EXPECT_LE(voParserLocationOffset(location), error.byteOffset);
    }
}

} // namespace
