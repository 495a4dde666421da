#pragma once

#include "text_codec.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

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

/// Some whole lines of a text as bytes.
class TextBlock {
public:
    /// The next line without mark and line end, valid as long as the block; nullopt at its end.
    std::optional<std::string_view> next();
    [[nodiscard]] bool atEnd() const { return at_ == end_; }
    /// The text is known to end with this block.
    [[nodiscard]] bool isLast() const { return last_; }
    [[nodiscard]] const TextEncoding& encoding() const { return encoding_; }

private:
    friend class TextBlocks;

    [[nodiscard]] std::string_view left() const { return {bytes_.get() + at_, end_ - at_}; }
    /// Keeps what there is.
    void reserve(std::size_t room);

    TextEncoding encoding_;
    std::unique_ptr<char[]> bytes_;
    std::size_t room_ = 0;
    std::size_t at_ = 0; ///< Where the next line starts.
    std::size_t end_ = 0;
    bool last_ = false;
};

/// Reads a text in blocks. A line ends at LF or CR LF, the text at the first Ctrl-Z. No more of it is held
/// than about two blocks or the longest line.
class TextBlocks {
public:
    /// Reads the next bytes of the text into the place; fewer than asked only at its end.
    using Source = std::function<std::size_t(char* place, std::size_t size)>;

    /// Bytes of a block, where nothing else is asked for.
    static constexpr std::size_t kBlock = std::size_t{1} << 17U;
    /// Bytes; a longer line is taken for a sign that the file is no text.
    static constexpr std::size_t kLongestLine = std::size_t{1} << 24U;

    /// Where the source doesn't begin at the text's start, the encoding has to be known.
    explicit TextBlocks(Source source, std::optional<TextEncoding> encoding = std::nullopt)
        : source_(std::move(source)), encoding_(encoding) {}

    /// Fills the block with the next lines, at least one and about so many bytes; false at the end. Throws
    /// std::length_error for a line of more than kLongestLine bytes.
    bool next(TextBlock& block, std::size_t size = kBlock);

private:
    void readInto(TextBlock& block);
    /// Keeps what follows the last line end for the next block; false when there is none.
    bool keepWholeLines(TextBlock& block);

    Source source_;
    std::optional<TextEncoding> encoding_; ///< Known with the first bytes.
    std::string rest_;                     ///< The start of a line.
    bool complete_ = false;
};

} // namespace zuhost
