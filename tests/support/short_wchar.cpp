// The C library's wide functions that the C++ library's templates call, for a wchar_t of 16 bits. The
// system's own are made for 32. Hidden in each library and program that they are linked into, so that the
// system keeps its own.
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstring>

static_assert(sizeof(wchar_t) == 2);

extern "C" {

std::size_t wcslen(const wchar_t* text) noexcept {
    std::size_t length = 0;
    while (text[length] != L'\0')
        ++length;
    return length;
}

wchar_t* wmemcpy(wchar_t* to, const wchar_t* from, std::size_t count) noexcept {
    std::memcpy(to, from, count * sizeof(wchar_t));
    return to;
}

wchar_t* wmemmove(wchar_t* to, const wchar_t* from, std::size_t count) noexcept {
    std::memmove(to, from, count * sizeof(wchar_t));
    return to;
}

wchar_t* wmemset(wchar_t* to, wchar_t character, std::size_t count) noexcept {
    for (std::size_t i = 0; i < count; ++i)
        to[i] = character;
    return to;
}

int wmemcmp(const wchar_t* left, const wchar_t* right, std::size_t count) noexcept {
    for (std::size_t i = 0; i < count; ++i)
        if (left[i] != right[i])
            return left[i] < right[i] ? -1 : 1;
    return 0;
}

const wchar_t* wmemchr(const wchar_t* text, wchar_t wanted, std::size_t count) noexcept {
    for (std::size_t i = 0; i < count; ++i)
        if (text[i] == wanted)
            return text + i;
    return nullptr;
}

/// Called by the test framework.
int wcscmp(const wchar_t* left, const wchar_t* right) noexcept {
    const std::size_t length = wcslen(left);
    return wmemcmp(left, right, length + 1);
}

/// Supports integer formats only: no caller needs others.
int vswprintf(wchar_t* to, std::size_t size, const wchar_t* format, std::va_list arguments) noexcept {
    char narrowFormat[16] = {};
    for (std::size_t i = 0; format[i] != L'\0' && i + 1 < sizeof narrowFormat; ++i)
        narrowFormat[i] = static_cast<char>(format[i]);
    char digits[32];
    const int length = std::vsnprintf(digits, sizeof digits, narrowFormat, arguments);
    if (length < 0 || static_cast<std::size_t>(length) >= size)
        return -1;
    for (int i = 0; i <= length; ++i)
        to[i] = static_cast<wchar_t>(digits[i]);
    return length;
}
}
