// The version of a document.
#pragma once

#include "source/vo/vo_object.hpp"
#include "vo/vo.h"

namespace xml {

/// The version string. "1.0", which almost every document has, is only made when it is asked for.
class Version {
  public:
    Version() = default;
    Version(const Version &other) : string(other.string.load(std::memory_order_acquire)) {}
    /// Takes over what the other holds; retain() comes next where both live on.
    Version &operator=(const Version &other) {
        string.store(other.string.load(std::memory_order_acquire), std::memory_order_relaxed);
        return *this;
    }

    /// For tests that compare all fields.
    bool operator==(const Version &other) const { return string == other.string; }

    /// Not a new reference. Any number of threads may ask at once; all get the same string.
    voString *get() {
        voString *known = string.load(std::memory_order_acquire);
        return known ? known : make();
    }

    /// Of a private document.
    void set(voString *version) {
        vo::Ref former(string.load(std::memory_order_relaxed));
        string.store(vo::retained(version), std::memory_order_relaxed);
    }

    void retain() { (void)vo::retained(string.load(std::memory_order_relaxed)); }
    void drop() {
        vo::release(string.load(std::memory_order_relaxed));
        string.store(reinterpret_cast<voString *>(~uintptr_t{0}), std::memory_order_relaxed);
    }

  private:
    voString *make() {
        vo::Ref made(voStringCreateFromCstr("1.0", -1));
        voString *known = nullptr;
        if (string.compare_exchange_strong(known, made, std::memory_order_acq_rel))
            return made.take();
        return known;
    }

    std::atomic<voString *> string; ///< Null: "1.0".
};

} // namespace xml
