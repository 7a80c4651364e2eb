// Large pages for large blocks.
#pragma once

#include <cstdint>
#include <sys/mman.h>

namespace vo {

/// From this size on a block is worth large pages; what it may waste is small beside it.
inline constexpr int64_t largeBlock = int64_t{4} << 20;

/// Asks the system to back a fresh block of memory with large pages. Touching memory for the first
/// time costs more than decoding into it; with large pages that cost is several times smaller. This
/// is only a hint. It covers the first and last page of the block too: the system cannot move a
/// block that is covered in part when it grows, only copy it.
inline void preferLargePages([[maybe_unused]] void *block, [[maybe_unused]] int64_t size) {
#ifdef MADV_HUGEPAGE
    constexpr uintptr_t page = 4096;
    const uintptr_t begin = reinterpret_cast<uintptr_t>(block) & ~(page - 1);
    const uintptr_t end =
        (reinterpret_cast<uintptr_t>(block) + uintptr_t(size) + page - 1) & ~(page - 1);
    madvise(reinterpret_cast<void *>(begin), end - begin, MADV_HUGEPAGE);
#endif
}

} // namespace vo
