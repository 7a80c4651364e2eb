#include "source/xml/path/xml_path.hpp"

#include "source/vo/vo_array.hpp"
#include "source/xml/base/xml_object.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "source/xml/path/xml_path_parser.hpp"

#include <cstring>
#include <new>

using vo::Ref;

struct XML_PATH {
    voObj base;
    xml::PathProgram program;
};

extern "C" {
void xml___PathFreeFunc(voObj *obj);
extern voSort xml___sort_XML_PATH;
}

void xml___PathFreeFunc(voObj *obj) { xmlPathFrom(obj)->program.~PathProgram(); }

constinit voSort xml___sort_XML_PATH = {
    {nullptr, 1}, &xml___module, "XML_PATH", xml___PathFreeFunc};
VO_OPERATIONS(xmlPath, XML_PATH, xml___sort_XML_PATH);

const xml::PathProgram &xml::programOf(XML_PATH *path) { return path->program; }

namespace {

XML_PATH_ERROR describe(voString *expression, const xml::PathMistake &mistake,
                        std::string_view path) {
    const std::string_view before = path.substr(0, mistake.place);
    const Ref chars(voStringTryCreateFromUtf8(before.data(), int64_t(before.size())));
    const Ref map(voParserLocationMapCreate(nullptr, VO_NLF_FLAG_LF, voStringBacking(expression),
                                            voStringLength(expression)));
    const Ref place(voParserLocationMapLookup(map, voStringLength(chars)));
    Ref text(voStringTryCreateFromUtf8(mistake.text, -1));
    if (!mistake.detail.empty()) {
        const Ref detail(
            voStringTryCreateFromUtf8(mistake.detail.data(), int64_t(mistake.detail.size())));
        voStringAppendCstr(text.edit(), ": ", -1);
        voStringAppend(text.edit(), detail);
    }
    return {int64_t(mistake.place),
            voMessageCreateFormatCstr(VO_MESSAGE_ERROR, place, "%~s", -1, text.take())};
}

} // namespace

XML_PATH *xmlPathTryCreate(const char *expression, int64_t length,
                           XML_NS_NAMESPACE_MAP *optionalBindings, XML_PATH_ERROR *optionalError) {
    VO_ASSERT(expression);
    VO_ASSERT(length >= -1);
    const std::string_view path(expression, length < 0 ? std::strlen(expression) : size_t(length));
    Ref string(voStringTryCreateFromUtf8(path.data(), int64_t(path.size())));
    auto *made = reinterpret_cast<XML_PATH *>(vo___ObjCreate(sizeof(XML_PATH), xmlPathSort()));
    new (&made->program) xml::PathProgram();
    xml::PathMistake mistake{0, "ill-formed UTF-8", {}};
    if (string && xml::parsePath(path, optionalBindings, made->program, mistake)) return made;
    vo::release(made);
    if (!string) string = Ref(voStringCreate());
    if (optionalError) *optionalError = describe(string, mistake, path);
    return nullptr;
}
