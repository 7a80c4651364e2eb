#include "source/xml/base/xml_on_demand.hpp"

namespace xml {

std::mutex &makingLock(const void *source) {
    constexpr int lockBits = 6;
    struct alignas(64) Lock {
        std::mutex mutex;
    };
    static constinit Lock locks[size_t{1} << lockBits];
    const auto address = uint64_t(reinterpret_cast<uintptr_t>(source));
    return locks[(address * UINT64_C(0x9E3779B97F4A7C15)) >> (64 - lockBits)].mutex;
}

} // namespace xml
