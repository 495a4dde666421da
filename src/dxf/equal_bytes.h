#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zu::dxf {

namespace detail {

template <typename Word>
bool equalEnds(const char* a, const char* b, std::size_t size) {
    const auto differ = [](const char* left, const char* right) {
        Word x = 0;
        Word y = 0;
        std::memcpy(&x, left, sizeof x);
        std::memcpy(&y, right, sizeof y);
        return x ^ y;
    };
    const std::size_t last = size - sizeof(Word);
    return (differ(a, b) | differ(a + last, b + last)) == 0;
}

} // namespace detail

/// Compares texts that are mostly short: those of 4 to 16 bytes as two words, which may overlap.
inline bool equalBytes(std::string_view a, std::string_view b) {
    const std::size_t size = a.size();
    if (size != b.size())
        return false;
    if (size >= 4 && size <= 8)
        return detail::equalEnds<std::uint32_t>(a.data(), b.data(), size);
    if (size > 8 && size <= 16)
        return detail::equalEnds<std::uint64_t>(a.data(), b.data(), size);
    if (size < 4)
        return size == 0 || (a[0] == b[0] && a[size / 2] == b[size / 2] && a[size - 1] == b[size - 1]);
    return a == b;
}

} // namespace zu::dxf
