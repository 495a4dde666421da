#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zuhost {

/// Wide text as UTF-8; unpaired surrogates and what is no character become U+FFFD.
[[nodiscard]] std::string toUtf8(std::wstring_view text);

/// UTF-8 as wide text; each byte that belongs to no character becomes U+FFFD.
[[nodiscard]] std::wstring fromUtf8(std::string_view bytes);
/// The same into a place with room for one wide character a byte; returns how many there are.
std::size_t fromUtf8(std::string_view bytes, wchar_t* text);

/// Appends a character, as a surrogate pair where wchar_t is too small for it.
void appendCodePoint(std::wstring& text, char32_t codePoint);

/// The character that starts at `at`, which moves behind it; an unpaired surrogate is returned as it is.
[[nodiscard]] char32_t nextCodePoint(std::wstring_view text, std::size_t& at);

/// A code page: bytes into wide text and back. Copies share their tables.
class TextCodec {
public:
    /// UTF-8.
    TextCodec() = default;

    /// A code page by the platform's number: 932, 1252 ... , 65001 (UTF-8); nullopt for one that is not
    /// known.
    static std::optional<TextCodec> forCodePage(int number);

    [[nodiscard]] int codePage() const;

    /// Never fails: what is no character becomes one replacement (U+30FB in code page 932, as the platform
    /// has it, otherwise U+FFFD) and what follows keeps its place.
    [[nodiscard]] std::wstring decode(std::string_view bytes) const;
    /// The same into a place with room for one wide character a byte; returns how many there are.
    std::size_t decode(std::string_view bytes, wchar_t* text) const;

    /// Nullopt when a character has no place in the code page; nothing is replaced by something similar,
    /// except that code page 932 takes both Unicode forms of the wave dash, the minus sign, the double
    /// vertical line, the em dash, the cent, pound and not signs, which converters disagree about.
    [[nodiscard]] std::optional<std::string> encode(std::wstring_view text) const;

private:
    class Tables;

    std::shared_ptr<const Tables> tables_; ///< Null for UTF-8.
};

} // namespace zuhost
