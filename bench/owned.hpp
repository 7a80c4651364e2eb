// An owned reference, as cheap as calling the release function by hand.
#pragma once

#include <memory>

namespace bench {

template <auto release> struct Releaser {
    template <class T> void operator()(T *object) const { release(object); }
};

template <class T, auto release> using Owned = std::unique_ptr<T, Releaser<release>>;

} // namespace bench
