#pragma once

#include "text_codec.h"

#include <zuhost/platform/export.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace zuhost {

/// The encoding of a text file.
struct ZUHOST_API TextEncoding {
    enum class Kind { codePage932, utf8WithMark, utf16LittleEndian };

    Kind kind = Kind::codePage932;

    /// Determines the encoding by the byte-order mark at the start of the bytes.
    static TextEncoding of(std::string_view bytes);
    [[nodiscard]] std::string_view mark() const;
    /// Returns the size of a code unit in bytes.
    [[nodiscard]] std::size_t unit() const { return kind == Kind::utf16LittleEndian ? 2 : 1; }
    /// Decodes bytes without the mark.
    [[nodiscard]] std::wstring decode(std::string_view bytes) const;
    /// Decodes into a buffer with room for one wide character per byte; returns the number of characters.
    std::size_t decode(std::string_view bytes, wchar_t* text) const;
    /// Returns nullopt when the encoding cannot represent a character.
    [[nodiscard]] std::optional<std::string> encode(std::wstring_view text) const;
};

/// Some complete lines of a text as bytes.
class ZUHOST_API TextBlock {
public:
    /// Returns the next line without mark and line end, valid as long as the block; nullopt at its end.
    std::optional<std::string_view> next();
    [[nodiscard]] bool atEnd() const { return at_ == end_; }
    /// Returns whether the text is known to end with this block.
    [[nodiscard]] bool isLast() const { return last_; }
    [[nodiscard]] const TextEncoding& encoding() const { return encoding_; }

private:
    friend class TextBlocks;

    [[nodiscard]] std::string_view left() const { return {bytes_.get() + at_, end_ - at_}; }
    /// Grows the buffer and preserves its contents.
    void reserve(std::size_t room);

    TextEncoding encoding_;
    std::unique_ptr<char[]> bytes_;
    std::size_t room_ = 0;
    std::size_t at_ = 0; ///< Where the next line starts.
    std::size_t end_ = 0;
    bool last_ = false;
};

/// Reads a text in blocks. A line ends in LF or CR LF, the text at the first Ctrl-Z. Holds at most about two
/// blocks or the longest line.
class ZUHOST_API TextBlocks {
public:
    /// Reads the next bytes of the text into a buffer; fewer than `size` only at its end.
    using Source = std::function<std::size_t(char* place, std::size_t size)>;

    /// Default size of a block in bytes.
    static constexpr std::size_t kBlock = std::size_t{1} << 17U;
    /// In bytes; a longer line indicates that the file is not a text.
    static constexpr std::size_t kLongestLine = std::size_t{1} << 24U;

    /// A source that does not begin at the start of the text needs a known encoding.
    explicit TextBlocks(Source source, std::optional<TextEncoding> encoding = std::nullopt)
        : source_(std::move(source)), encoding_(encoding) {}

    /// Fills the block with the next lines, at least one and about `size` bytes; returns false at the end.
    /// Throws std::length_error for a line of more than kLongestLine bytes.
    bool next(TextBlock& block, std::size_t size = kBlock);

private:
    void readInto(TextBlock& block);
    /// Moves the bytes after the last line end to the next block; returns false when there is no line end.
    bool keepWholeLines(TextBlock& block);

    Source source_;
    std::optional<TextEncoding> encoding_; ///< Known with the first bytes.
    std::string rest_;                     ///< The start of a line.
    bool complete_ = false;
};

} // namespace zuhost
