// Values that are shared and changed at random, beside models of the standard library: each must
// hold what its model holds, so no change may reach another holder.
#include "tests/support.hpp"

#include <algorithm>
#include <random>
#include <thread>
#include <vector>

using test::str;

namespace {

using Random = std::mt19937;

size_t below(Random &random, size_t bound) { return random() % bound; }

struct StringKind {
    using Value = voString;
    using Model = std::u32string;

    static Value *create() { return voStringCreate(); }
    static const uint32_t *chars(const Model &model) {
        return reinterpret_cast<const uint32_t *>(model.data());
    }
    static void change(Random &random, Value **value, Model &model, Value *other,
                       const Model &otherModel) {
        auto ch = char32_t(0x40 + below(random, 8));
        size_t from = below(random, model.size() + 1);
        switch (below(random, 7)) {
        case 0:
            voStringAppend(value, other);
            model += Model(otherModel);
            break;
        case 1:
            voStringAppendChar(value, ch);
            model += ch;
            break;
        case 2:
            voStringAppendChars(value, voStringBacking(*value) + from,
                                int64_t(model.size() - from));
            model += model.substr(from);
            break;
        case 3:
            voStringPrependChar(value, ch);
            model.insert(model.begin(), ch);
            break;
        case 4:
            voStringAppendCstr(value, "cstr", -1);
            model += U"cstr";
            break;
        case 5:
            if (model.size() < 100) break;
            [[fallthrough]];
        default:
            voStringDelLeading(value, int64_t(from));
            model.erase(0, from);
        }
    }
    static bool equal(Value *value, const Model &model) {
        return voStringEqualsChars(value, chars(model), int64_t(model.size()));
    }
};

struct VectorKind {
    using Value = voVector;
    using Model = std::vector<int>;

    static Value *create() { return voVectorCreate(); }
    static Ref<voString> item(int number) { return str(std::to_string(number)); }
    static void change(Random &random, Value **value, Model &model, Value *other,
                       const Model &otherModel) {
        int number = int(below(random, 100));
        Ref string = item(number);
        voObj *obj = voStringObj(string);
        size_t index = below(random, model.size() + 1);
        auto place = model.begin() + std::ptrdiff_t(index);
        size_t operation = below(random, 8);
        if (operation > 2 && place == model.end()) operation = 0;
        switch (operation) {
        case 0:
            voVectorInsertObj(value, int64_t(index), obj);
            model.insert(place, number);
            break;
        case 1: {
            voVectorInsert(value, int64_t(index), other);
            Model inserted = otherModel;
            model.insert(place, inserted.begin(), inserted.end());
            break;
        }
        case 2:
            voVectorPush(value, obj);
            model.push_back(number);
            break;
        case 3:
            voVectorSetObjAt(value, int64_t(index), obj);
            *place = number;
            break;
        case 4: {
            Ref popped(voVectorPop(value));
            EXPECT_TRUE(voStringEquals(voStringFrom(popped), item(model.back())));
            model.pop_back();
            break;
        }
        case 5:
            if (model.size() < 100) break;
            voVectorClear(value);
            model.clear();
            break;
        default:
            voVectorDelAt(value, int64_t(index));
            model.erase(place);
        }
    }
    static bool equal(Value *value, const Model &model) {
        if (voVectorLength(value) != int64_t(model.size())) return false;
        for (size_t i = 0; i < model.size(); ++i) {
            Ref obj(voVectorObjAt(value, int64_t(i)));
            if (!voStringEquals(voStringFrom(obj), item(model[i]))) return false;
        }
        return true;
    }
};

struct DictKind {
    using Value = voDict;
    using Model = std::vector<std::pair<int, int>>;

    static Value *create() { return voDictCreate(); }
    static void change(Random &random, Value **value, Model &model, Value *, const Model &) {
        int key = int(below(random, 60)), number = int(below(random, 100));
        voDictSetStringKey(value, VectorKind::item(key), voStringObj(VectorKind::item(number)));
        auto known =
            std::find_if(model.begin(), model.end(), [&](auto &e) { return e.first == key; });
        if (known == model.end())
            model.emplace_back(key, number);
        else
            known->second = number;
        if (model.size() < 40) return;
        *value = (voDictRelease(*value), voDictCreate());
        model.clear();
    }
    static bool equal(Value *value, const Model &model) {
        if (voDictLength(value) != int64_t(model.size())) return false;
        for (size_t i = 0; i < model.size(); ++i) {
            Ref key(voDictKeyAt(value, int64_t(i)));
            Ref string = VectorKind::item(model[i].first);
            Ref stored(voDictStringKey(value, string));
            if (!voStringEquals(voStringFrom(key), string) ||
                !voStringEquals(voStringFrom(stored), VectorKind::item(model[i].second)))
                return false;
        }
        return true;
    }
};

template <class Kind> class Sharing : public testing::Test {};
using Kinds = testing::Types<StringKind, VectorKind, DictKind>;
TYPED_TEST_SUITE(Sharing, Kinds);

} // namespace

TYPED_TEST(Sharing, NeverShowsAChangeToAnotherHolder) {
    Random random(3);
    Ref<typename TypeParam::Value> values[4];
    typename TypeParam::Model models[4];
    for (auto &value : values)
        value = Ref(TypeParam::create());
    for (int step = 0; step < 3000; ++step) {
        size_t i = below(random, 4), j = below(random, 4);
        if (below(random, 4) == 0) {
            values[i] = Ref(vo::retained<typename TypeParam::Value>(values[j]));
            models[i] = typename TypeParam::Model(models[j]);
        } else {
            TypeParam::change(random, values[i].edit(), models[i], values[j], models[j]);
        }
        for (size_t k = 0; k < 4; ++k)
            ASSERT_TRUE(TypeParam::equal(values[k], models[k])) << "step " << step;
    }
}

TEST(Threads, ShareReadAndChangeOneValue) {
    Ref item = str("item");
    Ref vector(voVectorCreate());
    for (int i = 0; i < 20; ++i)
        voVectorAppendObj(vector.edit(), voStringObj(item));
    Ref dict(voDictCreate());
    voDictSetStringKey(dict.edit(), item, voVectorObj(vector));
    auto work = [&dict, &item] {
        Ref mine(voDictRetain(dict));
        for (int round = 0; round < 2000; ++round) {
            Ref key = str(std::to_string(round % 20));
            Ref value(voDictStringKey(mine, item));
            Ref own(voVectorRetain(voVectorFrom(value)));
            voVectorDelAt(own.edit(), round % 20);
            EXPECT_EQ(voVectorLength(voVectorFrom(value)), 20);
            voDictSetStringKey(mine.edit(), key, voVectorObj(own));
            if (round % 50 == 0) mine = Ref(voDictRetain(dict));
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(work);
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(voDictLength(dict), 1);
    EXPECT_EQ(voVectorLength(vector), 20);
}
