#include "zuhost/platform/memory.h"

#include <sys/mman.h>

#include <cstdint>

namespace zuhost::platform {

/// Starts at a large page.
void* allocatePages(std::size_t bytes) {
    void* const mapped =
        mmap(nullptr, bytes + kLargePage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        return nullptr;
    auto* const start = static_cast<std::byte*>(mapped);
    const std::size_t past = reinterpret_cast<std::uintptr_t>(start) % kLargePage;
    const std::size_t before = past > 0 ? kLargePage - past : 0;
    if (before > 0)
        munmap(start, before);
    munmap(start + before + bytes, kLargePage - before);
#ifdef MADV_HUGEPAGE
    madvise(start + before, bytes, MADV_HUGEPAGE); // On failure small pages are used.
#endif
    return start + before;
}

void freePages(void* start, std::size_t bytes) {
    munmap(start, bytes);
}

void supplyPages([[maybe_unused]] void* start, [[maybe_unused]] std::size_t bytes) {
#ifdef MADV_POPULATE_WRITE
    madvise(start, bytes, MADV_POPULATE_WRITE); // On failure they are supplied when they are used.
#endif
}

} // namespace zuhost::platform
