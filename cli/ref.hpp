// References of the library's C interface.
#pragma once

#include "vo/vo.h"

#include <utility>

namespace tool {

/// One counted reference, released at the end of the scope; may be empty.
template <class T> class [[nodiscard]] Ref {
  public:
    Ref() = default;
    explicit Ref(T *adopted) : object(adopted) {}
    Ref(Ref &&other) noexcept : object(std::exchange(other.object, nullptr)) {}
    Ref &operator=(Ref other) noexcept {
        std::swap(object, other.object);
        return *this;
    }
    ~Ref() {
        if (object) voObjRelease(reinterpret_cast<voObj *>(object));
    }

    operator T *() const { return object; }
    T **edit() { return &object; } ///< For functions that change a value.

  private:
    T *object = nullptr;
};

} // namespace tool
