#pragma once

namespace zuhost {

/// Returns whether the platform's wide functions treat a character as white space.
constexpr bool isSpace(wchar_t c) {
    return c == L' ' || (c >= 0x09 && c <= 0x0D) || c == 0x85 || c == 0xA0 || c == 0x1680 ||
           (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F ||
           c == 0x3000;
}

// Case conversion of the platform's C locale: only ASCII letters change.
constexpr wchar_t toUpper(wchar_t c) {
    return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c;
}
constexpr wchar_t toLower(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c;
}

} // namespace zuhost
