#include "source/xml/ns/xml_ns_namespace_map.hpp"
#include "tests/xml/notation.hpp"

#include <algorithm>
#include <functional>
#include <random>
#include <set>

using namespace test;

namespace {

using Map = Ref<XML_NS_NAMESPACE_MAP>;

TEST(NsNamespaceMap, TheMappingPlacedLastTakesThePrefix) {
    struct {
        const char *before;
        std::function<void(XML_NS_NAMESPACE_MAP **)> change;
        const char *after;
    } const rows[] = {
        {"p=a", [](auto m) { xmlNsNamespaceMapAppendMapping(m, mapping("p=b")); }, "p=b"},
        {"=a q=c", [](auto m) { xmlNsNamespaceMapAppendMapping(m, mapping("=b")); }, "q=c =b"},
        {"q= p=a", [](auto m) { xmlNsNamespaceMapInsertMapping(m, 0, mapping("p=b")); }, "p=b q="},
        {"p=a q=", [](auto m) { xmlNsNamespaceMapInsertMapping(m, 2, mapping("p=b")); }, "q= p=b"},
        {"p=a q=", [](auto m) { xmlNsNamespaceMapPrependMapping(m, mapping("p=b")); }, "p=b q="},
        {"p=a q=", [](auto m) { xmlNsNamespaceMapSetMapping(m, mapping("p=b")); }, "p=b q="},
        {"q=", [](auto m) { xmlNsNamespaceMapSetMapping(m, mapping("p=b")); }, "q= p=b"},
        {"p=a q= r=", [](auto m) { xmlNsNamespaceMapSetMappingAt(m, 2, mapping("p=b")); },
         "q= p=b"},
        {"p=a q= r=", [](auto m) { xmlNsNamespaceMapSetMappingAt(m, 0, mapping("r=b")); },
         "r=b q="},
        {"p=a q=", [](auto m) { xmlNsNamespaceMapAppend(m, map("p=b r=")); }, "q= p=b r="},
        {"p=a q=", [](auto m) { xmlNsNamespaceMapPrepend(m, map("q=b r=")); }, "q=b r= p=a"},
        {"p=a q= s=", [](auto m) { xmlNsNamespaceMapInsert(m, 1, map("s=1 p=b")); }, "s=1 p=b q="},
        {"p=a q=b", [](auto m) { xmlNsNamespaceMapInsert(m, 1, *m); }, "p=a q=b"},
        {"p=a q=b", [](auto m) { xmlNsNamespaceMapClear(m); }, ""},
    };
    for (auto &row : rows) {
        Map changed = map(row.before);
        Map shared(xmlNsNamespaceMapRetain(changed));
        row.change(changed.edit());
        EXPECT_EQ(describe(changed), row.after) << "from " << row.before;
        EXPECT_EQ(describe(shared), row.before);
    }
}

TEST(NsNamespaceMap, OfMappingsWithOnePrefixTheFirstOfTwoOrTheLastOfMoreStays) {
    EXPECT_EQ(describe(map("p=a q=1 p=b")), "p=a q=1");
    EXPECT_EQ(describe(map("p=a q=1 p=b p=c q=2")), "q=1 p=c");
    EXPECT_EQ(describe(map("=a =b =c =d")), "=d");
    Ref vec = mappings("p=a q=b");
    Ref made(xmlNsNamespaceMapCreate());
    xmlNsNamespaceMapSetMappingsVector(made.edit(), vec);
    EXPECT_EQ(Ref(xmlNsNamespaceMapMappingsVector(made)), vec);
}

TEST(NsNamespaceMap, LookupsFindTheEarliestMapping) {
    Map made = map("=urn:x a=urn:x b=urn:x c=");
    EXPECT_EQ(taken(xmlNsNamespaceMapMappingForNamespace(made, str("urn:x"))), "=urn:x");
    EXPECT_EQ(taken(xmlNsNamespaceMapPrefixMappingForNamespace(made, str("urn:x"))), "a=urn:x");
    EXPECT_EQ(taken(xmlNsNamespaceMapMappingForPrefix(made, str("c"))), "c=");
    xmlNsNamespaceMapDelMappingAt(made.edit(), 1);
    xmlNsNamespaceMapDelMappingAt(made.edit(), 0);
    EXPECT_EQ(taken(xmlNsNamespaceMapMappingForNamespace(made, str("urn:x"))), "b=urn:x");
    EXPECT_FALSE(xmlNsNamespaceMapHasMappingForDefault(made));
}

TEST(NsNamespaceMap, ARecordHoldsTheMappingsInOrder) {
    for (auto text : {"", "=urn:x", "b=1 a=2 =3 c="}) {
        Ref record(xmlNsNamespaceMapStore(map(text)));
        Ref array(voStoreStoreCstr(record, "mappings", -1));
        EXPECT_EQ(voStoreLength(array), std::count(text, text + strlen(text), '='));
        EXPECT_EQ(describe(Map(xmlNsNamespaceMapRestore(record))), text);
    }
}

TEST(NsNamespaceMap, RestoringTakesWhatItCanUse) {
    Ref record(voStoreCreate());
    EXPECT_EQ(describe(Map(xmlNsNamespaceMapRestore(record))), "");
    Ref entries(voStoreCreate()); // A keyed store, so that it can hold a value between records.
    voStoreSetStoreCstr(entries.edit(), "1", -1, Ref(xmlNsNamespaceMappingStore(mapping("p=a"))));
    voStoreSetValueCstr(entries.edit(), "2", -1, str("p=b"));
    voStoreSetStoreCstr(entries.edit(), "3", -1, Ref(xmlNsNamespaceMappingStore(mapping("p=c"))));
    voStoreSetStoreCstr(record.edit(), "mappings", -1, entries);
    EXPECT_EQ(describe(Map(xmlNsNamespaceMapRestore(record))), "p=a");
}

/// What a map must do, step by step over a plain list. Mappings are numbers of `Pool`.
struct Pool {
    static constexpr int prefixes = 20, namespaces = 6, variants = 2;
    static constexpr int size = prefixes * namespaces * variants;
    std::vector<Ref<XML_NS_NAMESPACE_MAPPING>> mappings;

    /// Equal texts are different strings, so that identity alone finds nothing.
    Pool() {
        for (int i = 0; i < size; ++i)
            mappings.push_back(mapping(prefixText(i % prefixes) + "=" + nsText(ns(i))));
    }
    static int prefix(int i) { return i % prefixes; }
    static int ns(int i) { return i / prefixes % namespaces; }
    static std::string prefixText(int p) { return p ? "p" + std::to_string(p) : ""; }
    static std::string nsText(int n) { return n ? "urn:" + std::to_string(n) : ""; }
};

struct Model {
    std::vector<int> list;

    int find(int prefix) const {
        for (size_t i = 0; i < list.size(); ++i)
            if (Pool::prefix(list[i]) == prefix) return int(i);
        return -1;
    }
    size_t deleteDuplicate(size_t index) {
        for (size_t j = 0; j < list.size(); ++j)
            if (j != index && Pool::prefix(list[j]) == Pool::prefix(list[index])) {
                list.erase(list.begin() + int64_t(j));
                return j < index ? index - 1 : index;
            }
        return index;
    }
    void insert(size_t index, std::vector<int> added) {
        list.insert(list.begin() + int64_t(index), added.begin(), added.end());
        for (size_t k = 0; k < added.size(); ++k)
            index = deleteDuplicate(index) + 1;
    }
    void setAt(size_t index, int value) {
        list[index] = value;
        deleteDuplicate(index);
    }
    void setList(std::vector<int> values) {
        list = std::move(values);
        for (size_t i = 0; i < list.size(); ++i)
            i = deleteDuplicate(i);
    }
    int firstWith(int ns, bool prefixed) const {
        for (int i : list)
            if (ns && Pool::ns(i) == ns && (Pool::prefix(i) || !prefixed)) return i;
        return -1;
    }
};

class NsNamespaceMapModel : public testing::Test {
  protected:
    Pool pool;
    Model model;
    Map subject = Map(xmlNsNamespaceMapCreate());
    std::mt19937 random{20240229};

    int below(int end) { return int(random() % unsigned(end)); }
    size_t place() { return size_t(below(int(model.list.size()) + 1)); }

    std::vector<int> someMappings() {
        std::vector<int> some(size_t(below(13)));
        for (int &one : some)
            one = below(Pool::size);
        return some;
    }
    Ref<voVector> vectorOf(const std::vector<int> &numbers) {
        Ref vec(voVectorCreate());
        for (int i : numbers)
            voVectorAppendObj(vec.edit(), xmlNsNamespaceMappingObj(pool.mappings[size_t(i)]));
        return vec;
    }

    void change() {
        const int one = below(Pool::size);
        XML_NS_NAMESPACE_MAPPING *chosen = pool.mappings[size_t(one)];
        const size_t at = place();
        const bool inside = at < model.list.size();
        switch (below(10)) {
        case 0:
        case 1:
            model.insert(model.list.size(), {one});
            return xmlNsNamespaceMapAppendMapping(subject.edit(), chosen);
        case 2:
            model.insert(0, {one});
            return xmlNsNamespaceMapPrependMapping(subject.edit(), chosen);
        case 3:
            model.insert(at, {one});
            return xmlNsNamespaceMapInsertMapping(subject.edit(), int64_t(at), chosen);
        case 4:
        case 5:
            if (!inside) return;
            model.setAt(at, one);
            return xmlNsNamespaceMapSetMappingAt(subject.edit(), int64_t(at), chosen);
        case 6:
            setMapping(one);
            return xmlNsNamespaceMapSetMapping(subject.edit(), chosen);
        case 7:
        case 8:
            if (!inside) return;
            model.list.erase(model.list.begin() + int64_t(at));
            return xmlNsNamespaceMapDelMappingAt(subject.edit(), int64_t(at));
        default:
            changeMany(at);
        }
    }

    void setMapping(int one) {
        const int known = model.find(Pool::prefix(one));
        if (known < 0)
            model.insert(model.list.size(), {one});
        else
            model.setAt(size_t(known), one);
    }

    void changeMany(size_t at) {
        if (below(4) == 0) {
            model.insert(at, model.list);
            return xmlNsNamespaceMapInsert(subject.edit(), int64_t(at), subject);
        }
        const std::vector<int> some = someMappings();
        Ref vec = vectorOf(some);
        if (below(4) == 0) {
            model.setList(some);
            return xmlNsNamespaceMapSetMappingsVector(subject.edit(), vec);
        }
        Map other(xmlNsNamespaceMapCreate());
        xmlNsNamespaceMapSetMappingsVector(other.edit(), vec);
        Model added;
        added.setList(some);
        model.insert(at, added.list);
        xmlNsNamespaceMapInsert(subject.edit(), int64_t(at), other);
    }

    XML_NS_NAMESPACE_MAPPING *expected(int number) {
        if (number < 0) return nullptr;
        return pool.mappings[size_t(number)];
    }

    /// Compares every mapping and one lookup of each kind, by identity.
    void check(XML_NS_NAMESPACE_MAP *map, const Model &against) {
        ASSERT_EQ(xmlNsNamespaceMapLength(map), int64_t(against.list.size()));
        for (size_t i = 0; i < against.list.size(); ++i)
            ASSERT_EQ(xml::mappingsOf(map)[i], expected(against.list[i]));
        const int prefix = below(Pool::prefixes), ns = 1 + below(Pool::namespaces - 1);
        Ref prefixKey = str(Pool::prefixText(prefix)), nsKey = str(Pool::nsText(ns));
        const int known = against.find(prefix);
        auto *const wanted = expected(known < 0 ? -1 : against.list[size_t(known)]);
        Ref byPrefix(prefix ? xmlNsNamespaceMapMappingForPrefix(map, prefixKey)
                            : xmlNsNamespaceMapMappingForDefault(map));
        ASSERT_EQ(byPrefix, wanted);
        ASSERT_EQ(prefix ? xmlNsNamespaceMapHasMappingForPrefix(map, prefixKey)
                         : xmlNsNamespaceMapHasMappingForDefault(map),
                  wanted != nullptr);
        auto *const first = expected(against.firstWith(ns, false));
        auto *const prefixed = expected(against.firstWith(ns, true));
        ASSERT_EQ(Ref(xmlNsNamespaceMapMappingForNamespace(map, nsKey)), first);
        ASSERT_EQ(Ref(xmlNsNamespaceMapPrefixMappingForNamespace(map, nsKey)), prefixed);
        ASSERT_EQ(xmlNsNamespaceMapHasMappingForNamespace(map, nsKey), first != nullptr);
        ASSERT_EQ(xmlNsNamespaceMapHasPrefixMappingForNamespace(map, nsKey), prefixed != nullptr);
    }
};

TEST_F(NsNamespaceMapModel, BehavesAsTheListUnderRandomChanges) {
    Map copy(xmlNsNamespaceMapCreate());
    Model copied;
    for (int i = 0; i < 200000 && !HasFatalFailure(); ++i) {
        change();
        check(subject, model);
        if (below(8)) continue;
        check(copy, copied);
        copy =
            Map(below(2) ? xmlNsNamespaceMapRetain(subject) : xmlNsNamespaceMapCreateFrom(subject));
        copied = model;
    }
}

TEST(NsNamespaceMapDeathTest, BrokenPreconditionsAbort) {
    const char *file = "source/xml/ns/xml_ns_namespace_map.cpp";
    Map made = map("p=a"), none;
    Ref strings(voVectorCreate());
    voVectorAppendObj(strings.edit(), voStringObj(str("p=a")));
    EXPECT_ABORT(xmlNsNamespaceMapSetMappingsVector(made.edit(), strings), file,
                 "voVectorContainsOnly( vec, xmlNsNamespaceMappingSort() )");
    EXPECT_ABORT(xml___NsNamespaceMapBuildCache(none.edit()), file, "*map");
    EXPECT_ABORT(xml___NsNamespaceMapDeleteDuplicate(nullptr, 0), file, "map");
    EXPECT_DEATH(xmlNsNamespaceMapInsertMapping(made.edit(), 3, mapping("q=")), "vo_vector.cpp");
    EXPECT_DEATH(xmlNsNamespaceMapDelMappingAt(made.edit(), 1), "vo_vector.cpp");
}

} // namespace
