// A cursor beside the getters: on a second tree of the same text they tell what it must find.
#include "source/vo/vo_live.hpp"
#include "source/xml/outline/xml_outline_builder.hpp"
#include "source/xml/outline/xml_outline_objects.hpp"
#include "tests/xml/codec.hpp"
#include "tests/xml/layers.hpp"

#include <fstream>
#include <random>
#include <thread>

namespace {

namespace fs = std::filesystem;

using Random = std::mt19937;

int64_t below(Random &random, int64_t end) { return int64_t(random() % uint64_t(end)); }

const std::string declaration = "<?xml version='1.0'?>";
const std::string none = "-";

// ---------------------------------------------------------------- the layers

struct Plain : test::Plain {
    static constexpr auto name = xmlElementName;
    static constexpr auto attributeName = xmlAttributeName;
    static voString *ns(Element *) { return nullptr; }
    static voString *attributeNs(Attribute *) { return nullptr; }
    static constexpr auto attributeValue = xmlAttributeTextValue;
    static constexpr auto location = xmlElementLocation;
    static constexpr auto attributeLocation = xmlAttributeLocation;
    static constexpr auto documentLocation = xmlDocumentLocation;
    static constexpr auto cursor = xmlCursorCreate;
    static constexpr auto elementCursor = xmlCursorCreateElement;
    static constexpr auto length = xmlItemsLength;
    static constexpr auto typeAt = xmlItemsItemTypeAt;
    static constexpr auto elementAt = xmlItemsItemElementAt;
    static constexpr auto textAt = xmlItemsItemTextAt;
    static constexpr auto cdataAt = xmlItemsItemCdataAt;
    static constexpr auto commentAt = xmlItemsItemCommentAt;
    static constexpr auto instructionAt = xmlItemsItemProcessingInstructionAt;
    static constexpr auto makeAll = xmlDocumentMakeAll;

    static Ref<Document> of(Ref<XML_DOCUMENT> plain) { return plain; }
};

struct Namespaced : test::Namespaced {
    static constexpr auto name = xmlNsElementLocalName;
    static constexpr auto attributeName = xmlNsAttributeLocalName;
    static constexpr auto ns = xmlNsElementNamespace;
    static constexpr auto attributeNs = xmlNsAttributeNamespace;
    static constexpr auto attributeValue = xmlNsAttributeTextValue;
    static constexpr auto location = xmlNsElementLocation;
    static constexpr auto attributeLocation = xmlNsAttributeLocation;
    static constexpr auto documentLocation = xmlNsDocumentLocation;
    static constexpr auto cursor = xmlCursorCreateNs;
    static constexpr auto elementCursor = xmlCursorCreateNsElement;
    static constexpr auto length = xmlNsItemsLength;
    static constexpr auto typeAt = xmlNsItemsItemTypeAt;
    static constexpr auto elementAt = xmlNsItemsItemElementAt;
    static constexpr auto textAt = xmlNsItemsItemTextAt;
    static constexpr auto cdataAt = xmlNsItemsItemCdataAt;
    static constexpr auto commentAt = xmlNsItemsItemCommentAt;
    static constexpr auto instructionAt = xmlNsItemsItemProcessingInstructionAt;
    static constexpr auto makeAll = xmlNsDocumentMakeAll;

    static Ref<Document> of(Ref<XML_DOCUMENT> plain) {
        return plain ? test::nsDecode(plain).document : Ref<Document>();
    }
};

template <class> class Cursor : public testing::Test {};
using Layers = testing::Types<Plain, Namespaced>;
TYPED_TEST_SUITE(Cursor, Layers);

// ---------------------------------------------------------------- what there is to find

std::string show(XML_UTF8 text) {
    return text.bytes ? std::string(text.bytes, size_t(text.length)) : none;
}

/// The string as UTF-8, with U+FFFD for what that cannot express. Releases the string.
std::string show(voString *taken) {
    Ref string(taken);
    if (!string) return none;
    std::u32string chars(voStringBacking(string), voStringBacking(string) + voStringLength(string));
    for (char32_t &ch : chars)
        if ((ch >= 0xD800 && ch < 0xE000) || ch > 0x10FFFF) ch = 0xFFFD;
    return test::text(test::str(chars));
}

std::string showPlace(int64_t offset, int64_t line, int64_t column) {
    return std::to_string(offset) + "@" + std::to_string(line) + ":" + std::to_string(column);
}

std::string showPlace(voParserLocation *taken) {
    Ref location(taken);
    if (!location) return none;
    return showPlace(voParserLocationOffset(location), voParserLocationLine(location),
                     voParserLocationColumn(location));
}

std::string line(XML_ITEM_TYPE type, std::initializer_list<std::string> parts) {
    std::string all = std::to_string(type);
    for (const std::string &part : parts)
        all += "|" + part;
    return all;
}

/// All that a cursor tells about a node. Each text must stay valid while the others are asked for.
std::string show(XML_CURSOR *cursor) {
    const XML_UTF8 plain = xmlCursorValueTryUnescape(cursor), value = xmlCursorValue(cursor),
                   name = xmlCursorName(cursor), ns = xmlCursorNamespace(cursor);
    int64_t offset = -1, lineNumber = -1, column = -1;
    const bool placed = xmlCursorLocation(cursor, &offset, &lineNumber, &column);
    EXPECT_EQ(placed, xmlCursorLocation(cursor, nullptr, nullptr, nullptr));
    return line(xmlCursorType(cursor), {show(name), show(ns), show(value), show(plain),
                                        placed ? showPlace(offset, lineNumber, column) : none});
}

/// A tree as the getters tell it.
template <class Layer> class Model {
  public:
    struct Node {
        std::string text; ///< As show() gives it.
        int64_t parent = -1, next = -1, firstChild = -1, firstAttribute = -1;
    };
    std::vector<Node> nodes; ///< In document order; the first is what a cursor starts from.

    explicit Model(typename Layer::Document *document) {
        add(-1, line(XML_CURSOR_TYPE_DOCUMENT,
                     {none, none, none, none, showPlace(Layer::documentLocation(document))}));
        open.push_back({Ref(Layer::documentItems(document)), 0, 0, -1});
        run();
    }
    explicit Model(typename Layer::Element *element) {
        addElement(element, -1);
        run();
    }

  private:
    struct Open {
        Ref<typename Layer::Items> list;
        int64_t index, parent, last;
    };

    void run() {
        while (!open.empty()) {
            Open &list = open.back();
            if (list.index == Layer::length(list.list)) {
                open.pop_back();
                continue;
            }
            const auto number = int64_t(nodes.size());
            (list.last < 0 ? nodes[size_t(list.parent)].firstChild
                           : nodes[size_t(list.last)].next) = number;
            list.last = number;
            addItem(list.list, list.index++, list.parent);
        }
    }

    int64_t add(int64_t parent, std::string text) {
        nodes.push_back({std::move(text), parent});
        return int64_t(nodes.size()) - 1;
    }

    void addItem(typename Layer::Items *list, int64_t i, int64_t parent) {
        switch (const XML_ITEM_TYPE type = Layer::typeAt(list, i)) {
        case XML_ITEM_TYPE_ELEMENT:
            return addElement(Ref(Layer::elementAt(list, i)), parent);
        case XML_ITEM_TYPE_TEXT: {
            Ref text(Layer::textAt(list, i));
            add(parent,
                line(type, {none, none, show(xmlTextValue(text)), show(xmlTextTryUnescape(text)),
                            showPlace(xmlTextLocation(text))}));
            return;
        }
        case XML_ITEM_TYPE_CDATA: {
            Ref cdata(Layer::cdataAt(list, i));
            return addRaw(parent, type, xmlCdataValue(cdata), xmlCdataLocation(cdata));
        }
        case XML_ITEM_TYPE_COMMENT: {
            Ref comment(Layer::commentAt(list, i));
            return addRaw(parent, type, xmlCommentValue(comment), xmlCommentLocation(comment));
        }
        default: {
            Ref pi(Layer::instructionAt(list, i));
            return addRaw(parent, type, xmlProcessingInstructionValue(pi),
                          xmlProcessingInstructionLocation(pi));
        }
        }
    }

    void addRaw(int64_t parent, XML_ITEM_TYPE type, voString *value, voParserLocation *location) {
        const std::string text = show(value);
        add(parent, line(type, {none, none, text, text, showPlace(location)}));
    }

    void addElement(typename Layer::Element *el, int64_t parent) {
        const int64_t number =
            add(parent, line(XML_ITEM_TYPE_ELEMENT, {show(Layer::name(el)), show(Layer::ns(el)),
                                                     none, none, showPlace(Layer::location(el))}));
        Ref vector(Layer::attributesVector(Ref(Layer::elementAttributes(el))));
        for (int64_t i = 0; i < voVectorLength(vector); ++i) {
            Ref object(voVectorObjAt(vector, i));
            auto *attr = reinterpret_cast<typename Layer::Attribute *>(object.operator->());
            const int64_t added =
                add(number, line(XML_CURSOR_TYPE_ATTRIBUTE,
                                 {show(Layer::attributeName(attr)), show(Layer::attributeNs(attr)),
                                  show(Layer::attributeValue(attr)), show(Layer::tryUnescape(attr)),
                                  showPlace(Layer::attributeLocation(attr))}));
            (i == 0 ? nodes[size_t(number)].firstAttribute : nodes[size_t(added - 1)].next) = added;
        }
        open.push_back({Ref(Layer::elementItems(el)), 0, number, -1});
    }

    std::vector<Open> open;
};

/// A cursor that is moved along with its place in a model. Every move is checked.
template <class Layer> class Follower {
  public:
    Follower(Ref<XML_CURSOR> made, const Model<Layer> &expected)
        : cursor(std::move(made)), model(&expected) {
        check();
    }

    bool toFirstChild() { return moved(xmlCursorFirstChild(cursor), here().firstChild); }
    bool toFirstAttribute() {
        return moved(xmlCursorFirstAttribute(cursor), here().firstAttribute);
    }
    bool toNext() { return moved(xmlCursorNext(cursor), at == origin ? -1 : here().next); }
    bool toParent() { return moved(xmlCursorParent(cursor), at == origin ? -1 : here().parent); }

    /// Visits all nodes below in document order and comes back.
    void walk(const std::function<void()> &between = [] {}) {
        int64_t depth = 0;
        do {
            between();
            if (toFirstAttribute()) {
                while (toNext()) {
                }
                toParent();
            }
            if (toFirstChild()) {
                ++depth;
                continue;
            }
            while (depth > 0 && !toNext() && toParent())
                --depth;
        } while (depth > 0 && !testing::Test::HasFatalFailure());
    }

    void stroll(
        Random &random, int64_t steps, const std::function<void()> &between = [] {}) {
        for (; steps > 0 && !testing::Test::HasFatalFailure(); --steps) {
            between();
            switch (below(random, 8)) {
            case 7:
                begunHere().stroll(random, below(random, 8), between);
                break;
            case 0:
                toParent();
                break;
            case 1:
                toFirstAttribute();
                break;
            case 2:
            case 3:
                toFirstChild();
                break;
            default:
                toNext();
            }
        }
    }

    Follower copied() const {
        return Follower(Ref(xmlCursorCreateFrom(cursor)), *model, at, origin);
    }
    Follower begunHere() const {
        return Follower(Ref(xmlCursorCreateHere(cursor)), *model, at, at);
    }

  private:
    Follower(Ref<XML_CURSOR> made, const Model<Layer> &expected, int64_t place, int64_t start)
        : cursor(std::move(made)), model(&expected), at(place), origin(start) {
        check();
    }

    const typename Model<Layer>::Node &here() const { return model->nodes[size_t(at)]; }

    bool moved(int result, int64_t target) {
        const auto check = [&] {
            ASSERT_EQ(result, target >= 0) << "from " << here().text;
            if (target >= 0) at = target;
            ASSERT_EQ(show(cursor), here().text);
        };
        check();
        return target >= 0 && !testing::Test::HasFatalFailure();
    }

    void check() const { ASSERT_EQ(show(cursor), here().text); }

    Ref<XML_CURSOR> cursor;
    const Model<Layer> *model;
    int64_t at = 0, origin = 0;
};

// ---------------------------------------------------------------- trees

/// Documents of every kind of node, in unusual layouts too.
class Texts {
  public:
    std::string next() {
        std::string text = declaration;
        std::vector<std::string> open;
        for (int64_t left = below(random, 40); left > 0 || !open.empty(); --left) {
            const int64_t choice = left > 0 ? below(random, 8) : 7;
            if (choice < 3) {
                const std::string name = any({"a", "b", "p:a", "q:b", "\u00E9l\u00E9ment"});
                text += any({"<", "<", "< "}) + name + attributes();
                if (once(4)) {
                    text += any({"/>", " / >"});
                } else {
                    open.push_back(name);
                    text += any({">", ">", " >"});
                }
            } else if (choice < 7) {
                text += any({"x", "\r\n ", "&lt;&amp;", "&unknown;", "\u4E2D\U0001F600", "<!--c-->",
                             "<?p i?>", "<![CDATA[]]>", "<![CDATA[&lt;<]]>"});
            } else if (!open.empty()) {
                text += any({"</", "</ "}) + open.back() + any({">", " >"});
                open.pop_back();
            }
        }
        return text;
    }

    std::string joined(int count) {
        std::string text = declaration;
        for (; count > 0; --count)
            text += next().substr(declaration.size());
        return text;
    }

  private:
    bool once(int64_t times) { return below(random, times) == 0; }
    std::string any(std::initializer_list<std::string> words) {
        return words.begin()[below(random, int64_t(words.size()))];
    }
    /// Every element declares its prefixes; some attributes are then duplicates.
    std::string attributes() {
        std::string text = any({" xmlns:p='u' xmlns:q='v'", " xmlns:p='u' xmlns:q='u'",
                                " xmlns='w' xmlns:p='u&amp;&#x4e2d;' xmlns:q=''"});
        for (const char *name : {"a", "p:a", "q:a", "b", "xml:lang"})
            if (once(3))
                text += " " + std::string(name) + any({"=", " = "}) +
                        any({"''", "\"1\"", "'&#9;&#x1F600;&quot;'", "'&#xD800;'", "'&unknown;'",
                             "'\u00E9\u4E2D&apos;&gt;'"});
        return text;
    }

    Random random{5};
};

Ref<XML_DOCUMENT> decoded(const std::string &text) {
    auto result = test::decode(text, XML_FLAG_DECODE_LOCATION);
    EXPECT_TRUE(result.document) << result.error << "\n" << text;
    return std::move(result.document);
}

/// Asks for some node by the getters.
template <class Layer> void touch(typename Layer::Document *document, Random &random) {
    Ref list(Layer::documentItems(document));
    while (list && Layer::length(list) > 0 && below(random, 6) > 0) {
        const int64_t i = below(random, Layer::length(list));
        Ref item(Layer::itemAt(list, i));
        Ref element(below(random, 3) ? Layer::elementAt(list, i) : nullptr);
        list = Ref(element ? Layer::elementItems(element) : nullptr);
    }
}

/// Makes the same tree each time it is called.
template <class Layer> using Recipe = std::function<Ref<typename Layer::Document>()>;

template <class Layer> Recipe<Layer> recipe(const std::string &text) {
    return [text] { return Layer::of(decoded(text)); };
}

/// Some of the plain tree is made before its namespaces are resolved.
template <class Layer> Recipe<Layer> touchedRecipe(const std::string &text, unsigned seed) {
    return [text, seed] {
        Ref plain = decoded(text);
        Random random(seed);
        for (int i = 0; i < 3; ++i)
            touch<Plain>(plain, random);
        return Layer::of(std::move(plain));
    };
}

/// A plain tree whose records are as wide as those of a huge text.
Recipe<Plain> wideRecipe(const std::string &text) {
    return [text] {
        Ref buffer = test::buffer(text);
        const uint8_t *begin = voBufferBacking(buffer);
        auto result = xml::buildOutline(buffer, {begin, begin + text.size()}, VO_CHARSET_UTF_8,
                                        xml::Reading::fast, 0);
        Ref document(xmlDocumentCreate());
        Ref items(xml::createRootItems(std::move(result.outline)));
        xmlDocumentSetItems(document.edit(), items);
        return document;
    };
}

/// Changes a copy of the tree: parts of another one come in, and what decoding never gives.
template <class Layer> Ref<typename Layer::Document>
changed(typename Layer::Document *source, typename Layer::Document *other, unsigned seed) {
    Random random(seed);
    touch<Layer>(source, random);
    Ref copy(Layer::copyDocument(source));
    Ref items(Layer::documentItems(copy)), others(Layer::documentItems(other));
    auto element = Layer::element("made");
    Layer::appendElementComment(element.edit(), test::comment("within"));
    Ref odd(xmlTextCreateValue(test::str(std::u32string(U"\xD800&lt;\x110000", 6))));
    Layer::setElementItems(element.edit(), others);
    Layer::appendItem(items.edit(), Ref(Layer::createItemText(odd)));
    Layer::appendItemElement(items.edit(), element);
    Layer::insertItems(items.edit(), 0, others);
    for (int64_t i = 0; i < Layer::length(items); ++i) {
        Ref child(Layer::elementAt(items, i));
        if (!child || below(random, 2)) continue;
        Layer::setElementAttribute(child.edit(), Layer::attribute("u:set", "&#xDC00;&amp;"));
        Layer::insertElementItems(child.edit(), 0, others);
        Layer::setItemAt(
            items.edit(), i,
            Ref(Layer::createItem(XML_ITEM_TYPE_ELEMENT, vo::obj(child.operator->()))));
    }
    Layer::setDocumentItems(copy.edit(), items);
    return copy;
}

template <class Layer> Recipe<Layer> changedRecipe(const Recipe<Layer> &source,
                                                   const Recipe<Layer> &other, unsigned seed) {
    return [=] { return changed<Layer>(source(), other(), seed); };
}

/// Follows the tree as it is, while it is made here and there, and wholly made.
template <class Layer> void follow(const Recipe<Layer> &make, unsigned seed) {
    const Model<Layer> model(make().operator->());
    Random random(seed);
    const auto start = [&](typename Layer::Document *document) {
        return Follower<Layer>(Ref(Layer::cursor(document)), model);
    };
    const auto untouched = make();
    start(untouched).walk();
    auto stroller = start(untouched);
    stroller.stroll(random, 60);
    stroller.copied().stroll(random, 30);
    stroller.stroll(random, 30);

    const auto walked = make(), strolled = make();
    start(walked).walk([&] { touch<Layer>(walked, random); });
    start(strolled).stroll(random, 120, [&] { touch<Layer>(strolled, random); });
    Layer::makeAll(strolled);
    start(strolled).walk();
}

// ---------------------------------------------------------------- the tests

TYPED_TEST(Cursor, FindsWhatTheGettersFindInGeneratedTrees) {
    using Layer = TypeParam;
    Texts texts;
    for (unsigned round = 0; round < 150 && !this->HasFatalFailure(); ++round) {
        const std::string text = texts.next(), other = texts.next();
        SCOPED_TRACE(text + "\nand " + other);
        follow<Layer>(recipe<Layer>(text), round);
        follow<Layer>(touchedRecipe<Layer>(text, round), round);
        follow<Layer>(changedRecipe<Layer>(recipe<Layer>(text), recipe<Layer>(other), round),
                      round);
        follow<Layer>(changedRecipe<Layer>(touchedRecipe<Layer>(text, round),
                                           touchedRecipe<Layer>(other, round), round),
                      round);
    }
}

TYPED_TEST(Cursor, FindsWhatTheGettersFindInTheConformanceDocuments) {
    using Layer = TypeParam;
    const fs::path folder = VOXML_CONFORMANCE;
    if (!fs::exists(folder / "MANIFEST.tsv")) GTEST_SKIP() << "skipped: no " << folder;
    std::ifstream manifest(folder / "MANIFEST.tsv");
    int64_t followed = 0;
    for (std::string row; std::getline(manifest, row) && !this->HasFatalFailure();) {
        const fs::path path = folder / row.substr(0, row.find('\t'));
        if (!fs::is_regular_file(path)) continue;
        SCOPED_TRACE(path.string());
        const std::string bytes = test::readFile(path);
        const auto make = [&] {
            return Layer::of(test::decode(bytes, XML_FLAG_DECODE_LOCATION).document);
        };
        const auto document = make(), second = make();
        if (!document) continue;
        ++followed;
        const Model<Layer> model(second.operator->());
        Random random(7);
        Follower<Layer> follower(Ref(Layer::cursor(document)), model);
        follower.walk();
        follower.stroll(random, 100);
    }
    EXPECT_GT(followed, 100);
}

TYPED_TEST(Cursor, FindsWhatTheGettersFindInLargeTrees) {
    using Layer = TypeParam;
    const std::string text = Texts().joined(1500); // several blocks of records
    follow<Layer>(recipe<Layer>(text), 1);
    if constexpr (std::is_same_v<Layer, Plain>) follow<Plain>(wideRecipe(text), 2);
}

/// A document of what two texts hold, each with an outline of its own.
template <class Layer> auto joined(const char *first, const char *second) {
    const auto itemsOf = [](const char *text) {
        return Ref(Layer::documentItems(recipe<Layer>(declaration + text)()));
    };
    Ref document(Layer::createDocument());
    auto items = itemsOf(first);
    Layer::appendItems(items.edit(), itemsOf(second));
    Layer::setDocumentItems(document.edit(), items);
    return document;
}

/// Nodes of the same number in two outlines, of which one has more attributes.
TYPED_TEST(Cursor, GoesFromOneOutlineToAnother) {
    using Layer = TypeParam;
    const auto document = joined<Layer>("<a b='1' c='2'>text</a>", "<a>text<b/></a>");
    Ref cursor(Layer::cursor(document));
    ASSERT_TRUE(xmlCursorFirstChild(cursor));
    ASSERT_TRUE(xmlCursorFirstAttribute(cursor) && xmlCursorNext(cursor));
    EXPECT_FALSE(xmlCursorNext(cursor));
    ASSERT_TRUE(xmlCursorParent(cursor) && xmlCursorNext(cursor) && xmlCursorFirstChild(cursor));
    EXPECT_EQ(show(xmlCursorValue(cursor)), "text");
    EXPECT_TRUE(xmlCursorNext(cursor));
}

/// What it gave of the first outline stays valid, whatever becomes of the tree.
TYPED_TEST(Cursor, KeepsTheTextThatItReadFirst) {
    using Layer = TypeParam;
    auto document = joined<Layer>("<a>first</a>", "<b>second</b>");
    Ref cursor(Layer::cursor(document));
    EXPECT_EQ(show(xmlCursorKeptText(cursor)), none);
    ASSERT_TRUE(xmlCursorFirstChild(cursor) && xmlCursorFirstChild(cursor));
    const XML_UTF8 kept = xmlCursorKeptText(cursor), first = xmlCursorValue(cursor);
    EXPECT_EQ(show(kept), declaration + "<a>first</a>");
    EXPECT_EQ(first.bytes - kept.bytes, int64_t(declaration.size()) + 3);
    Ref copy(xmlCursorCreateHere(cursor));
    ASSERT_TRUE(xmlCursorParent(cursor) && xmlCursorNext(cursor) && xmlCursorFirstChild(cursor));
    EXPECT_EQ(xmlCursorKeptText(cursor).bytes, kept.bytes);
    Layer::makeAll(document);
    document = {};
    EXPECT_EQ(show(first) + show(xmlCursorValue(cursor)), "firstsecond");
    cursor = {};
    EXPECT_EQ(show(first), show(xmlCursorValue(copy)));
    EXPECT_EQ(xmlCursorKeptText(copy).bytes, kept.bytes);
}

TYPED_TEST(Cursor, DoesNotLeaveTheElementThatItWasMadeFor) {
    using Layer = TypeParam;
    const std::string text = declaration + "<a x='1'>t<b y='2'><c/></b><d/></a>";
    const auto first = [](const auto &document) {
        return Ref(Layer::elementAt(Ref(Layer::documentItems(document)), 0));
    };
    const auto make = recipe<Layer>(text);
    const Model<Layer> model(first(make()).operator->());
    Random random(11);
    Follower<Layer> follower(Ref(Layer::elementCursor(first(make()))), model);
    follower.walk();
    follower.stroll(random, 200);
}

TYPED_TEST(Cursor, MakesNoObjectsAndKeepsWhatItWasMadeFor) {
    using Layer = TypeParam;
    const auto make = recipe<Layer>(Texts().joined(10));
    const Model<Layer> model(make().operator->());
    const auto document = make();
    const int64_t before = vo::liveObjects();
    {
        Follower<Layer> follower(Ref(Layer::cursor(document)), model);
        follower.walk();
        EXPECT_EQ(vo::liveObjects(), before < 0 ? before : before + 1);
    }
    Follower<Layer> kept(Ref(Layer::cursor(make())), model);
    kept.walk();
}

TYPED_TEST(Cursor, NeedsNoStackForAMillionLevels) {
    using Layer = TypeParam;
    constexpr int64_t depth = 1000000;
    std::string text = declaration;
    for (int64_t i = 0; i < depth; ++i)
        text += "<a>";
    for (int64_t i = 0; i < depth; ++i)
        text += "</a>";
    test::onSmallStack([&] {
        Ref document = Layer::of(test::decode(text).document);
        for (bool made : {false, true}) {
            if (made) Layer::makeAll(document);
            Ref down(Layer::cursor(document));
            int64_t levels = 0;
            while (xmlCursorFirstChild(down))
                ++levels;
            EXPECT_EQ(levels, depth);
            Ref up(xmlCursorCreateFrom(down));
            down = Ref(xmlCursorCreateHere(down));
            EXPECT_FALSE(xmlCursorParent(down));
            down = {};
            while (xmlCursorParent(up))
                --levels;
            EXPECT_EQ(levels, 0);
        }
    });
}

TYPED_TEST(Cursor, ReadsWhileOtherThreadsMakeTheTree) {
    using Layer = TypeParam;
    const auto make = recipe<Layer>(Texts().joined(40));
    const Model<Layer> model(make().operator->());
    for (unsigned round = 0; round < 10; ++round) {
        const auto document = make();
        std::thread maker([&] {
            Random random(round);
            for (int i = 0; i < 200; ++i)
                touch<Layer>(document, random);
            Layer::makeAll(document);
        });
        std::thread reader([&] { Follower<Layer>(Ref(Layer::cursor(document)), model).walk(); });
        Random random(round);
        Follower<Layer>(Ref(Layer::cursor(document)), model).stroll(random, 3000);
        maker.join();
        reader.join();
    }
}

TEST(CursorFunctions, ReadsUnescapedTextsOfHandMadeNodes) {
    const struct {
        std::u32string value;
        std::string escaped, plain;
    } rows[] = {
        {U"", "", ""},
        {U"a&lt;&gt;&amp;&quot;&apos;", "a&lt;&gt;&amp;&quot;&apos;", "a<>&\"'"},
        {U"&#65;&#x10FFFD;&#xDFFF;", "&#65;&#x10FFFD;&#xDFFF;", "A\U0010FFFD\uFFFD"},
        {std::u32string(U"\xD800\x110000&amp;", 7), "\uFFFD\uFFFD&amp;", "\uFFFD\uFFFD&"},
        {U"&\u4E2D;", "&\u4E2D;", none},
    };
    for (const auto &row : rows) {
        Ref element(xmlElementCreate(test::str("e")));
        xmlElementAppendItemTextValue(element.edit(), test::str(row.value));
        Ref cursor(xmlCursorCreateElement(element));
        ASSERT_EQ(xmlCursorFirstChild(cursor), 1);
        EXPECT_EQ(show(xmlCursorValue(cursor)), row.escaped);
        EXPECT_EQ(show(xmlCursorValueTryUnescape(cursor)), row.plain);
    }
}

TEST(CursorFunctions, MisuseAborts) {
    const char *file = "source/xml/cursor/xml_cursor.cpp";
    EXPECT_ABORT((void)Ref(xmlCursorCreate(nullptr)), file, "doc");
    EXPECT_ABORT((void)Ref(xmlCursorCreateNsElement(nullptr)), file, "el");
    EXPECT_ABORT((void)Ref(xmlCursorCreateFrom(nullptr)), file, "source");
    EXPECT_ABORT((void)Ref(xmlCursorCreateHere(nullptr)), file, "source");
    EXPECT_ABORT(xmlCursorNext(nullptr), file, "cursor");
}

} // namespace
