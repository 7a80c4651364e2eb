// Operations on an element's lists beside the same operations on the lists themselves.
#pragma once

#include "tests/xml/notation.hpp"

namespace test {

/// What an operation gives, and the place that says so.
struct Expected {
    Expected(const char *notation, const char *sourceFile = __builtin_FILE(),
             int sourceLine = __builtin_LINE())
        : text(notation), file(sourceFile), line(sourceLine) {}
    const char *text, *file;
    int line;
};

/// Runs operations on a list that others hold too: on the list by itself, and through an element
/// that holds it. A getter must give what is expected; a setter must make that of the list.
template <class Element, class List> class ListOperations {
  public:
    ListOperations(Ref<List> sharedList, void (*listSetter)(Element **, List *),
                   List *(*listGetter)(Element *))
        : shared(std::move(sharedList)), setList(listSetter), getList(listGetter) {}

    template <class Result, class... Params, class... Args>
    void operator()(Result (*onElement)(Element *, Params...), Result (*onList)(List *, Params...),
                    Expected expected, const Args &...args) const {
        expect(expected, taken(onList(shared, args...)), taken(onElement(newElement(), args...)));
    }

    template <class... Params, class... Args>
    void operator()(void (*onElement)(Element **, Params...), void (*onList)(List **, Params...),
                    Expected expected, const Args &...args) const {
        Ref list(vo::retained(shared.operator->()));
        Ref el = newElement();
        onList(list.edit(), args...);
        onElement(el.edit(), args...);
        expect(expected, describe(list.operator->()), taken(getList(el)));
    }

  private:
    Ref<Element> newElement() const {
        using Layer = std::conditional_t<std::is_same_v<Element, XML_ELEMENT>, Plain, Namespaced>;
        Ref el = Layer::element("e");
        setList(el.edit(), shared);
        return el;
    }

    void expect(Expected expected, const std::string &fromList,
                const std::string &fromElement) const {
        const testing::ScopedTrace trace(expected.file, expected.line, "");
        EXPECT_EQ(fromList, expected.text) << "by the list";
        EXPECT_EQ(fromElement, expected.text) << "by the element";
        EXPECT_EQ(describe(shared.operator->()), before) << "another holder's list has changed";
    }

    Ref<List> shared;
    void (*setList)(Element **, List *);
    List *(*getList)(Element *);
    std::string before = describe(shared.operator->());
};

} // namespace test
