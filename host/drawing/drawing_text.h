#pragma once

#include "zuhost/text_codec.h"

#include <string>
#include <string_view>

namespace zuhost {

/// How a drawing holds text: a code page (or UTF-8), with escapes for what that lacks.
///
/// "\U+XXXX" is a UTF-16 unit, "\M+nXXXX" a character of one of five East Asian code pages; "^J" is the
/// control character of J and "^ " the caret itself.
class DrawingText {
public:
    /// UTF-8.
    DrawingText() = default;

    /// The encoding of a drawing of the version (1009 ... 1032) that names the code page ("ANSI_932"). From
    /// R2007 on it is UTF-8 whatever the page. Code page 932 when the name is not known (`known` is then
    /// false) or empty.
    static DrawingText of(int version, std::string_view codePageName, bool& known);

    [[nodiscard]] std::wstring decode(std::string_view value) const;

    /// The value with "^J" and "^M" replaced by the line ends that they stand for.
    [[nodiscard]] std::string withLineEnds(std::string_view value) const;

    /// Never fails: what the encoding lacks is written as "\U+XXXX".
    [[nodiscard]] std::string encode(std::wstring_view text) const;

private:
    TextCodec codec_;
};

} // namespace zuhost
