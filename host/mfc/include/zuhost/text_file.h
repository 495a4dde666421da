#pragma once

#include "text_codec.h"

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
    /// Text of bytes without the mark.
    [[nodiscard]] std::wstring decode(std::string_view bytes) const;
    /// Nullopt when a character can't be held.
    [[nodiscard]] std::optional<std::string> encode(std::wstring_view text) const;
};

/// The lines of a text, one after the other, in the encoding that its mark names. A line ends at LF or CR LF,
/// the text at the first Ctrl-Z. Only whole lines are decoded.
class TextLines {
public:
    explicit TextLines(std::string bytes);

    /// False at the end.
    bool next(std::wstring& line);
    [[nodiscard]] const TextEncoding& encoding() const { return encoding_; }

private:
    [[nodiscard]] std::size_t lineEnd() const;

    std::string bytes_;
    TextEncoding encoding_;
    std::size_t at_ = 0;
};

} // namespace zuhost
