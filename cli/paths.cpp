#include "paths.hpp"

#include "cursor.hpp"
#include "text.hpp"

namespace tool {

std::optional<Pair> pairIn(const std::string &argument) {
    const size_t equals = argument.find('=');
    if (equals == std::string::npos || equals == 0) return std::nullopt;
    return Pair{argument.substr(0, equals), argument.substr(equals + 1)};
}

static void bindPrefix(Bindings &map, const std::string &prefix, std::string_view ns) {
    Ref mapping(xmlNsNamespaceMappingCreate());
    const Ref name = makeString(prefix), uri = makeString(ns);
    const bool isRight = xmlNsValuePrefixOk(name) && (ns.empty() || xmlNsValueNamespaceOk(uri));
    if (!isRight) throw Mistake{"--ns: not a prefix and a namespace: " + prefix};
    xmlNsNamespaceMappingSetPrefix(mapping.edit(), name);
    if (!ns.empty()) xmlNsNamespaceMappingSetNamespace(mapping.edit(), uri);
    xmlNsNamespaceMapSetMapping(map.edit(), mapping);
}

Bindings bindingsOf(const Request &request, std::string_view defaultNamespace) {
    Ref map(xmlNsNamespaceMapCreate());
    bindPrefix(map, "_", defaultNamespace);
    for (const std::string &argument : request.bindings) {
        const auto pair = pairIn(argument);
        if (!pair) throw Mistake{"--ns: expects PREFIX=NAMESPACE, not '" + shown(argument) + "'"};
        bindPrefix(map, pair->name, pair->value);
    }
    return map;
}

Ref<XML_PATH> compile(const std::string &path, XML_NS_NAMESPACE_MAP *bindings) {
    XML_PATH_ERROR error{};
    Ref made(xmlPathTryCreate(path.data(), static_cast<int64_t>(path.size()), bindings, &error));
    if (made) return made;
    Ref message(error.message);
    const auto place = placeOf(Ref(voMessageLocation(message)));
    throw Mistake{"'" + shown(std::string_view(path)) + "', column " +
                  std::to_string(place->column) + ": " +
                  shown(std::string_view(take(voMessageText(message))))};
}

std::string defaultNamespaceOf(XML_DOCUMENT *document) {
    std::string found;
    Ref cursor(xmlCursorCreate(document));
    if (!xmlCursorFirstChild(cursor)) return found;
    do {
        const auto take = [&] {
            if (view(xmlCursorName(cursor)) == "xmlns")
                found = view(xmlCursorValueTryUnescape(cursor));
        };
        visitDeclarations(take, cursor);
    } while (found.empty() && xmlCursorNext(cursor));
    return found;
}

} // namespace tool
