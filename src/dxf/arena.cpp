#include "arena.h"

#include <algorithm>
#include <new>

namespace zu::dxf {

namespace {

constexpr std::size_t kFirstBlock = std::size_t{32} * 1024;
/// Memory up to this size comes from the heap, which reuses it for the next drawing: clearing new memory
/// takes a tenth of reading an ASCII drawing and a third of reading a binary one.
constexpr std::size_t kLargestOfHeap = std::size_t{16} * 1024 * 1024;
constexpr std::size_t kLargeBlock = std::size_t{2} * 1024 * 1024;

/// One block for nearly all drawings of that file size: the end that entities do not need is never touched
/// and takes no memory.
std::size_t roomFor(std::size_t fileSize) {
    return std::min(fileSize, kLargestOfHeap) / 2 * 3;
}

} // namespace

Arena::~Arena() {
    if (large_ != nullptr)
        large_->FreeDataChain();
}

/// Each block after the first doubles the memory, until blocks have the size of large pages.
void Arena::addBlock(std::size_t size) {
    if (size == 0)
        throw std::bad_alloc(); // Rounding up overflowed.
    const std::size_t wanted = allocated_ == 0 ? roomFor(expected_) : allocated_;
    if (allocated_ + wanted > kLargestOfHeap) {
        const std::size_t block = std::max(kLargeBlock - sizeof(CPlex), size);
        next_ = static_cast<std::byte*>(CPlex::Create(large_, block, 1)->data());
        left_ = block;
    } else {
        const std::size_t block = std::max({wanted, kFirstBlock, size});
        next_ = blocks_.emplace_back(std::make_unique_for_overwrite<std::byte[]>(block)).get();
        left_ = block;
    }
    allocated_ += left_;
}

} // namespace zu::dxf
