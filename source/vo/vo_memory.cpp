#include "vo/vo_memory.h"

#include "source/vo/vo_array.hpp"
#include "source/vo/vo_int.hpp"
#include "source/vo/vo_large_pages.hpp"

using namespace vo;

// A block has the header of a string in front, so that voStringCreateFromCharsUse() needs no copy.
// Until then the header's length tells for how many code points there is room.

void *voMemAllocN(int64_t count, int64_t size) {
    VO_ASSERT(count >= 0);
    VO_ASSERT(size >= 0);
    VO_ASSERT(VO_INT_MUL_OK(count, size));
    int64_t bytes = count * size;
    int64_t chars = bytes / 4 + (bytes % 4 != 0);
    VO_ASSERT(chars <= mostItems<voString>);
    const int64_t needed = blockSize<voString>(chars);
    void *memory = std::malloc(size_t(needed));
    VO_ASSERT(memory);
    if (needed >= largeBlock) preferLargePages(memory, needed);
    auto *block = static_cast<voString *>(memory);
    block->length = chars;
    return block->items();
}

void voMemCopyN(void *dst, const void *src, int64_t count, int64_t size) {
    VO_ASSERT(count >= 0);
    VO_ASSERT(size >= 0);
    VO_ASSERT(VO_INT_MUL_OK(count, size));
    if (count == 0 || size == 0) return;
    VO_ASSERT(dst);
    VO_ASSERT(src);
    std::memcpy(dst, src, size_t(count * size));
}

void voMemFree(void *block) {
    if (block) std::free(static_cast<voString *>(block) - 1);
}
