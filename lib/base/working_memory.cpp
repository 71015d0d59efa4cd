#include "base/working_memory.h"

#if defined(__linux__) && defined(__GLIBC__)
#include <malloc.h>
#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>
#endif

namespace mirvane {

#if defined(__linux__) && defined(__GLIBC__)

#ifndef MADV_POPULATE_WRITE
#define MADV_POPULATE_WRITE 23  // Linux 5.14; older kernels refuse it and nothing changes
#endif

void PrepareWorkingMemory(std::size_t bytes) {
    constexpr std::size_t kPage = 4096;
    if (bytes < 16 * kPage) return;
    // Large buffers come from the heap too, and freed memory is kept, so
    // that later allocations land on the pages mapped here.
    mallopt(M_MMAP_THRESHOLD, 32 << 20);  // the most glibc takes
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    void* block = std::malloc(bytes);
    if (block == nullptr) return;
    const auto first = (reinterpret_cast<std::uintptr_t>(block) + kPage - 1) & ~std::uintptr_t{kPage - 1};
    const auto end = (reinterpret_cast<std::uintptr_t>(block) + bytes) & ~std::uintptr_t{kPage - 1};
    if (end > first) ::madvise(reinterpret_cast<void*>(first), end - first, MADV_POPULATE_WRITE);
    std::free(block);
}

#else

void PrepareWorkingMemory(std::size_t) {}

#endif

}  // namespace mirvane
