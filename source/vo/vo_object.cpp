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

/// Returns the memory of dead objects. Neighbours leave their chunk together, because its count
/// is one that other threads may be changing too.
class Disposal {
  public:
    void dispose(voObj *object) {
        countLive(-1);
        if (!chunkTag(object)) return std::free(object);
        Chunk *home = Chunk::of(object);
        if (home != chunk) leave();
        chunk = home;
        ++left;
    }
    void leave() {
        if (chunk) leaveChunk(chunk, left);
        chunk = nullptr;
        left = 0;
    }

  private:
    Chunk *chunk = nullptr;
    int64_t left = 0;
};

// Objects freed by a free function wait in a list, so that a deep tree needs no deep stack. The
// list runs through the counts, which are dead: it needs no memory and outlives every static.
constinit thread_local voObj *waiting = nullptr;
constinit thread_local bool draining = false;

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

void vo___ObjFree(voObj *obj) {
    obj->refs.store(reinterpret_cast<int64_t>(std::exchange(waiting, obj)),
                    std::memory_order_relaxed);
    if (draining) return;
    draining = true;
    Disposal disposal;
    while (voObj *next = waiting) {
        waiting = reinterpret_cast<voObj *>(next->refs.load(std::memory_order_relaxed));
        sortOf(next)->free(next);
        disposal.dispose(next);
    }
    draining = false;
    disposal.leave();
}

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
