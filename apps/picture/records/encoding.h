#pragma once

#include <QString>

#include <string_view>
#include <zuhost/text_codec.h>

namespace zu::picture {

/// The encoding of a drawing's texts: a code page or UTF-8, with escapes for other characters.
class Encoding {
public:
    /// By the version (1009 ... 1032) and the name of the code page ("ANSI_932"); an unknown one counts as
    /// code page 932. UTF-8 from R2007 on, and after a byte-order mark.
    void set(int version, std::string_view codePage, bool hasMark);

    [[nodiscard]] QString decode(std::string_view value) const;

private:
    zuhost::TextCodec codec_;
};

} // namespace zu::picture
