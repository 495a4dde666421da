#include "zuhost/platform/memory.h"

#include "system_call.h"

namespace zuhost::platform {

/// In small pages: large ones need a right that users do not have.
void* allocatePages(std::size_t bytes) {
    return VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void freePages(void* start, std::size_t /*bytes*/) {
    VirtualFree(start, 0, MEM_RELEASE);
}

/// Without effect: the system has no cheaper way than supplying them when they are used.
void supplyPages(void* /*start*/, std::size_t /*bytes*/) {}

} // namespace zuhost::platform
