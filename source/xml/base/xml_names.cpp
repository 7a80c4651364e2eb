#include "source/xml/base/xml_names.hpp"

#include "source/vo/vo_hash.hpp"
#include "source/xml/base/xml_builder.hpp"

namespace xml {

Names::Names() : slots(64) {}

Names::~Names() {
    for (Name &name : names)
        vo::release(name.string);
}

Name *Names::intern(Builder &builder, std::string_view bytes) {
    uint64_t hash = vo::hashBytes(bytes.data(), bytes.size());
    for (size_t i = hash;; ++i) {
        Name *&slot = slots[i & (slots.size() - 1)];
        if (!slot) break;
        if (slot->hash == hash && slot->bytes == bytes) return slot;
    }
    return add(builder, bytes, hash);
}

Name *Names::add(Builder &builder, std::string_view bytes, uint64_t hash) {
    if (names.size() * 2 >= slots.size()) grow();
    auto *begin = reinterpret_cast<const uint8_t *>(bytes.data());
    names.push_back({bytes, hash, builder.string({begin, begin + bytes.size()})});
    place(&names.back());
    return &names.back();
}

void Names::grow() {
    slots.assign(slots.size() * 4, nullptr);
    for (Name &name : names)
        place(&name);
}

void Names::place(Name *name) {
    size_t i = name->hash;
    while (slots[i & (slots.size() - 1)])
        ++i;
    slots[i & (slots.size() - 1)] = name;
}

} // namespace xml
