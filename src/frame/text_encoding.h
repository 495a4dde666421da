#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zu {

/// The encoding of a text file, chosen by the byte-order mark at its start. For code that preserves the bytes
/// of lines; CStdioFile is enough to read lines.
class TextEncoding {
public:
    static TextEncoding of(std::string_view bytes);

    [[nodiscard]] std::string_view mark() const;
    [[nodiscard]] std::string_view lineFeed() const;

    /// Decodes bytes without the mark; returns nullopt when there are more than the platform converts at
    /// once.
    [[nodiscard]] std::optional<std::wstring> decode(std::string_view bytes) const;
    /// Returns nullopt when the encoding cannot represent a character.
    [[nodiscard]] std::optional<std::string> encode(std::wstring_view text) const;

    /// Returns the position after the line feed of the line that starts at `from`, or the end of the bytes.
    [[nodiscard]] std::size_t endOfLine(std::string_view bytes, std::size_t from) const;

private:
    enum class Kind { codePage932, utf8, utf16LittleEndian };
    explicit TextEncoding(Kind kind) : kind_(kind) {}

    Kind kind_;
};

/// Returns whether bytes without a mark are probably UTF-8: valid UTF-8, and unlikely as code page 932.
[[nodiscard]] bool isUnmarkedUtf8(std::string_view bytes);

} // namespace zu
