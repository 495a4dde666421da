#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zuhost::dxf {

/// Drawings of this version (the number of $ACADVER for R2007) and later are UTF-8, whatever their code page.
inline constexpr int kFirstUtf8Version = 1021;

/// The code page of earlier drawings that name none, or an unknown one.
inline constexpr int kDefaultCodePage = 932;

/// Returns whether a code page extends ASCII, in which records are written: EBCDIC pages, for example, cannot
/// be the encoding of a drawing. `decode` decodes bytes of the page.
template <typename Decode>
[[nodiscard]] bool extendsAscii(Decode decode) {
    constexpr std::string_view kSample = " +-09AZ\\^_az{}~";
    return decode(kSample) == std::wstring(kSample.begin(), kSample.end());
}

/// Returns the number of a code page by its name in drawings: "ANSI_932", "ansi_1252", "DOS850", "dos_437" or
/// one of the format's own names ("SHIFT_JIS" is not among them). Nullopt for an unknown name.
[[nodiscard]] std::optional<int> codePageNumber(std::string_view name);

/// Parses four hexadecimal digits at `at`.
[[nodiscard]] std::optional<unsigned> fourHexDigits(std::wstring_view text, std::size_t at);

/// The code pages of "\\M+1" ... "\\M+5".
inline constexpr std::array<int, 5> kMultiBytePages = {932, 950, 949, 1361, 936};

/// Decodes one or two bytes of a page (an index into kMultiBytePages); nullopt when the page is unavailable.
using PairDecoder = std::optional<std::wstring> (*)(std::size_t page, std::string_view bytes);

/// Returns decoded text with its escapes replaced: "\\U+XXXX" is a UTF-16 unit, "\\M+nXXXX" a character of an
/// East Asian code page, "^J" the control character of J and "^ " the caret itself. Malformed escapes stay as
/// they are.
[[nodiscard]] std::wstring withoutEscapes(std::wstring_view text, PairDecoder decodePair);

} // namespace zuhost::dxf
