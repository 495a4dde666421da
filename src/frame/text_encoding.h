#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zu {

/// How the bytes of a text file are read and written, by the mark at its start. For code that preserves the
/// bytes of lines; CStdioFile is enough to read lines.
class TextEncoding {
public:
    static TextEncoding of(std::string_view bytes);

    [[nodiscard]] std::string_view mark() const;
    [[nodiscard]] std::string_view lineFeed() const;

    /// Text of bytes without the mark; nullopt for more than the platform converts in one piece.
    [[nodiscard]] std::optional<std::wstring> decode(std::string_view bytes) const;
    /// Nullopt when a character can't be held.
    [[nodiscard]] std::optional<std::string> encode(std::wstring_view text) const;

    /// Where the line that starts at `from` ends, after its line feed.
    [[nodiscard]] std::size_t endOfLine(std::string_view bytes, std::size_t from) const;

private:
    enum class Kind { codePage932, utf8, utf16LittleEndian };
    explicit TextEncoding(Kind kind) : kind_(kind) {}

    Kind kind_;
};

/// Whether bytes without a mark are likely to be UTF-8: valid as such, and hardly a text in code page 932.
[[nodiscard]] bool isUnmarkedUtf8(std::string_view bytes);

} // namespace zu
