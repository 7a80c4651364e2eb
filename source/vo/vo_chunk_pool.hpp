// The process's pool of free chunks of the largest size.
#pragma once

namespace vo {

/// Chunks that have become free wait here for the next decode, up to a bound, because fresh
/// memory from the system costs more than the decode itself. Safe from any thread.
struct ChunkPool {
    static void *take(); ///< Null when the system has no memory.
    static void give(void *chunk);
};

} // namespace vo
