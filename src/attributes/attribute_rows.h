#pragma once

#include "attribute_record.h"

namespace zu {

/// The list of strings that an element of a table or list is.
[[nodiscard]] inline CStringArray& stringsAt(const CPtrArray& array, int index) {
    return *static_cast<CStringArray*>(array[index]);
}

/// The table that an element of an entity list is.
[[nodiscard]] inline CPtrArray& tableAt(const CPtrArray& array, int index) {
    return *static_cast<CPtrArray*>(array[index]);
}

/// The columns of a row, and of the records of the title and parameter tables, by meaning.
inline constexpr int kNameColumn = 2;
inline constexpr int kIdColumn = 3;
inline constexpr int kValueColumn = 4;
inline constexpr int kNumberColumn = 7;
inline constexpr int kParameterKind = 1;
inline constexpr int kParameterText = 2;

/// The value shown for an item that several entities have with different values; never stored.
inline constexpr const wchar_t* kVarious = L"*各種*";

/// Deletes lists of strings, the last first, and empties the array.
void deleteStrings(CPtrArray& array);

} // namespace zu
