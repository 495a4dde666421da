#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace zuhost {

/// Widens the ASCII characters at the start of the bytes; returns their number.
inline std::size_t widenAscii(std::string_view bytes, wchar_t* out) {
    constexpr std::uint64_t kNoAscii = 0x8080808080808080U;
    std::size_t at = 0;
    for (std::uint64_t eight = 0; at + sizeof eight <= bytes.size(); at += sizeof eight) {
        std::memcpy(&eight, bytes.data() + at, sizeof eight);
        if ((eight & kNoAscii) != 0)
            break;
        for (std::size_t i = at; i < at + sizeof eight; ++i)
            out[i] = static_cast<wchar_t>(bytes[i]);
    }
    for (; at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80; ++at)
        out[at] = static_cast<wchar_t>(bytes[at]);
    return at;
}

/// Writes a character, as a surrogate pair where wchar_t is too small; returns the position after it.
inline wchar_t* putCodePoint(wchar_t* out, char32_t codePoint) {
    if (sizeof(wchar_t) == 2 && codePoint > 0xFFFF) {
        *out++ = static_cast<wchar_t>(0xD800 + ((codePoint - 0x10000) >> 10));
        codePoint = 0xDC00 + ((codePoint - 0x10000) & 0x3FF);
    }
    *out++ = static_cast<wchar_t>(codePoint);
    return out;
}

} // namespace zuhost
