// Parts of a tree that are made when somebody first asks for them.
#pragma once

#include "source/vo/vo_object.hpp"

#include <mutex>

namespace xml {

/// The lock under which the objects of one source are made. Several sources share a lock, and the
/// locks outlive the sources: a thread may still be waiting for the lock when another one has made
/// the object and released the source. A thread that holds one of these locks never takes another.
std::mutex &makingLock(const void *source);

/// A reference to an object; or, as long as that is not made, to the source that it will be made
/// from. Reading costs one load. The object is made once, under the lock of its source, and every
/// thread then gets the same.
template <class T, class Source> class OnDemand {
  public:
    OnDemand() = default;
    /// Adopts the object, or a reference to the source of an object to be made.
    explicit OnDemand(T *made) : word(reinterpret_cast<uintptr_t>(made)) {}
    explicit OnDemand(Source *source) : word(reinterpret_cast<uintptr_t>(source) | pendingBit) {}
    OnDemand(const OnDemand &other) : word(other.word.load(std::memory_order_relaxed)) {}
    /// Takes over what the other holds, which no thread may be about to make; retain() comes next
    /// where both live on.
    OnDemand &operator=(const OnDemand &other) {
        word.store(other.word.load(std::memory_order_relaxed), std::memory_order_relaxed);
        return *this;
    }

    /// For tests that compare all fields.
    bool operator==(const OnDemand &other) const { return word == other.word; }

    /// Adopts the object.
    void set(T *made) { word.store(reinterpret_cast<uintptr_t>(made), std::memory_order_release); }

    /// The same for a field that holds something, in an object that is private.
    void replace(T *made) {
        OnDemand former(*this);
        set(made);
        former.drop();
    }

    /// The object, or null as long as it is not made.
    T *made() const {
        const uintptr_t seen = word.load(std::memory_order_acquire);
        return seen & pendingBit ? nullptr : reinterpret_cast<T *>(seen);
    }

    /// The source of an object that is not made, otherwise null. Another thread may make the object
    /// and give up the source at any time, unless the caller holds the source or its lock.
    Source *pending() const {
        const uintptr_t seen = word.load(std::memory_order_acquire);
        return seen & pendingBit ? reinterpret_cast<Source *>(seen & ~pendingBit) : nullptr;
    }

    /// Calls `make(source)` for the object unless it is made, and gives it.
    template <class Make> T *get(Make make) {
        Source *const source = pending();
        if (!source) return made();
        {
            std::lock_guard lock(makingLock(source));
            if (!pending()) return made();
            set(make(source));
        }
        vo::release(source);
        return made();
    }

    /// Calls `use(source)` under the source's lock if the object is not made.
    template <class Use> void ifPending(Use use) const {
        Source *const source = pending();
        if (!source) return;
        std::lock_guard lock(makingLock(source));
        if (pending()) use(source);
    }

    /// The source, if the object is not made; the caller then holds it too.
    vo::Ref<Source> holdPending() const {
        vo::Ref<Source> source;
        ifPending([&](Source *held) { source = vo::Ref(vo::retained(held)); });
        return source;
    }

    /// Whether the object is not made; then `known` is set to the source that it would be made
    /// from, unless it is that already.
    bool hold(vo::Ref<Source> &known) const {
        const Source *source = pending();
        if (source && source != known) known = holdPending();
        return source && known;
    }

    /// For copying and freeing the object that has this as a field. Only made objects are shared.
    void retain() { (void)vo::retained(made()); }
    void drop() {
        if (Source *source = pending())
            vo::release(source);
        else
            vo::release(made());
        word.store(~uintptr_t{0} & ~pendingBit, std::memory_order_relaxed);
    }

  private:
    static constexpr uintptr_t pendingBit = 1;

    std::atomic<uintptr_t> word;
};

} // namespace xml
