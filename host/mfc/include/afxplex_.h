#pragma once

#include <cstddef>

/// A block of memory for many small elements, in a chain of such blocks; what is in it is its user's.
///
/// Blocks of more than 1 MB lie on large pages of 2 MB where the system has them, which spares a drawing's
/// reader most of the time that new memory costs.
struct alignas(std::max_align_t) CPlex {
    CPlex* pNext;

    [[nodiscard]] void* data() { return this + 1; }

    /// Puts a block for `count` elements of `size` bytes each before `head`. Throws std::bad_alloc.
    static CPlex* Create(CPlex*& head, std::size_t count, std::size_t size);
    /// Frees this block and those after it.
    void FreeDataChain();

private:
    std::size_t mapped_; ///< Bytes, when the block has pages of its own.
};
