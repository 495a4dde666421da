#pragma once

#include "parameter_index.h"

#include <span>

namespace zu {

/// An item of the property list.
struct ShownItem {
    CString key; ///< The attribute id and "|".
    CString value;
    bool shared = true;  ///< All entities have the item: category "共通", else "一般".
    CString label{};     ///< The first label in the records.
    bool marked = false; ///< All records that have the item mark it editable.
};

/// Returns the items of raw attribute lists in order of first occurrence. Values that differ among the
/// entities become "*各種*"; trailing blanks of values are removed. Skips headers, strings without an id and
/// repeated ids of one list, which no look-up finds. Takes O(n log k) time for n strings with k distinct ids.
[[nodiscard]] std::vector<ShownItem> shownItems(std::span<const CStringArray* const> lists);

/// Returns whether the user may edit the item: the parameter table decides, without one the records' own
/// marks.
[[nodiscard]] bool isEditable(const ShownItem& item, const ParameterIndex& parameters);

/// Returns the items that can be written to records: the editable ones whose value is not "*各種*" and can be
/// held by a record.
[[nodiscard]] std::vector<ShownItem> writableItems(std::span<const ShownItem> items,
                                                   const ParameterIndex& parameters);

/// Writes the values of the items into a raw list, skipping items that the list lacks. Returns true when a
/// string changed.
bool applyItems(CStringArray& list, std::span<const ShownItem> writable);

} // namespace zu
