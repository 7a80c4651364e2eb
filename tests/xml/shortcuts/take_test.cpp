// Elements that are taken out of a tree, changed and put back.
#include "tests/xml/shortcuts/shortcut_layers.hpp"

#include <thread>

using namespace test;

namespace {

/// Adds a comment to the element at the end of a path of indexes below `el`.
template <class Layer>
void mark(typename Layer::Element **el, const std::vector<int64_t> &path, size_t done = 0) {
    if (done == path.size()) return Layer::appendElementComment(el, comment("new"));
    Ref child(Layer::takeAt(el, path[done]));
    ASSERT_TRUE(child);
    mark<Layer>(child.edit(), path, done + 1);
    Layer::setElementAt(el, path[done], child);
}

template <class Layer>
void markBelowRoot(typename Layer::Document **document, const std::vector<int64_t> &path) {
    Ref root(Layer::takeRoot(document));
    ASSERT_TRUE(root);
    mark<Layer>(root.edit(), path);
    Layer::setRoot(document, root);
}

const std::string items = "<!--c--><r>1<a><x/><b>2<c/></b></a>3<d/></r>";
const std::string marked = "<!--c--><r>1<a><x/><b>2<c><!--new--></c></b></a>3<d/></r>";

} // namespace

SHORTCUT_TEST_SUITE(Taking);

TYPED_TEST(Taking, PuttingBackGivesTheChangedTree) {
    for (bool made : {false, true}) {
        auto document = documentOf<TypeParam>(items);
        if (made) TypeParam::makeAll(document);
        markBelowRoot<TypeParam>(document.edit(), {1, 1, 1});
        EXPECT_EQ(TypeParam::encode(document), marked);
    }
}

TYPED_TEST(Taking, AnEmptyTextStandsInThePlaceMeanwhile) {
    auto document = documentOf<TypeParam>(items);
    Ref root(TypeParam::takeRoot(document.edit()));
    EXPECT_EQ(TypeParam::encode(document), "<!--c-->");
    Ref child(TypeParam::takeAt(root.edit(), 1));
    EXPECT_EQ(TypeParam::elementLength(root), 4);
    EXPECT_EQ(describe(Ref(TypeParam::elementItems(root)).operator->()), "'1' '' '3' (d)");
    EXPECT_EQ(TypeParam::takeAt(root.edit(), 1), nullptr) << "taken already";
    EXPECT_EQ(TypeParam::takeAt(root.edit(), 0), nullptr) << "a text";
    Ref list(TypeParam::elementItems(root));
    EXPECT_EQ(TypeParam::takeFromItems(list.edit(), 1), nullptr);
    EXPECT_EQ(describe(Ref(TypeParam::takeFromItems(list.edit(), 3)).operator->()), "(d)");
    EXPECT_EQ(describe(list.operator->()), "'1' '' '3' ''");
    EXPECT_EQ(TypeParam::findChild(root, 0, "d"), 3) << "the list was shared";
}

TYPED_TEST(Taking, NobodyElseSeesAChange) {
    // Whoever holds a part of the tree, at any depth, keeps it as it was.
    for (bool made : {false, true}) {
        auto document = documentOf<TypeParam>(items);
        if (made) TypeParam::makeAll(document);
        Ref same(vo::retained(document.operator->()));
        markBelowRoot<TypeParam>(document.edit(), {1, 1, 1});
        EXPECT_EQ(TypeParam::encode(document), marked);
        EXPECT_EQ(TypeParam::encode(same), items);
    }
    auto document = documentOf<TypeParam>(items);
    Ref root(TypeParam::root(document));
    Ref child(TypeParam::child(root, "a"));
    Ref list(TypeParam::elementItems(child));
    Ref vector(TypeParam::itemsVector(list));
    Ref item(TypeParam::itemAt(list, 1));
    root = {};
    child = {};
    const std::string before = describe(item.operator->()) + describe(list.operator->());
    markBelowRoot<TypeParam>(document.edit(), {1, 1, 1});
    EXPECT_EQ(TypeParam::encode(document), marked);
    EXPECT_EQ(describe(item.operator->()) + describe(list.operator->()), before);
    EXPECT_EQ(voVectorLength(vector), 2);
}

TYPED_TEST(Taking, NothingIsCopiedWhereNobodyElseHoldsAnything) {
    auto document = documentOf<TypeParam>(items);
    const auto nodes = [&] {
        Ref root(TypeParam::root(document));
        Ref a(TypeParam::elementItemAt(root, 1));
        Ref b(TypeParam::elementItemAt(a, 1));
        Ref c(TypeParam::elementItemAt(b, 1));
        std::vector<void *> all{document, root, a, b, c};
        for (typename TypeParam::Element *el :
             {root.operator->(), a.operator->(), b.operator->()}) {
            Ref list(TypeParam::elementItems(el));
            all.push_back(list);
            all.push_back(Ref(TypeParam::itemsVector(list)));
        }
        return all;
    };
    const auto before = nodes();
    markBelowRoot<TypeParam>(document.edit(), {1, 1, 1});
    EXPECT_EQ(TypeParam::encode(document), marked);
    EXPECT_EQ(nodes(), before);
}

TYPED_TEST(Taking, TheRootGoesWhereItWas) {
    const struct {
        const char *items, *expected;
    } rows[] = {
        {"", "<new/>"},
        {"<!--c--> ", "<!--c--> <new/>"},
        {"<!--c--><r/> <s/>", "<!--c--><new/> <s/>"},
    };
    for (const auto &[before, after] : rows)
        for (bool taken : {false, true}) {
            auto document = documentOf<TypeParam>(before);
            Ref root(taken ? TypeParam::takeRoot(document.edit()) : nullptr);
            TypeParam::setRoot(document.edit(), TypeParam::element("new"));
            EXPECT_EQ(TypeParam::encode(document), after) << taken;
        }
    auto document = documentOf<TypeParam>("<!--c-->");
    Ref same(vo::retained(document.operator->()));
    EXPECT_EQ(TypeParam::takeRoot(document.edit()), nullptr);
    EXPECT_EQ(document.operator->(), same.operator->()) << "nothing was copied";
}

// Each changes a reference of its own, and all of them ask for the same parts.
TYPED_TEST(Taking, ThreadsChangeOneTreeApart) {
    for (int round = 0; round < 20; ++round) {
        auto document = documentOf<TypeParam>(items);
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&] {
                Ref own(vo::retained(document.operator->()));
                markBelowRoot<TypeParam>(own.edit(), {1, 1, 1});
                EXPECT_EQ(TypeParam::encode(own), marked);
            });
        for (std::thread &thread : threads)
            thread.join();
        EXPECT_EQ(TypeParam::encode(document), items);
    }
}

TEST(Taking, WrongCallsAbort) {
    auto document = documentOf<PlainShort>("<a><b/></a>");
    Ref root(xmlDocumentRoot(document));
    EXPECT_ABORT(xmlElementRelease(xmlElementTakeItemElementAt(root.edit(), 1)),
                 "source/vo/vo_vector.cpp", "index >= 0 && index < vec->length");
    EXPECT_ABORT(xmlElementRelease(xmlElementTakeItemElementAt(nullptr, 0)),
                 "source/xml/shortcuts/xml_take.cpp", "el");
    EXPECT_ABORT((void)xmlElementFindChild(root, -1, "a"), "source/xml/shortcuts/xml_child.cpp",
                 "from >= 0");
}
