#include "object_memory.h"

#include <algorithm>
#include <utility>

namespace zuhost {

namespace {

constexpr std::size_t kFirstBlock = std::size_t{4} * 1024;
constexpr std::size_t kLargestOfHeap = std::size_t{64} * 1024;
constexpr std::size_t kBlockOnPages = std::size_t{127} * 1024;
/// Less than this is not worth a large page, which the system clears as a whole.
constexpr std::size_t kMostOfHeap = std::size_t{1024} * 1024;

} // namespace

/// The first blocks double the memory; once the heap has given its share, blocks lie on pages.
void ObjectMemory::addBlock(std::size_t atLeast) {
    const std::size_t usual =
        allocated_ >= kMostOfHeap ? kBlockOnPages : std::clamp(allocated_, kFirstBlock, kLargestOfHeap);
    const std::size_t block = std::max(usual, atLeast);
    next_ = static_cast<std::byte*>(CPlex::Create(blocks_, block, 1)->data());
    left_ = block;
    allocated_ += block;
}

void ObjectMemory::clear() {
    if (blocks_ != nullptr)
        std::exchange(blocks_, nullptr)->FreeDataChain();
    next_ = nullptr;
    left_ = 0;
    allocated_ = 0;
}

} // namespace zuhost
