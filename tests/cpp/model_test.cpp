// Documents that share their parts and change at random through the header, beside plain strings;
// and the time that changes in place take.
#include "tests/cpp/layers.hpp"

#include <algorithm>
#include <random>

using namespace test;

namespace {

struct Model {
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<Model> children;
    std::string text; ///< In front of the children.

    std::string xml() const {
        std::string out = "<e";
        for (const auto &[name, value] : attributes)
            out += " " + name + "=\"" + value + "\"";
        if (children.empty() && text.empty()) return out + "/>";
        out += ">" + text;
        for (const Model &child : children)
            out += child.xml();
        return out + "</e>";
    }
    auto find(const std::string &name) {
        return std::ranges::find(attributes, name, &std::pair<std::string, std::string>::first);
    }
    bool has(const std::string &name) { return find(name) != attributes.end(); }
    void erase(const std::string &name) {
        if (has(name)) attributes.erase(find(name));
    }
    void setAll(const std::string &name, const std::string &value) {
        if (!has(name)) attributes.push_back({name, ""});
        find(name)->second = value;
        for (Model &child : children)
            child.setAll(name, value);
    }
    size_t weight() const {
        size_t sum = 1;
        for (const Model &child : children)
            sum += child.weight();
        return sum;
    }
};

template <class Layer> class RandomEdits {
    using element = typename Layer::element;

  public:
    explicit RandomEdits(unsigned seed) : random(seed) {}

    /// Goes down a few levels and changes what is there.
    void step() {
        const size_t at = random() % documents.size();
        if (random() % 8 == 0) documents[random() % documents.size()] = documents[at];
        documents[at].first.edit_root([&](element &root) { change(root, documents[at].second); });
    }
    void check() const {
        for (const auto &[doc, model] : documents)
            ASSERT_EQ(test::xml(doc), model.xml());
    }

  private:
    void change(element &el, Model &model) {
        const int64_t texts = model.text.empty() ? 0 : 1;
        const size_t child = model.children.empty() ? 0 : random() % model.children.size();
        const auto index = texts + static_cast<int64_t>(child);
        if (!model.children.empty() && random() % 3 != 0) {
            EXPECT_TRUE(el.edit_at(index, [&](element &e) { change(e, model.children[child]); }));
            return;
        }
        const std::string name(1, static_cast<char>('a' + random() % 4));
        switch (random() % 7) {
        case 0:
            el.remove_attribute(name);
            model.erase(name);
            break;
        case 1:
            el.clear();
            model.children.clear();
            model.text.clear();
            break;
        case 2:
            if (model.children.empty()) break;
            el.erase(index);
            model.children.erase(model.children.begin() + static_cast<long>(child));
            break;
        case 3: {
            const std::string value = std::to_string(random() % 100);
            const auto all = el.edit_all([&](element &e) { return e.set_attribute(name, value); });
            EXPECT_EQ(static_cast<size_t>(all.value()), model.weight());
            model.setAll(name, value);
            break;
        }
        case 4: {
            const auto erased = el.erase_if([&](const typename Layer::item &item) {
                const auto each = item.element();
                return each && each->has_attribute(name);
            });
            const auto unwanted =
                std::erase_if(model.children, [&](Model &each) { return each.has(name); });
            EXPECT_EQ(static_cast<size_t>(erased), unwanted);
            break;
        }
        default:
            grow(el, model);
        }
    }
    /// Gives it a child: a copy of another document's root, or a new one with a text.
    void grow(element &el, Model &model) {
        const auto &[other, otherModel] = documents[random() % documents.size()];
        const auto root = other.root();
        if (root && &otherModel != &model && model.weight() + otherModel.weight() < 40) {
            const Model copy = otherModel;
            el.append(*root).value();
            model.children.push_back(copy);
            return;
        }
        const std::string text = std::to_string(random() % 100);
        el.append(element::make("e", text)).value();
        model.children.push_back({{}, {}, text});
    }

    std::mt19937 random;
    std::vector<std::pair<typename Layer::document, Model>> documents{
        4, {typename Layer::document(element::make("e").value()), Model()}};
};

LAYER_TEST_SUITE(Edits);

TYPED_TEST(Edits, AtRandomEqualAPlainModel) {
    for (unsigned seed = 1; seed <= 8; ++seed) {
        RandomEdits<TypeParam> edits(seed);
        for (int i = 0; i < 300; ++i) {
            edits.step();
            edits.check();
            ASSERT_FALSE(testing::Test::HasFatalFailure()) << "seed " << seed << ", step " << i;
        }
    }
}

/// The least time of a few runs in which so many children of one root are changed one by one.
template <class Layer> double secondsForEdits(int64_t edits) {
    auto root = Layer::element::make("root").value();
    const auto child = Layer::element::make("child").value();
    for (int64_t i = 0; i < edits; ++i)
        root.append(child).value();
    typename Layer::document doc(root);
    root = child;
    double best = 1e9;
    for (int run = 0; run < 7; ++run) {
        const double start = threadSeconds();
        doc.edit_root([&](auto &top) {
            for (int64_t i = 0; i < edits; ++i)
                top.edit_at(i, [](auto &el) { return el.set_name("changed"); }).value();
        });
        best = std::min(best, threadSeconds() - start);
    }
    return best;
}

TYPED_TEST(Edits, BelowOneRootAreLinearInTheirNumber) {
    EXPECT_LT(secondsForEdits<TypeParam>(200000),
              secondsForEdits<TypeParam>(20000) * test::tenfold);
}

} // namespace
