#include "afxplex_.h"

#include <zuhost/platform/memory.h>

#include <cstdlib>
#include <limits>
#include <new>

CPlex* CPlex::Create(CPlex*& head, std::size_t count, std::size_t size) {
    using namespace zuhost::platform;
    constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max() / 2;
    if (size > 0 && count > kMost / size)
        throw std::bad_alloc();
    std::size_t bytes = sizeof(CPlex) + count * size;
    const bool large = bytes > kLargePage / 2;
    if (large)
        bytes = (bytes + kLargePage - 1) / kLargePage * kLargePage;
    void* const start = large ? allocatePages(bytes) : std::malloc(bytes);
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
            zuhost::platform::freePages(block, block->mapped_);
        else
            std::free(block);
        block = next;
    }
}
