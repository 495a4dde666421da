#pragma once

#include "adesk.h"

#include <cstddef>
#include <string_view>
#include <type_traits>

namespace zuhost {

/// The size of a text buffer that a function is given without one: that of an array, else the documented
/// minimum.
template <typename Buffer, std::size_t documented = 133>
constexpr std::size_t bufferSize() {
    if constexpr (std::is_array_v<std::remove_reference_t<Buffer>>)
        return std::extent_v<std::remove_reference_t<Buffer>>;
    else
        return documented;
}

/// Copies a text and a terminating zero, and cuts it to the buffer. Returns false, without a copy, when there
/// is no room for the zero.
inline bool copyToBuffer(std::wstring_view text, ACHAR* buffer, std::size_t size) {
    if (buffer == nullptr || size == 0)
        return false;
    buffer[text.copy(buffer, size - 1)] = L'\0';
    return true;
}

} // namespace zuhost
