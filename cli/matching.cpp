#include "matching.hpp"

#include "alignment.hpp"

#include <algorithm>
#include <iterator>

namespace tool {
namespace {

using Numbers = std::span<const size_t>;

class Matcher {
  public:
    Matcher(const NodeTable &tableA, const NodeTable &tableB) : a(tableA), b(tableB) {
        if (areEqual(a[0], b[0])) return;
        waiting.push_back({Difference::changed, 0, 0});
        while (!waiting.empty()) {
            const Difference next = waiting.back();
            waiting.pop_back();
            if (next.kind != Difference::changed || isChanged(next)) found.push_back(next);
            if (next.kind == Difference::changed) compareItems(next.a, next.b);
        }
    }

    std::vector<Difference> take() { return std::move(found); }

  private:
    /// Whether the nodes differ in more than what they hold.
    bool isChanged(const Difference &pair) const {
        const NodeTable::Node &one = a[pair.a], &other = b[pair.b];
        if (one.type == XML_CURSOR_TYPE_DOCUMENT) return false;
        if (one.type != XML_ITEM_TYPE_ELEMENT) return true;
        return one.name != other.name ||
               !std::ranges::equal(a.attributesOf(pair.a), b.attributesOf(pair.b));
    }

    /// Lets the differences between the items of two elements wait, the first one on top.
    void compareItems(size_t elementA, size_t elementB) {
        const auto itemsA = a.childrenOf(elementA), itemsB = b.childrenOf(elementB);
        const size_t before = waiting.size();
        parentA = elementA;
        parentB = elementB;
        forGaps(itemsA, itemsB, alignTelling(itemsA, itemsB),
                [this](Numbers gapA, Numbers gapB) { pairVersions(gapA, gapB); });
        std::reverse(waiting.begin() + static_cast<ptrdiff_t>(before), waiting.end());
    }

    /// Pairs equal items. White space between them tells nothing and gets no partners.
    std::vector<size_t> alignTelling(Numbers itemsA, Numbers itemsB) const {
        const auto tellingA = indexesOfTelling(a, itemsA), tellingB = indexesOfTelling(b, itemsB);
        const auto equal = [&](size_t i, size_t j) {
            return areEqual(a[itemsA[tellingA[i]]], b[itemsB[tellingB[j]]]);
        };
        const auto aligned = align(tellingA.size(), tellingB.size(), equal);
        std::vector<size_t> partners(itemsA.size(), noPartner);
        for (size_t i = 0; i < aligned.size(); ++i)
            if (aligned[i] != noPartner) partners[tellingA[i]] = tellingB[aligned[i]];
        return partners;
    }

    static std::vector<size_t> indexesOfTelling(const NodeTable &table, Numbers items) {
        std::vector<size_t> indexes;
        for (size_t i = 0; i < items.size(); ++i)
            if (!table[items[i]].isSpace) indexes.push_back(i);
        return indexes;
    }

    /// Calls `handle` for what lies between partners; `pairs` is called for those.
    template <class Handle>
    static void forGaps(Numbers itemsA, Numbers itemsB, const std::vector<size_t> &partners,
                        Handle handle, const std::function<void(size_t, size_t)> &pairs = {}) {
        size_t i = 0, j = 0;
        for (size_t next = 0; next <= partners.size(); ++next) {
            const bool isEnd = next == partners.size();
            if (!isEnd && partners[next] == noPartner) continue;
            const size_t partner = isEnd ? itemsB.size() : partners[next];
            if (i < next || j < partner)
                handle(itemsA.subspan(i, next - i), itemsB.subspan(j, partner - j));
            if (!isEnd && pairs) pairs(itemsA[next], itemsB[partner]);
            i = next + 1;
            j = partner + 1;
        }
    }

    /// Pairs items with those that are most like them.
    void pairVersions(Numbers itemsA, Numbers itemsB) {
        constexpr size_t mostPairs = 2'500;
        const auto equal = [this](size_t one, size_t other) { return areEqual(a[one], b[other]); };
        if (std::ranges::equal(itemsA, itemsB, equal)) return;
        const bool areSingle = itemsA.size() == 1 && itemsB.size() == 1;
        if (areSingle && areAlike(a[itemsA[0]], b[itemsB[0]])) return addPair(itemsA[0], itemsB[0]);
        if (itemsA.size() * itemsB.size() <= mostPairs) return pairMostAlike(itemsA, itemsB);
        const auto alike = [&](size_t i, size_t j) { return areAlike(a[itemsA[i]], b[itemsB[j]]); };
        forGaps(
            itemsA, itemsB, align(itemsA.size(), itemsB.size(), alike),
            [this](Numbers gapA, Numbers gapB) { addUnpaired(gapA, gapB); },
            [this](size_t one, size_t other) { addPair(one, other); });
    }

    void addUnpaired(Numbers itemsA, Numbers itemsB) {
        for (const size_t item : itemsA)
            waiting.push_back({Difference::removed, item, parentB});
        for (const size_t item : itemsB)
            waiting.push_back({Difference::added, parentA, item});
    }

    void addPair(size_t one, size_t other) {
        if (!areEqual(a[one], b[other])) waiting.push_back({Difference::changed, one, other});
    }

    /// The pairs in order with the greatest likeness in all.
    void pairMostAlike(Numbers itemsA, Numbers itemsB) {
        const auto marksA = marksOf(a, itemsA), marksB = marksOf(b, itemsB);
        const size_t width = itemsB.size() + 1;
        // The likeness of what is behind the i-th and the j-th item.
        std::vector<size_t> best((itemsA.size() + 1) * width), alike(best.size());
        for (size_t i = itemsA.size(); i-- > 0;)
            for (size_t j = itemsB.size(); j-- > 0;) {
                const size_t at = i * width + j;
                alike[at] = likeness(a[itemsA[i]], marksA[i], b[itemsB[j]], marksB[j]);
                best[at] = std::max(best[at + width], best[at + 1]);
                if (alike[at] > 0) best[at] = std::max(best[at], best[at + width + 1] + alike[at]);
            }
        size_t i = 0, j = 0;
        while (i < itemsA.size() && j < itemsB.size()) {
            const size_t at = i * width + j;
            if (alike[at] > 0 && best[at] == best[at + width + 1] + alike[at])
                addPair(itemsA[i++], itemsB[j++]);
            else if (best[at] == best[at + width])
                addUnpaired(itemsA.subspan(i++, 1), {});
            else
                addUnpaired({}, itemsB.subspan(j++, 1));
        }
        addUnpaired(itemsA.subspan(i), itemsB.subspan(j));
    }

    /// What an element is known by: hashes of its attributes and of the first nodes in it, sorted.
    using Marks = std::vector<uint64_t>;

    static std::vector<Marks> marksOf(const NodeTable &table, Numbers items) {
        constexpr size_t most = 64;
        std::vector<Marks> all;
        for (const size_t item : items) {
            const auto attributes = table.attributesOf(item);
            Marks marks(attributes.begin(), attributes.begin() + static_cast<ptrdiff_t>(std::min(
                                                                     most, attributes.size())));
            for (size_t in = item + 1; in < table[item].end && marks.size() < most; ++in)
                if (!table[in].isSpace) marks.push_back(table[in].content);
            std::ranges::sort(marks);
            all.push_back(std::move(marks));
        }
        return all;
    }

    /// How much speaks for two nodes being versions of the same one; 0 when they cannot be.
    static size_t likeness(const NodeTable::Node &one, const Marks &marksOne,
                           const NodeTable::Node &other, const Marks &marksOther) {
        constexpr size_t forContent = 5;
        if (one.type != other.type) return 0;
        const bool isSame = one.content == other.content;
        if (one.type != XML_ITEM_TYPE_ELEMENT) return isSame ? 2 : 1;
        const bool isEmpty = one.content == 0;
        if (one.name != other.name) return !isSame ? 0 : isEmpty ? 1 : forContent;
        Marks common;
        std::ranges::set_intersection(marksOne, marksOther, std::back_inserter(common));
        return 2 + common.size();
    }

    const NodeTable &a, &b;
    size_t parentA = 0, parentB = 0; ///< The elements whose items are compared.
    std::vector<Difference> waiting; ///< The next one last.
    std::vector<Difference> found;
};

} // namespace

std::vector<Difference> differences(const NodeTable &a, const NodeTable &b) {
    return Matcher(a, b).take();
}

} // namespace tool
