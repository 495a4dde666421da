#include "arena.h"

#include <algorithm>
#include <new>

namespace zu::dxf {

namespace {

constexpr std::size_t kFirstBlock = std::size_t{32} * 1024;
constexpr std::size_t kBlockOnPages = std::size_t{127} * 1024;
/// Up to that memory comes from the heap, which reuses it for the next drawing: new memory takes a tenth of
/// reading an ASCII drawing and a third of reading a binary one.
constexpr std::size_t kMostOfHeap = std::size_t{24} * 1024 * 1024;

/// One block for nearly all drawings of that file size: the end that entities do not need is never touched
/// and takes no memory.
std::size_t roomFor(std::size_t fileSize) {
    return std::min(fileSize, kMostOfHeap / 3 * 2) / 2 * 3;
}

} // namespace

Arena::~Arena() {
    if (large_ != nullptr)
        large_->FreeDataChain();
}

/// The first blocks double the memory of the heap; once it has its share, blocks lie on pages.
void Arena::addBlock(std::size_t size) {
    if (size == 0)
        throw std::bad_alloc(); // Rounding up overflowed.
    const std::size_t wanted = allocated_ == 0 ? roomFor(expected_) : allocated_;
    if (allocated_ + wanted > kMostOfHeap) {
        const std::size_t block = std::max(kBlockOnPages, size);
        next_ = static_cast<std::byte*>(CPlex::Create(large_, block, 1)->data());
        left_ = block;
        return;
    }
    const std::size_t block = std::max({wanted, kFirstBlock, size});
    next_ = blocks_.emplace_back(std::make_unique_for_overwrite<std::byte[]>(block)).get();
    left_ = block;
    allocated_ += block;
}

} // namespace zu::dxf
