#pragma once

#include "../export.h"

namespace zucomn {

/// True when a settings, table or link information file is likely to be in UTF-8 but has no byte-order mark,
/// so that it is read in code page 932: its first MiB is valid UTF-8 with characters beyond ASCII, and hardly
/// a text in code page 932. False when the file can't be read.
[[nodiscard]] ZUCOMN_API bool isUnmarkedUtf8(const wchar_t* path);

/// True when ZuComn_SaveLinkInfo takes the pair, as far as the encoding of the file can hold it.
[[nodiscard]] ZUCOMN_API bool isLinkPair(const wchar_t* key, const wchar_t* value);

} // namespace zucomn
