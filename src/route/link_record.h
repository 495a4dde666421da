#pragma once

#include "route_kinds.h"

#include <string_view>

class AcDbObject;

namespace zu {

/// Application name of the extended data that stores the link record.
inline constexpr const wchar_t* kLinkApplication = L"ZU_LINK";

/// Link kind of the first string of a link record; -1 unless the first field is one digit from 0 to
/// kLastLinkKind.
[[nodiscard]] constexpr int linkKind(std::wstring_view text) {
    const int digit = text.size() >= 2 && text[1] == L'|' ? text[0] - L'0' : -1;
    return digit >= 0 && digit <= kLastLinkKind ? digit : -1;
}

/// Link kind of an object's link record; -1 without a readable one.
[[nodiscard]] int linkKindOf(const AcDbObject& object);

} // namespace zu
