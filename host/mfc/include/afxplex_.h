#pragma once

#include <zuhost/platform/export.h>

#include <cstddef>

/// A block of memory for many small elements, in a chain of blocks; the user manages its contents.
///
/// Blocks of more than 124 KB share large pages of 2 MB where the system has them. Small pages are supplied
/// with each block, so that the processor's cache still holds them when it is filled.
struct ZUHOST_API CPlex {
    alignas(std::max_align_t) CPlex* pNext;

    [[nodiscard]] void* data() { return this + 1; }

    /// Inserts a block for `count` elements of `size` bytes each before `head`. Throws std::bad_alloc.
    static CPlex* Create(CPlex*& head, std::size_t count, std::size_t size);
    /// Frees this block and those after it.
    void FreeDataChain();

private:
    std::size_t mapped_; ///< Bytes of a block on pages; 0 for others.
};
