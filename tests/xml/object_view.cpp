#include "tests/xml/object_view.hpp"

#include "xml/xml.h"

#include <unordered_map>
#include <utility>

namespace test {
namespace {

template <class... T> Objects objects(T *...adopted) {
    Objects made;
    made.reserve(sizeof...(adopted));
    (made.emplace_back(vo::obj(adopted)), ...);
    return made;
}

struct Type {
    voSort *(*sort)();
    Parts (*parts)(voObj *);
};

/// A node that is a value and its location.
#define VALUE_TYPE(Name)                                                                           \
    {                                                                                              \
        xml##Name##Sort, [](voObj *object) -> Parts {                                              \
            auto *node = xml##Name##From(object);                                                  \
            return {{}, objects(xml##Name##Value(node), xml##Name##Location(node)), {}};           \
        }                                                                                          \
    }

const Type types[] = {
    VALUE_TYPE(Text),
    VALUE_TYPE(Comment),
    VALUE_TYPE(Cdata),
    VALUE_TYPE(ProcessingInstruction),
    {voStringSort,
     [](voObj *object) -> Parts {
         return {{}, {}, text(voStringFrom(object))};
     }},
    {voParserLocationSort,
     [](voObj *object) -> Parts {
         auto *location = voParserLocationFrom(object);
         return {{},
                 objects(voParserLocationSource(location)),
                 std::to_string(voParserLocationOffset(location)) + " " +
                     std::to_string(voParserLocationLine(location)) + ":" +
                     std::to_string(voParserLocationColumn(location))};
     }},
    {voVectorSort,
     [](voObj *object) -> Parts {
         Parts parts;
         for (int64_t i = 0; i < voVectorLength(voVectorFrom(object)); ++i)
             parts.others.emplace_back(voVectorObjAt(voVectorFrom(object), i));
         return parts;
     }},
    {xmlNsNamespaceMapSort,
     [](voObj *object) -> Parts {
         return {{}, objects(xmlNsNamespaceMapMappingsVector(xmlNsNamespaceMapFrom(object))), {}};
     }},
    {xmlNsNamespaceMappingSort,
     [](voObj *object) -> Parts {
         auto *mapping = xmlNsNamespaceMappingFrom(object);
         return {
             objects(xmlNsNamespaceMappingPrefix(mapping), xmlNsNamespaceMappingNamespace(mapping)),
             {},
             {}};
     }},
#define LAYER_TEXT "tests/xml/object_parts.inc"
#include "tests/xml/both_layers.inc"
};

class View {
  public:
    View(const Objects &seenFrom, Names countedNames) : roots(seenFrom), names(countedNames) {}

    std::string text() {
        for (pass = 1; pass <= 2; ++pass)
            for (const auto &root : roots)
                add(root);
        return std::move(out);
    }

  private:
    void add(voObj *object) {
        if (!object) return void(out += "- ");
        const auto [place, isNew] = seen.try_emplace(object, Seen{kept.size(), 0});
        if (isNew) kept.emplace_back(vo::retained(object));
        out += std::to_string(place->second.number);
        if (std::exchange(place->second.pass, pass) == pass) return void(out += " again ");
        const Parts parts = partsOf(object);
        ((((out += ' ') += vo::sortOf(object)->name) += ' ') += parts.value) += '\n';
        for (const auto &name : parts.names)
            if (names == Names::objects)
                add(name);
            else
                (out += test::text(voStringFrom(name))) += ' ';
        for (const auto &part : parts.others)
            add(part);
    }

    const Objects &roots;
    Names names;
    struct Seen {
        size_t number;
        int pass; ///< In which it was shown last.
    };
    std::unordered_map<voObj *, Seen> seen;
    int pass = 0;
    Objects kept; ///< Everything, so that no other object gets its address.
    std::string out;
};

} // namespace

Parts partsOf(voObj *object) {
    static const auto bySort = [] {
        std::unordered_map<voSort *, Parts (*)(voObj *)> rows;
        for (const Type &type : types)
            rows[type.sort()] = type.parts;
        return rows;
    }();
    return bySort.at(vo::sortOf(object))(object);
}

std::string viewOf(const Objects &roots, Names names) { return View(roots, names).text(); }

} // namespace test
