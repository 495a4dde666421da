#pragma once

#include "attribute_record.h"

namespace zu {

/// Returns an element of a table or of a list of raw lists.
[[nodiscard]] inline CStringArray& stringsAt(const CPtrArray& array, int index) {
    return *static_cast<CStringArray*>(array[index]);
}

/// Returns an element of an entity list.
[[nodiscard]] inline CPtrArray& tableAt(const CPtrArray& array, int index) {
    return *static_cast<CPtrArray*>(array[index]);
}

/// Columns of a row, then of a record of the parameter table.
inline constexpr int kNameColumn = 2;
inline constexpr int kIdColumn = 3;
inline constexpr int kValueColumn = 4;
inline constexpr int kNumberColumn = 7;
inline constexpr int kParameterKind = 1;
inline constexpr int kParameterText = 2;

/// Shown for an item whose values differ among the entities; never stored.
inline constexpr const wchar_t* kVarious = L"*各種*";

/// Deletes the CStringArray elements, the last first, and empties the array.
void deleteStrings(CPtrArray& array);

} // namespace zu
