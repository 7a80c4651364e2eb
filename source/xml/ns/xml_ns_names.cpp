#include "source/xml/ns/xml_ns_names.hpp"

#include "source/vo/vo_utf.hpp"

namespace xml {
namespace {

template <class Unit> bool isDeclaration(std::span<const Unit> name) {
    static constexpr char xmlns[] = {'x', 'm', 'l', 'n', 's'};
    return name.size() >= 5 && std::equal(xmlns, xmlns + 5, name.begin()) &&
           (name.size() == 5 || name[5] == ':');
}

template <class Unit> std::string_view bytesOf(std::span<const Unit> run) {
    return {reinterpret_cast<const char *>(run.data()), run.size_bytes()};
}

} // namespace

/// Whether the part of a name behind its first colon is an NCName. It is known to consist of name
/// characters, so only its beginning and further colons count.
template <class Unit> static bool isLocal(std::span<const Unit> part) {
    if (part.empty()) return false;
    const Unit *next = part.data(), *end = next + part.size();
    const uint32_t first = nextChar(next, end);
    return first != ':' && isNameStart(first) && std::find(next, end, Unit{':'}) == end;
}

/// The part before the first colon of an XML name is an NCName unless it is empty; so is a name
/// without a colon.
template <class Unit> NsName NsPrefixes::takenApart(std::span<const Unit> whole) {
    NsName name;
    name.isKnown = true;
    name.declares = isDeclaration(whole);
    const std::span<const Unit> local = localPart(whole);
    name.local = bytesOf(local);
    if (local.size() == whole.size()) {
        name.isValid = true;
        return name;
    }
    const auto prefix = whole.first(whole.size() - local.size() - 1);
    if (prefix.empty()) {
        name.error = XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX;
    } else if (!isLocal(local)) {
        name.error = XML_NS_DECODE_ERROR_CODE_LOCAL_NAME;
    } else {
        name.isValid = true;
        name.prefix = &at(prefix);
        if (name.declares) name.declared = &at(local);
    }
    return name;
}

template NsName NsPrefixes::takenApart(std::span<const uint32_t>);
template NsName NsPrefixes::takenApart(std::span<const uint8_t>);

NsPrefix &NsPrefixes::at(std::span<const uint8_t> key) {
    const uint64_t hash = vo::hashBytes(key.data(), key.size());
    const auto isWanted = [&](const NsPrefix &p) { return p.key == bytesOf(key); };
    if (NsPrefix *known = prefixes.find(hash, isWanted)) return *known;
    NsPrefix &added = prefixes.add(hash);
    added.key = bytesOf(key);
    return added;
}

NsPrefix &NsPrefixes::at(std::span<const uint32_t> key) {
    vo::Vec<uint8_t> utf8(4 * key.size());
    const uint8_t *end = vo::narrowToUtf8(utf8.data(), key.data(), key.data() + key.size()).out;
    return at(std::span<const uint8_t>(utf8.data(), end));
}

NsPrefix &NsPrefixes::xml() {
    static constexpr uint8_t key[] = {'x', 'm', 'l'};
    xmlPrefix = &at(std::span<const uint8_t>(key));
    return *xmlPrefix;
}

} // namespace xml
