#include "source/vo/vo_array.hpp"
#include "tests/xml/notation.hpp"

#include <algorithm>
#include <random>

using namespace test;

LAYER_TEST_SUITE(Attribute);

TYPED_TEST(Attribute, SharesItsTextUntilEitherChanges) {
    auto text = textNode("1");
    auto attr = TypeParam::attribute("a", "0");
    TypeParam::setText(attr.edit(), text);
    EXPECT_EQ(Ref(TypeParam::attributeText(attr)), text);
    Ref copy(TypeParam::copyAttribute(attr));
    TypeParam::setTextEscape(copy.edit(), str("<"));
    EXPECT_EQ(describe(attr.operator->()), "@a=1");
    EXPECT_EQ(describe(copy.operator->()), "@a=&lt;");
    EXPECT_EQ(take(TypeParam::tryUnescape(copy)), "<");
    TypeParam::setTextValue(attr.edit(), str("2"));
    EXPECT_EQ(describe(text.operator->()), "'1'");
    EXPECT_EQ(describe(attr.operator->()), "@a=2");
}

TYPED_TEST(Attribute, MisuseAborts) {
    auto attr = TypeParam::attribute("a", "1");
    EXPECT_ABORT(TypeParam::setTextValue(attr.edit(), str("<")), "source/xml/base/xml_text.cpp",
                 "xmlValueTextOk( value )");
}

TEST(PlainAttribute, ChecksItsName) {
    const char *file = "source/xml/base/xml_attribute.cpp", *check = "xmlValueNameOk( name )";
    Ref attr(xmlAttributeCreate(str("xmlns:p")));
    EXPECT_EQ(describe(attr.operator->()), "@xmlns:p=");
    EXPECT_EQ(taken(xmlAttributeCreateText(str("a"), textNode("1"))), "@a=1");
    EXPECT_EQ(taken(xmlAttributeCreateTextEscape(str("a"), str("<"))), "@a=&lt;");
    EXPECT_ABORT(xmlAttributeSetName(attr.edit(), str("1a")), file, check);
    EXPECT_ABORT((void)Ref(xmlAttributeCreate(str(""))), file, check);
    EXPECT_ABORT((void)Ref(xmlAttributeCreateTextValue(str("a b"), nullptr)), file, check);
}

LAYER_TEST_SUITE(Attributes);

TYPED_TEST(Attributes, PlacingRemovesTheTwin) {
    using List = typename TypeParam::Attributes;
    struct {
        const char *before;
        void (*place)(List **);
        const char *after;
    } rows[] = {
        {"@a=1 @b=2 @c=3 @d=4",
         [](auto **list) { TypeParam::insertAttribute(list, 0, TypeParam::attribute("d", "9")); },
         "@d=9 @a=1 @b=2 @c=3"},
        {"@a=1 @b=2 @c=3 @d=4",
         [](auto **list) { TypeParam::setAttributeAt(list, 2, TypeParam::attribute("a", "9")); },
         "@b=2 @a=9 @d=4"},
        {"@a=1",
         [](auto **list) { TypeParam::setAttributeAt(list, 0, TypeParam::attribute("a", "9")); },
         "@a=9"},
        {"@b=1 @c=2 @a=3",
         [](auto **list) {
             TypeParam::insertAttributes(list, 1, attributesOf<TypeParam>("@a=8 @b=9"));
         },
         "@a=8 @b=9 @c=2"},
        {"@a=1 @b=2", [](auto **list) { TypeParam::insertAttributes(list, 0, *list); },
         "@a=1 @b=2"},
        {"@a=1 @b=2", [](auto **list) { TypeParam::insertAttributes(list, 1, *list); },
         "@a=1 @b=2"},
        {"", [](auto **list) { TypeParam::insertAttributes(list, 0, *list); }, ""},
        {"@x=1",
         [](auto **list) {
             TypeParam::setAttributesVector(list,
                                            attributeVector<TypeParam>("@a=1 @b=2 @a=3 @u:a=4"));
         },
         "@b=2 @a=3 @u:a=4"},
    };
    for (auto &row : rows) {
        auto list = attributesOf<TypeParam>(row.before);
        row.place(list.edit());
        EXPECT_EQ(describe(list.operator->()), row.after);
    }
}

TYPED_TEST(Attributes, TellWhereThePlacedAttributeStandsWithoutItsTwin) {
    auto list = attributesOf<TypeParam>("@a=1 @b=2 @c=3");
    EXPECT_EQ(TypeParam::deleteDuplicate(list.edit(), 1), 1);
    Ref doubled(vo::create<typename TypeParam::Attributes>(vo::sortOf(vo::obj(list.operator->()))));
    doubled->vector = attributeVector<TypeParam>("@a=1 @b=2 @a=3").take();
    Ref other(vo::retained(doubled.operator->()));
    EXPECT_EQ(TypeParam::deleteDuplicate(doubled.edit(), 2), 1);
    EXPECT_EQ(describe(doubled.operator->()), "@b=2 @a=3");
    EXPECT_EQ(TypeParam::deleteDuplicate(other.edit(), 0), 0);
    EXPECT_EQ(describe(other.operator->()), "@a=1 @b=2");
}

TYPED_TEST(Attributes, GiveTheVeryObjectsTheyHold) {
    auto vector = attributeVector<TypeParam>("@a=1 @b=2");
    auto list = attributesOf<TypeParam>("");
    TypeParam::setAttributesVector(list.edit(), vector);
    Ref first(TypeParam::attributeAt(list, 0));
    EXPECT_EQ(TypeParam::attributeObj(first), Ref(voVectorObjAt(vector, 0)));
    EXPECT_EQ(TypeParam::find(list, "a"), first);
}

TYPED_TEST(Attributes, StayTheSameObjectUnlessSharedAndChanged) {
    auto list = attributesOf<TypeParam>("@a=1 @b=2");
    auto *sole = list.operator->();
    TypeParam::appendAttribute(list.edit(), TypeParam::attribute("c", "3"));
    TypeParam::setAttribute(list.edit(), TypeParam::attribute("a", "4"));
    EXPECT_EQ(list, sole);
    Ref other(vo::retained(sole));
    TypeParam::delAttribute(list.edit(), "d");
    EXPECT_EQ(list, other);
    TypeParam::delAttribute(list.edit(), "b");
    EXPECT_EQ(describe(other.operator->()), "@a=4 @b=2 @c=3");
    EXPECT_EQ(describe(list.operator->()), "@a=4 @c=3");
}

TYPED_TEST(Attributes, AreIndependentOfTheirVectorsOtherHolders) {
    auto vector = attributeVector<TypeParam>("@a=1 @b=2");
    auto list = attributesOf<TypeParam>("");
    TypeParam::setAttributesVector(list.edit(), vector);
    voVectorDelAt(vector.edit(), 0);
    Ref theirs(TypeParam::attributesVector(list));
    voVectorClear(theirs.edit());
    EXPECT_EQ(describe(list.operator->()), "@a=1 @b=2");
}

TYPED_TEST(Attributes, MisuseAborts) {
    auto list = attributesOf<TypeParam>("@a=1");
    Ref<typename TypeParam::Attributes> none;
    Ref wrong(voVectorCreate());
    voVectorAppendObj(wrong.edit(), voStringObj(str("a")));
    const std::string file = TypeParam::file("attributes");
    const std::string sort =
        std::is_same_v<TypeParam, Plain> ? "xmlAttributeSort()" : "xmlNsAttributeSort()";
    EXPECT_ABORT(TypeParam::deleteDuplicate(none.edit(), 0), file, "*attrs");
    EXPECT_ABORT(TypeParam::setAttributesVector(list.edit(), wrong), file,
                 "voVectorContainsOnly( vec, " + sort + " )");
    EXPECT_ABORT((void)Ref(TypeParam::attributeAt(list, 1)), "source/vo/vo_vector.cpp",
                 "index >= 0 && index < vec->length");
}

TEST(PlainAttributes, CheckNames) {
    const char *file = "source/xml/base/xml_attributes.cpp", *check = "xmlValueNameOk( name )";
    auto list = attributesOf<Plain>("@a=1");
    EXPECT_ABORT((void)Plain::find(list, "a b"), file, check);
    EXPECT_ABORT(Plain::delAttribute(list.edit(), ""), file, check);
}

namespace {

/// A simple model of a list: attributes of a pool, each with the number of its name. What the real
/// list does in one operation is done here attribute by attribute.
struct Model {
    struct Entry {
        voObj *attr;
        int name;
        bool operator==(const Entry &) const = default;
    };
    std::vector<Entry> entries;

    size_t removeDuplicate(size_t index) {
        for (size_t i = 0; i < entries.size(); ++i)
            if (i != index && entries[i].name == entries[index].name) {
                entries.erase(entries.begin() + long(i));
                return i < index ? index - 1 : index;
            }
        return index;
    }
    void insert(size_t index, Entry entry) {
        entries.insert(entries.begin() + long(index), entry);
        removeDuplicate(index);
    }
    void setAt(size_t index, Entry entry) {
        entries[index] = entry;
        removeDuplicate(index);
    }
    void insertAll(size_t index, std::vector<Entry> others) {
        entries.insert(entries.begin() + long(index), others.begin(), others.end());
        for (size_t i = 0; i < others.size(); ++i)
            index = removeDuplicate(index) + 1;
    }
    void assign(const std::vector<Entry> &others) {
        entries.clear();
        for (auto &entry : others)
            insert(entries.size(), entry);
    }
    size_t find(int name) const {
        auto same = [&](auto &entry) { return entry.name == name; };
        return size_t(std::ranges::find_if(entries, same) - entries.begin());
    }
};

template <class Layer> class RandomList {
    using Entry = Model::Entry;
    using Attribute = typename Layer::Attribute;

  public:
    RandomList(uint32_t seed, int nameCount) : random(seed), names(nameCount) {
        for (int i = 0; i < 3 * names; ++i)
            pool.push_back(Layer::attribute(nameOf(i % names), std::to_string(i)));
    }

    void step() {
        const size_t length = model.entries.size();
        const size_t index = length ? random() % length : 0;
        const Entry entry = anyEntry();
        auto *attr = reinterpret_cast<Attribute *>(entry.attr);
        switch (random() % 16) {
        case 0:
        case 1:
        case 2:
            model.insert(index, entry);
            return Layer::insertAttribute(list.edit(), int64_t(index), attr);
        case 3:
        case 4:
        case 5:
            model.insert(length, entry);
            return Layer::appendAttribute(list.edit(), attr);
        case 6:
        case 7:
            if (!length) return;
            model.setAt(index, entry);
            return Layer::setAttributeAt(list.edit(), int64_t(index), attr);
        case 8:
        case 9:
            if (size_t place = model.find(entry.name); place < length)
                model.setAt(place, entry);
            else
                model.insert(length, entry);
            return Layer::setAttribute(list.edit(), attr);
        case 10:
            if (size_t place = model.find(entry.name); place < length)
                model.entries.erase(model.entries.begin() + long(place));
            return Layer::delAttribute(list.edit(), nameOf(entry.name));
        case 11:
            if (!length) return;
            model.entries.erase(model.entries.begin() + long(index));
            return Layer::delAttributeAt(list.edit(), int64_t(index));
        case 12:
            model.insertAll(index, model.entries);
            return Layer::insertAttributes(list.edit(), int64_t(index), list);
        case 13:
            return insertOther(index);
        case 14:
            return assign();
        default:
            return keepOrDropAnotherHolder();
        }
    }

    bool matches() const {
        Ref vector(Layer::attributesVector(list));
        auto same = [](voObj *attr, const Entry &entry) { return attr == entry.attr; };
        return std::equal(vector->items(), vector->items() + vector->length, model.entries.begin(),
                          model.entries.end(), same);
    }

  private:
    /// Names in two namespaces and in none.
    static std::string nameOf(int name) {
        static const char *const prefixes[] = {"", "u:", "v:"};
        return prefixes[name % 3] + ("n" + std::to_string(name / 3));
    }
    Entry anyEntry() {
        const size_t i = random() % pool.size();
        return {Layer::attributeObj(pool[i]), int(i) % names};
    }
    std::vector<Entry> anyEntries() {
        std::vector<Entry> entries(random() % size_t(2 * names));
        std::ranges::generate(entries, [this] { return anyEntry(); });
        return entries;
    }
    static Ref<voVector> vectorOf(const std::vector<Entry> &entries) {
        Ref vector(voVectorCreate());
        for (auto &entry : entries)
            voVectorAppendObj(vector.edit(), entry.attr);
        return vector;
    }
    void insertOther(size_t index) {
        Model other;
        other.assign(anyEntries());
        auto others = attributesOf<Layer>("");
        Layer::setAttributesVector(others.edit(), vectorOf(other.entries));
        model.insertAll(index, other.entries);
        Layer::insertAttributes(list.edit(), int64_t(index), others);
    }
    void assign() {
        const auto entries = anyEntries();
        model.assign(entries);
        Layer::setAttributesVector(list.edit(), vectorOf(entries));
    }
    void keepOrDropAnotherHolder() {
        if (random() % 2)
            holder = Ref(vo::retained(list.operator->()));
        else
            holder = {};
    }

    std::mt19937 random;
    int names;
    std::vector<Ref<Attribute>> pool;
    Ref<typename Layer::Attributes> list = attributesOf<Layer>("");
    Ref<typename Layer::Attributes> holder;
    Model model;
};

} // namespace

TYPED_TEST(Attributes, DoAtOnceWhatTheModelDoesStepByStep) {
    for (int names : {4, 12, 60}) { // many duplicates; and lists that are hashed
        RandomList<TypeParam> list(7, names);
        for (int i = 0; i < 40'000; ++i) {
            list.step();
            ASSERT_TRUE(list.matches()) << "step " << i << " with " << names << " names";
        }
    }
}
