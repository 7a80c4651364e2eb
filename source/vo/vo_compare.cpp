#include "source/vo/vo_compare.hpp"

#include "source/vo/vo_allocator.hpp"
#include "source/vo/vo_array.hpp"
#include "source/vo/vo_table.hpp"
#include "vo/vo_vector.h"

#include <algorithm>
#include <set>

namespace vo {
namespace {

/// Two containers of one sort on their way through their items.
class Pair {
  public:
    Pair(voObj *objA, voObj *objB) : a(itemsOf(objA)), b(itemsOf(objB)) {}

    /// Whether the items of the shorter one have all been compared. Shared items are equal.
    bool atEnd() const { return a == b || next == std::min(a->length, b->length); }
    int64_t orderAtEnd() const { return a->length - b->length; }
    std::pair<voObj *, voObj *> step() {
        ++next;
        return {a->items()[next - 1], b->items()[next - 1]};
    }

  private:
    static voVector *itemsOf(voObj *obj) {
        bool isVector = sortOf(obj) == voVectorSort();
        return isVector ? voVectorFrom(obj) : reinterpret_cast<Table *>(obj)->items;
    }

    voVector *a, *b;
    int64_t next = 0;
};

/// The pairs of shared parts that have been met, which need no second comparison. Without this a
/// part that several containers share would be compared once for each path that leads to it, and
/// there can be exponentially many.
class SharedPairs {
  public:
    /// Adds the pair and gives whether it was there before. Then it was compared before and is
    /// equal, because the first difference ends the whole comparison.
    bool meet(voObj *a, voObj *b) { return !isSole(a) && !isSole(b) && !met.insert({a, b}).second; }

  private:
    using Key = std::pair<voObj *, voObj *>;
    std::set<Key, std::less<Key>, Allocator<Key>> met;
};

bool areContainers(voObj *a, voObj *b) {
    return sortOf(a) == sortOf(b) && sortOf(a)->compare == compareContainers;
}

/// The order of two containers by what they are (keyed or array), whatever they hold.
int64_t compareKinds(voObj *a, voObj *b) {
    if (sortOf(a) == voVectorSort()) return 0;
    return reinterpret_cast<Table *>(a)->isArray - reinterpret_cast<Table *>(b)->isArray;
}

} // namespace

int64_t compareContainers(voObj *a, voObj *b) {
    if (int64_t order = compareKinds(a, b)) return order;
    Vec<Pair> outer;
    SharedPairs shared;
    for (Pair pair(a, b);;) {
        if (pair.atEnd()) {
            if (pair.orderAtEnd() || outer.empty()) return pair.orderAtEnd();
            pair = outer.back();
            outer.pop_back();
            continue;
        }
        auto [itemA, itemB] = pair.step();
        bool nested = areContainers(itemA, itemB);
        int64_t order = nested ? compareKinds(itemA, itemB) : voObjCompare(itemA, itemB);
        if (order) return order;
        if (!nested || itemA == itemB || shared.meet(itemA, itemB)) continue;
        outer.push_back(pair);
        pair = Pair(itemA, itemB);
    }
}

} // namespace vo
