#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zuhost::dxf {

/// The number of the code page that a drawing names: "ANSI_932", "ansi_1252", "DOS850", "dos_437" or one of
/// the format's own names ("SHIFT_JIS" is none of them). Nullopt for a name that is not known.
[[nodiscard]] std::optional<int> codePageNumber(std::string_view name);

/// The number that four hexadecimal digits from `at` on make.
[[nodiscard]] std::optional<unsigned> fourHexDigits(std::wstring_view text, std::size_t at);

/// The code pages of "\\M+1" ... "\\M+5".
inline constexpr std::array<int, 5> kMultiBytePages = {932, 950, 949, 1361, 936};

/// Turns one or two bytes of a page (index into kMultiBytePages) into text; nullopt when the page is not
/// there.
using PairDecoder = std::optional<std::wstring> (*)(std::size_t page, std::string_view bytes);

/// Decoded text with its escapes replaced: "\\U+XXXX" is a UTF-16 unit, "\\M+nXXXX" a character of an East
/// Asian code page, "^J" the control character of J and "^ " the caret itself. What only looks like one
/// stays.
[[nodiscard]] std::wstring withoutEscapes(std::wstring_view text, PairDecoder decodePair);

} // namespace zuhost::dxf
