#pragma once

#include "../export.h"

namespace zucomn {

/// Returns true when a settings, table or link information file is probably in UTF-8 but has no byte-order
/// mark, so that the library reads it in code page 932: the first MiB is valid UTF-8 with characters beyond
/// ASCII, and unlikely to be text in code page 932. Returns false when the file cannot be read.
[[nodiscard]] ZUCOMN_API bool isUnmarkedUtf8(const wchar_t* path);

/// Returns true when ZuComn_SaveLinkInfo accepts the pair, provided that the encoding of the file can
/// represent it.
[[nodiscard]] ZUCOMN_API bool isLinkPair(const wchar_t* key, const wchar_t* value);

} // namespace zucomn
