#pragma once

#include "zuhost/text_codec.h"

#include <string>
#include <string_view>

namespace zuhost {

/// The encoding of texts in a drawing: a code page or UTF-8, with escapes for other characters.
///
/// "\U+XXXX" is a UTF-16 unit, "\M+nXXXX" a character of one of five East Asian code pages; "^J" is the
/// control character of J and "^ " the caret itself.
class DrawingText {
public:
    /// UTF-8.
    DrawingText() = default;

    /// Returns the encoding of a drawing of the version (1009 ... 1032) with the code page ("ANSI_932"). From
    /// R2007 on it is UTF-8, and the page is ignored. An empty or unknown name (`known` is then false) gives
    /// code page 932.
    static DrawingText of(int version, std::string_view codePageName, bool& known);

    [[nodiscard]] std::wstring decode(std::string_view value) const;
    void decode(std::string_view value, std::wstring& text) const;

    /// Returns the value with "^J" and "^M" replaced by LF and CR.
    [[nodiscard]] std::string withLineEnds(std::string_view value) const;

    /// Never fails: characters outside the encoding are written as "\U+XXXX".
    [[nodiscard]] std::string encode(std::wstring_view text) const;

private:
    TextCodec codec_;
};

} // namespace zuhost
