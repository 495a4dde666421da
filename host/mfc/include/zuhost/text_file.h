#pragma once

#include "text_codec.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zuhost {

/// How the bytes of a text file are to be read and written.
struct TextEncoding {
    enum class Kind { codePage932, utf8WithMark, utf16LittleEndian };

    Kind kind = Kind::codePage932;

    /// By the byte-order mark at the start of the bytes.
    static TextEncoding of(std::string_view bytes);
    [[nodiscard]] std::string_view mark() const;
    /// Bytes of a line feed, of which each character has a multiple.
    [[nodiscard]] std::size_t unit() const { return kind == Kind::utf16LittleEndian ? 2 : 1; }
    /// Text of bytes without the mark.
    [[nodiscard]] std::wstring decode(std::string_view bytes) const;
    /// The same into a place with room for one wide character a byte; returns how many there are.
    std::size_t decode(std::string_view bytes, wchar_t* text) const;
    /// Nullopt when a character can't be held.
    [[nodiscard]] std::optional<std::string> encode(std::wstring_view text) const;
};

/// The lines of a text as bytes, one after the other. A line ends at LF or CR LF, the text at the first
/// Ctrl-Z. No more of the text is held than the longest line.
class TextLines {
public:
    /// Reads the next bytes of the text into the place; fewer than asked only at its end.
    using Source = std::function<std::size_t(char* place, std::size_t size)>;

    /// Bytes; a longer line is taken for a sign that the file is no text.
    static constexpr std::size_t kLongestLine = std::size_t{1} << 24U;

    explicit TextLines(Source source) : source_(std::move(source)) {}

    /// The next line without mark and line end, valid until the next call; nullopt at the end. Throws
    /// std::length_error for a line of more than kLongestLine bytes.
    std::optional<std::string_view> next();
    /// Known once the first line was asked for.
    [[nodiscard]] const TextEncoding& encoding() const { return encoding_; }

private:
    [[nodiscard]] std::size_t lineFeed(std::string_view bytes, std::size_t from) const;
    [[nodiscard]] std::string_view take(std::size_t length, std::size_t lineEnd);
    void start();
    void readMore();
    void readInto(std::size_t from);
    void endAtControlZ(std::size_t from);

    Source source_;
    TextEncoding encoding_;
    std::vector<char> buffer_;
    std::size_t at_ = 0;  ///< Where the next line starts in the buffer.
    std::size_t end_ = 0; ///< Where what was read ends.
    bool complete_ = false;
};

} // namespace zuhost
