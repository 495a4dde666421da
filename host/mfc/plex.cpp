#include "afxplex_.h"

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>
#include <sys/mman.h>

namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20U;

/// Returns null when there is no memory.
void* mapped(std::size_t bytes) {
    void* const start = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return start != MAP_FAILED ? start : nullptr;
}

/// Returns memory that starts at a large page; null when there is no memory.
void* largePages(std::size_t bytes) {
    auto* const start = static_cast<std::byte*>(mapped(bytes + kLargePage));
    if (start == nullptr)
        return nullptr;
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

} // namespace

CPlex* CPlex::Create(CPlex*& head, std::size_t count, std::size_t size) {
    constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max() / 2;
    if (size > 0 && count > kMost / size)
        throw std::bad_alloc();
    std::size_t bytes = sizeof(CPlex) + count * size;
    const bool large = bytes > kLargePage / 2;
    if (large)
        bytes = (bytes + kLargePage - 1) / kLargePage * kLargePage;
    void* const start = large ? largePages(bytes) : std::malloc(bytes);
    if (start == nullptr)
        throw std::bad_alloc();
    auto* const block = ::new (start) CPlex;
    block->pNext = head;
    block->mapped_ = large ? bytes : 0;
    head = block;
    return block;
}

void CPlex::FreeDataChain() {
    for (CPlex* block = this; block != nullptr;) {
        CPlex* const next = block->pNext;
        if (block->mapped_ > 0)
            munmap(block, block->mapped_);
        else
            std::free(block);
        block = next;
    }
}
