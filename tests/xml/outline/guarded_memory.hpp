// Memory that ends where a text does, so that a read beyond the end crashes.
#pragma once

#include "source/xml/base/xml_piece.hpp"

#include <cassert>
#include <cstring>
#include <sys/mman.h>
#include <unistd.h>

namespace test {

/// Memory in front of a page that ends the process when it is touched.
class GuardedMemory {
  public:
    explicit GuardedMemory(size_t most)
        : page(size_t(sysconf(_SC_PAGESIZE))), room((most + page - 1) / page * page),
          memory(static_cast<uint8_t *>(mmap(nullptr, room + page, PROT_READ | PROT_WRITE,
                                             MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))) {
        mprotect(memory + room, page, PROT_NONE);
    }
    GuardedMemory(const GuardedMemory &) = delete;
    GuardedMemory &operator=(const GuardedMemory &) = delete;
    ~GuardedMemory() { munmap(memory, room + page); }

    size_t size() const { return room; }

    /// A copy of the text that ends where the memory does; it takes the place of the last one.
    xml::Piece place(std::string_view text) {
        assert(text.size() <= room);
        uint8_t *end = memory + room;
        std::memcpy(end - text.size(), text.data(), text.size());
        return {end - text.size(), end};
    }

  private:
    size_t page, room;
    uint8_t *memory;
};

} // namespace test
