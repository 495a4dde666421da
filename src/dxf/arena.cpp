#include "arena.h"

#include <algorithm>
#include <new>

namespace zu::dxf {

namespace {

constexpr std::size_t kFirstBlock = std::size_t{32} * 1024;
constexpr std::size_t kLargeThreshold = std::size_t{384} * 1024;
constexpr std::size_t kLargeBlock = std::size_t{2} * 1024 * 1024;

/// Doubles the memory, then switches to blocks of the size of a large page.
std::size_t nextBlock(std::size_t allocated, std::size_t expected) {
    return std::max(allocated, expected) < kLargeThreshold ? std::max(allocated, kFirstBlock) : kLargeBlock;
}

} // namespace

Arena::~Arena() {
    if (blocks_ != nullptr)
        blocks_->FreeDataChain();
}

void Arena::addBlock(std::size_t size) {
    if (size == 0)
        throw std::bad_alloc(); // Rounding up overflowed.
    const std::size_t block = std::max(nextBlock(allocated_, expected_) - sizeof(CPlex), size);
    CPlex* const created = CPlex::Create(blocks_, block, 1);
    next_ = static_cast<std::byte*>(created->data());
    left_ = block;
    allocated_ += block;
}

} // namespace zu::dxf
