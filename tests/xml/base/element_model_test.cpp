// Elements that share their parts and change at random, beside a model that shares nothing.
#include "tests/xml/notation.hpp"

#include <algorithm>
#include <memory>
#include <random>

using namespace test;

namespace {

struct Model {
    struct Child {
        std::string comment;                  ///< As describe() writes it.
        std::shared_ptr<const Model> element; ///< Null for a comment.
    };
    using Attribute = std::pair<std::string, std::string>;

    std::vector<Attribute> attributes;
    std::vector<Child> children;

    std::string text() const {
        std::string all = "(e";
        for (auto &[name, value] : attributes)
            all += " @" + name + "=" + value;
        for (auto &child : children)
            all += " " + (child.element ? child.element->text() : child.comment);
        return all + ")";
    }
    size_t weight() const {
        size_t sum = 1 + children.size();
        for (auto &child : children)
            sum += child.element ? child.element->weight() : 0;
        return sum;
    }
    std::vector<Attribute>::iterator find(const std::string &name) {
        return std::ranges::find(attributes, name, &Attribute::first);
    }
    void remove(const std::string &name) {
        if (auto found = find(name); found != attributes.end()) attributes.erase(found);
    }
};

/// A few elements and what they should be. Each step changes one of them.
template <class Layer> class Elements {
    static constexpr size_t mostNodes = 60;

    struct Holder {
        Ref<typename Layer::Element> el = Layer::element("e");
        Model model;
    };

  public:
    void step() {
        Holder &one = any(), &other = any();
        const size_t length = one.model.children.size();
        const size_t index = length ? random() % length : 0;
        const auto place = one.model.children.begin() + long(index);
        const bool fits = one.model.weight() + other.model.weight() <= mostNodes;
        switch (random() % 10) {
        case 0:
            one.el = Ref(vo::retained<typename Layer::Element>(other.el));
            one.model = Model(other.model);
            return;
        case 1:
        case 2: {
            const std::string text = std::to_string(random() % 100);
            one.model.children.push_back({"!" + text, nullptr});
            return Layer::appendElementComment(one.el.edit(), comment(text));
        }
        case 3:
            if (!fits) return clear(one);
            one.model.children.insert(place, asChild(other.model));
            return Layer::insertElement(one.el.edit(), int64_t(index), other.el);
        case 4:
            if (!length || !fits) return;
            *place = asChild(other.model);
            return Layer::setElementAt(one.el.edit(), int64_t(index), other.el);
        case 5: {
            if (!fits) return clear(one);
            const auto children = other.model.children; // `other` may be `one`
            one.model.children.insert(place, children.begin(), children.end());
            return Layer::insertElementItems(one.el.edit(), int64_t(index),
                                             Ref(Layer::elementItems(other.el)));
        }
        case 6:
            if (!length) return;
            one.model.children.erase(place);
            return Layer::delElementItemAt(one.el.edit(), int64_t(index));
        case 7:
            if (length && place->element) other = descend(one, index);
            return;
        default:
            return changeAttributes(one);
        }
    }

    /// Whether all are what they should be.
    bool matches() const {
        return std::ranges::all_of(holders, [](auto &holder) {
            return describe(holder.el.operator->()) == holder.model.text();
        });
    }

  private:
    Holder &any() { return holders[random() % std::size(holders)]; }

    static Model::Child asChild(const Model &model) {
        return {"", std::make_shared<const Model>(model)};
    }
    static Holder descend(const Holder &holder, size_t index) {
        return {Ref(Layer::elementItemAt(holder.el, int64_t(index))),
                Model(*holder.model.children[index].element)};
    }
    static void clear(Holder &holder) {
        holder.model.children.clear();
        Layer::clearElementItems(holder.el.edit());
    }

    void changeAttributes(Holder &one) {
        static const char *const names[] = {"a", "b", "u:a", "u:b", "v:a"};
        const std::string name = names[random() % std::size(names)];
        const std::string value = std::to_string(random() % 100);
        const auto attr = Layer::attribute(name, value);
        const auto known = one.model.find(name);
        if (random() % 3 == 0) {
            one.model.remove(name);
            return Layer::delElementAttribute(one.el.edit(), name);
        }
        if (random() % 2 && known != one.model.attributes.end()) {
            known->second = value;
            return Layer::setElementAttribute(one.el.edit(), attr);
        }
        one.model.remove(name);
        one.model.attributes.insert(one.model.attributes.begin(), {name, value});
        Layer::insertElementAttribute(one.el.edit(), 0, attr);
    }

    std::mt19937 random{5};
    Holder holders[4];
};

} // namespace

LAYER_TEST_SUITE(ElementModel);

TYPED_TEST(ElementModel, BehavesAsTheModelUnderRandomChanges) {
    Elements<TypeParam> elements;
    for (int i = 0; i < 40'000; ++i) {
        elements.step();
        if (i % 16 == 0) {
            ASSERT_TRUE(elements.matches()) << "step " << i;
        }
    }
}
