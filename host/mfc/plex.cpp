#include "afxplex_.h"

#include <zuhost/platform/memory.h>

#include <cstdlib>
#include <limits>
#include <new>

using namespace zuhost::platform;

namespace {

constexpr std::size_t kSmallestOnPages = std::size_t{128} * 1024;

/// Precedes a block on pages.
struct alignas(CPlex) Pages {
    std::size_t mapped; ///< Bytes of the pages that start here; 0 for a block in the pages of another.
    std::byte* rest;    ///< Unused pages after the block.
    std::size_t left;   ///< Their bytes.
};

constexpr std::size_t roundedUp(std::size_t bytes, std::size_t unit) {
    return (bytes + unit - 1) / unit * unit;
}

Pages* pagesOf(CPlex* block) {
    return reinterpret_cast<Pages*>(block) - 1;
}

/// Returns pages for a block: those after the newest block of the chain if there are enough, else new ones.
Pages* takePages(const Pages* newest, std::size_t bytes) {
    const bool isEnough = newest != nullptr && newest->left >= bytes;
    const std::size_t mapped = isEnough ? 0 : roundedUp(bytes, kLargePage);
    auto* const start = isEnough ? newest->rest : static_cast<std::byte*>(allocatePages(mapped));
    if (start == nullptr)
        return nullptr;
    if (bytes <= kLargePage) // The end of a larger one may stay unused.
        supplyPages(start, bytes);
    return ::new (start) Pages{mapped, start + bytes, (isEnough ? newest->left : mapped) - bytes};
}

} // namespace

CPlex* CPlex::Create(CPlex*& head, std::size_t count, std::size_t size) {
    constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max() / 2;
    if (size > 0 && count > kMost / size)
        throw std::bad_alloc();
    const std::size_t bytes = sizeof(CPlex) + count * size;
    const std::size_t pages = roundedUp(sizeof(Pages) + bytes, kSmallPage);
    const bool isOnPages = pages >= kSmallestOnPages;
    Pages* const newest = isOnPages && head != nullptr && head->mapped_ > 0 ? pagesOf(head) : nullptr;
    void* const start = isOnPages ? takePages(newest, pages) : std::malloc(bytes);
    if (start == nullptr)
        throw std::bad_alloc();
    auto* const block = ::new (isOnPages ? static_cast<Pages*>(start) + 1 : start) CPlex;
    block->pNext = head;
    block->mapped_ = isOnPages ? pages : 0;
    head = block;
    return block;
}

void CPlex::FreeDataChain() {
    for (CPlex* block = this; block != nullptr;) {
        CPlex* const next = block->pNext; // Of blocks that share pages the last one in the chain frees them.
        if (block->mapped_ == 0)
            std::free(block);
        else if (Pages* const pages = pagesOf(block); pages->mapped > 0)
            freePages(pages, pages->mapped);
        block = next;
    }
}
