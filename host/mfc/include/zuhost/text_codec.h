#pragma once

#include <zuhost/platform/export.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zuhost {

/// Encodes wide text as UTF-8; unpaired surrogates and invalid code points become U+FFFD.
[[nodiscard]] ZUHOST_API std::string toUtf8(std::wstring_view text);

/// Decodes UTF-8; each byte of a malformed sequence becomes U+FFFD.
[[nodiscard]] ZUHOST_API std::wstring fromUtf8(std::string_view bytes);
/// Decodes into a buffer with room for one wide character per byte; returns the number of characters.
ZUHOST_API std::size_t fromUtf8(std::string_view bytes, wchar_t* text);

/// Appends a character, as a surrogate pair where wchar_t is too small for it.
ZUHOST_API void appendCodePoint(std::wstring& text, char32_t codePoint);

/// Returns the character at `at` and advances `at` past it; returns an unpaired surrogate as it is.
[[nodiscard]] ZUHOST_API char32_t nextCodePoint(std::wstring_view text, std::size_t& at);

/// Converts between the bytes of a code page and wide text. Copies share their tables.
class ZUHOST_API TextCodec {
public:
    /// UTF-8.
    TextCodec() = default;

    /// Returns the codec of a code page by the platform's number: 932, 1252, ..., 65001 (UTF-8); nullopt for
    /// an unknown one.
    static std::optional<TextCodec> forCodePage(int number);

    [[nodiscard]] int codePage() const;

    /// Never fails: an invalid byte or pair becomes one replacement character (U+30FB in code page 932, as on
    /// the platform, otherwise U+FFFD).
    [[nodiscard]] std::wstring decode(std::string_view bytes) const;
    /// Decodes into a buffer with room for one wide character per byte; returns the number of characters.
    std::size_t decode(std::string_view bytes, wchar_t* text) const;

    /// Returns nullopt when the code page cannot represent a character. No best-fit replacement, except that
    /// code page 932 accepts both Unicode forms of the wave dash, the minus sign, the double vertical line,
    /// the em dash, the broken bar and the cent, pound and not signs, which converters map differently.
    [[nodiscard]] std::optional<std::string> encode(std::wstring_view text) const;

private:
    class Tables;

    std::shared_ptr<const Tables> tables_; ///< Null for UTF-8.
};

} // namespace zuhost
