#include "vo/vo_object.h"

#include "source/vo/vo_chunk.hpp"
#include "source/vo/vo_large_pages.hpp"
#include "source/vo/vo_live.hpp"
#include "vo/vo_string.h"

#include <cstdio>
#include <cstdlib>
#include <new>

namespace vo {
namespace {

/// What one thread is freeing.
///
/// What an object releases is freed within the freeing of the object, in the order in which a tree
/// tends to lie in memory. Deeper down dead objects wait in a list, so that a deep tree needs no
/// deep stack. The list runs through the counts, which are dead: it needs no memory.
class Freeing {
  public:
    void add(voObj *object) {
        if (depth < deepest)
            freeNow(object);
        else
            wait(object);
        if (depth) return;
        while (waiting)
            freeNow(takeWaiting());
        leaveLastChunk();
    }

  private:
    /// At most some 10 KB of stack.
    static constexpr int deepest = 64;

    void freeNow(voObj *object) {
        ++depth;
        if (auto *releaseParts = sortOf(object)->free) releaseParts(object);
        --depth;
        dispose(object);
    }

    void wait(voObj *object) {
        object->refs.store(reinterpret_cast<int64_t>(waiting), std::memory_order_relaxed);
        waiting = object;
    }

    voObj *takeWaiting() {
        const int64_t next = waiting->refs.load(std::memory_order_relaxed);
        return std::exchange(waiting, reinterpret_cast<voObj *>(next));
    }

    /// Returns an object's memory. Neighbours leave their chunk together, because its count is one
    /// that other threads may be changing too.
    void dispose(voObj *object) {
        countLive(-1);
        if (!chunkTag(object)) return std::free(object);
        Chunk *home = Chunk::of(object);
        if (home != chunk) leaveLastChunk();
        chunk = home;
        ++left;
    }

    void leaveLastChunk() {
        if (chunk) leaveChunk(std::exchange(chunk, nullptr), std::exchange(left, 0));
    }

    int depth = 0;            ///< Objects whose parts are being released.
    voObj *waiting = nullptr; ///< The one that waits to be freed next.
    Chunk *chunk = nullptr;
    int64_t left = 0; ///< Objects of `chunk` that have gone.
};

// Without a destructor, so that statics destroyed late may still free. The
// initial-exec model saves a call for each object; these few bytes fit the space that the loader
// reserves for libraries which dlopen() adds.
constinit thread_local Freeing freeing __attribute__((tls_model("initial-exec")));

} // namespace

#ifdef VO_COUNT_OBJECTS
static constinit std::atomic<int64_t> live{0};
void countLive(int64_t change) { live.fetch_add(change, std::memory_order_relaxed); }
int64_t liveObjects() { return live.load(); }
#else
void countLive(int64_t) {}
int64_t liveObjects() { return -1; }
#endif

} // namespace vo

using namespace vo;

voObj *vo___ObjCreate(int64_t size, voSort *sort) {
    void *block = std::malloc(size_t(size));
    VO_ASSERT(block);
    if (size >= largeBlock) preferLargePages(block, size);
    countLive(1);
    return new (block) voObj{sort, 1};
}

voObj *vo___ObjResize(voObj *obj, int64_t size) {
    void *block = std::realloc(static_cast<void *>(obj), size_t(size));
    VO_ASSERT(block);
    if (size >= largeBlock) preferLargePages(block, size);
    return static_cast<voObj *>(block);
}

void vo___ObjFree(voObj *obj) { freeing.add(obj); }

void vo___Abort(const char *context, const char *file, int64_t line, const char *text) {
    std::fprintf(stderr, "%s%s%s:%lld: %s\n", context ? context : "", context ? ": " : "", file,
                 static_cast<long long>(line), text ? text : "");
    std::abort();
}

voObj *voObjRetain(voObj *obj) { return retained(VO_READ(obj)); }

void voObjRelease(voObj *obj) { release(VO_READ(obj)); }

voSort *voObjSort(voObj *obj) { return sortOf(VO_READ(obj)); }

int64_t voObjCompare(voObj *a, voObj *b) {
    if (a == b) return 0;
    if (!a || !b) return a ? 1 : -1;
    if (sortOf(a) != sortOf(b)) return sortOf(a) < sortOf(b) ? -1 : 1;
    if (sortOf(a)->compare) return sortOf(a)->compare(a, b);
    return a < b ? -1 : 1;
}

voString *voObjToString(voObj *obj) {
    VO_ASSERT(obj);
    voSort *sort = sortOf(obj);
    return sort->toString ? sort->toString(obj) : voStringCreateFromCstr(sort->name, -1);
}
