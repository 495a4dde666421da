#pragma once

#include <afxplex_.h>

#include <cstddef>
#include <cstdint>

namespace zu::dxf {

/// Memory for what lives as long as its drawing: given out piece by piece, freed as a whole.
class Arena {
public:
    Arena() = default;
    ~Arena();
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    /// Tells before the first piece about how much will be wanted.
    void expect(std::size_t size) { expected_ = size; }

    /// Good for any object that needs no more than the alignment of a pointer. Throws std::bad_alloc.
    void* allocate(std::size_t size) {
        const std::size_t whole = (size + kAlignment - 1) / kAlignment * kAlignment;
        if (whole > left_ || whole < size)
            addBlock(whole);
        left_ -= whole;
        std::byte* const start = next_;
        next_ += whole;
        return start;
    }
    /// Lengthens the piece that ends at `end`; false when something lies behind it.
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

    CPlex* blocks_ = nullptr;
    std::byte* next_ = nullptr;
    std::size_t left_ = 0;
    std::size_t allocated_ = 0;
    std::size_t expected_ = 0;
};

} // namespace zu::dxf
