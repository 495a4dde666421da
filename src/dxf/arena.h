#pragma once

#include <afxplex_.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zu::dxf {

/// Allocates objects that live as long as their drawing; frees them all at once.
class Arena {
public:
    Arena() = default;
    ~Arena();
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    /// Sets the size of the drawing's file; called before the first allocation.
    void expect(std::size_t fileSize) { expected_ = fileSize; }

    /// Allocates memory for any object whose alignment is at most eight. Throws std::bad_alloc.
    void* allocate(std::size_t size) {
        const std::size_t whole = (size + kAlignment - 1) / kAlignment * kAlignment;
        if (whole > left_ || whole < size)
            addBlock(whole);
        left_ -= whole;
        std::byte* const start = next_;
        next_ += whole;
        return start;
    }
    /// Extends the allocation that ends at `end`; returns false unless it is the last one and there is room.
    bool extend(const void* end, std::size_t size) {
        if (end != next_ || size > left_ || size % kAlignment != 0)
            return false;
        next_ += size;
        left_ -= size;
        return true;
    }

private:
    static constexpr std::size_t kAlignment = 8;

    void addBlock(std::size_t size);

    std::vector<std::unique_ptr<std::byte[]>> blocks_;
    CPlex* large_ = nullptr; ///< Blocks on large pages.
    std::byte* next_ = nullptr;
    std::size_t left_ = 0;
    std::size_t allocated_ = 0;
    std::size_t expected_ = 0;
};

} // namespace zu::dxf
