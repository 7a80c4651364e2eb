#include "source/xml/base/xml_names.hpp"

#include "source/vo/vo_hash.hpp"
#include "source/xml/base/xml_builder.hpp"

namespace xml {

Name *Names::intern(Builder &builder, std::string_view bytes) {
    const uint64_t hash = vo::hashBytes(bytes.data(), bytes.size());
    if (Name *known = table.find(hash, [&](const Name &name) { return name.bytes == bytes; }))
        return known;
    Name &name = table.add(hash);
    auto *begin = reinterpret_cast<const uint8_t *>(bytes.data());
    name.bytes = bytes;
    name.string = vo::Ref(builder.string({begin, begin + bytes.size()}));
    return &name;
}

} // namespace xml
