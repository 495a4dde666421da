#pragma once

#include <zuhost/platform/export.h>

#include <cstdint>
#include <vector>

namespace zuhost::platform {

/// A character of a code page with its bytes.
struct CodePageEntry {
    std::uint16_t bytes = 0; ///< One byte, or a pair: the lead byte times 256 plus the trail byte.
    char32_t character = 0;
    bool encodes = false; ///< The character is written with these bytes; others are only read.
};

/// Returns the single bytes and pairs that a code page maps to a character; none for an unknown code page.
ZUHOST_API std::vector<CodePageEntry> readCodePage(int number);

} // namespace zuhost::platform
