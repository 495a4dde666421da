#pragma once

#include <zuhost/platform/export.h>

#include <concepts>
#include <cstdarg>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace zuhost {

/// One argument of a format with its type, so that a wrong conversion cannot read foreign memory.
using FormatArgument =
    std::variant<std::int64_t, std::uint64_t, double, const wchar_t*, const char*, const void*>;

/// Returns an argument for a number, a wide or narrow C string, a text of the framework, or a pointer.
template <typename T>
FormatArgument formatArgument(const T& value) {
    if constexpr (std::is_enum_v<T>)
        return formatArgument(static_cast<std::underlying_type_t<T>>(value));
    else if constexpr (std::floating_point<T>)
        return static_cast<double>(value);
    else if constexpr (std::signed_integral<T>)
        return static_cast<std::int64_t>(value);
    else if constexpr (std::unsigned_integral<T>)
        return static_cast<std::uint64_t>(value);
    else if constexpr (std::is_convertible_v<const T&, const wchar_t*>)
        return static_cast<const wchar_t*>(value);
    else if constexpr (std::is_convertible_v<const T&, const char*>)
        return static_cast<const char*>(value);
    else
        return static_cast<const void*>(value);
}

/// Formats as the platform's wprintf family does, independent of the process's locale.
/// A conversion without an argument, or with one of the wrong kind, prints nothing.
ZUHOST_API std::wstring formatText(std::wstring_view format, std::span<const FormatArgument> arguments);

/// Formats the arguments of a variadic function: their types must be those of the conversions.
ZUHOST_API std::wstring formatText(std::wstring_view format, std::va_list arguments);

template <typename... Arguments>
std::wstring formatAll(const wchar_t* format, const Arguments&... arguments) {
    if (format == nullptr)
        return {};
    if constexpr (sizeof...(arguments) == 0) {
        return formatText(format, std::span<const FormatArgument>());
    } else {
        const FormatArgument list[] = {formatArgument(arguments)...};
        return formatText(format, std::span<const FormatArgument>(list));
    }
}

} // namespace zuhost
