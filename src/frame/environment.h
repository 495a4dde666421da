#pragma once

#include <afx.h>

#include <optional>

namespace zu {

/// Section of the environment settings, in the master settings file and in "ZuConfig.ini".
inline constexpr const wchar_t* kEnvironmentSection = L"環境設定";

// Keys of the part folders in that section of the master settings file.
inline constexpr const wchar_t* kRouteParts = L"経路部品";
inline constexpr const wchar_t* kStandardParts = L"標準部品";

/// Returns a value of the environment section of the master settings file; nullopt when it is missing.
[[nodiscard]] std::optional<CString> environmentSetting(const wchar_t* key);

/// Returns the same for a section and key that language modules may rename: `keyId` is the id of the key's
/// text.
[[nodiscard]] std::optional<CString> namedEnvironmentSetting(unsigned keyId);

} // namespace zu
