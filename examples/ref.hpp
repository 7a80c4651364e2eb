// What the C++ examples share: owned references, strings and printing.
#pragma once

#include "vo/vo.h"
#include "xml/xml.h"

#include <cstdio>
#include <string_view>

// Owns a reference to an object of any type. Functions that change the object take its address.
template <class T> class Ref {
  public:
    explicit Ref(T *adopted) : object(adopted) {}
    Ref(const Ref &) = delete;
    ~Ref() {
        if (object) voObjRelease(reinterpret_cast<voObj *>(object));
    }
    operator T *() const { return object; }
    T **operator&() { return &object; }

  private:
    T *object;
};

inline Ref<voString> str(const char *utf8) { return Ref(voStringTryCreateFromUtf8(utf8, -1)); }

inline Ref<voBuffer> bytes(std::string_view text) {
    return Ref(voBufferCreateFromBytesCopy(text.data(), int64_t(text.size())));
}

inline void print(voBuffer *utf8) {
    std::printf("%.*s\n", int(voBufferLength(utf8)),
                reinterpret_cast<const char *>(voBufferBacking(utf8)));
}

// Keeps the library started.
struct Session {
    Session() { voModuleStartup(xmlModule()); }
    ~Session() { voModuleShutdown(xmlModule()); }
};
