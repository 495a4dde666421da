#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zu {

/// How the bytes of a text file are read and written, told by the mark at its start. For those who have to
/// keep the bytes of lines; who only reads lines uses CStdioFile.
class TextEncoding {
public:
    static TextEncoding of(std::string_view bytes);

    [[nodiscard]] std::string_view mark() const;
    [[nodiscard]] std::string_view lineFeed() const;

    /// Text of bytes without the mark; nullopt for more than the platform converts in one piece.
    [[nodiscard]] std::optional<std::wstring> decode(std::string_view bytes) const;
    /// Nullopt when a character can't be held.
    [[nodiscard]] std::optional<std::string> encode(std::wstring_view text) const;

    /// Where the line that starts at `from` ends, behind its line feed.
    [[nodiscard]] std::size_t endOfLine(std::string_view bytes, std::size_t from) const;

private:
    enum class Kind { codePage932, utf8, utf16LittleEndian };
    explicit TextEncoding(Kind kind) : kind_(kind) {}

    Kind kind_;
};

} // namespace zu
