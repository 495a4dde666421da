#pragma once

#include "attributes/model/parameter_index.h"

#include <span>

namespace zu {

/// An item of the property list.
struct ShownItem {
    CString key; ///< The attribute id and "|".
    CString value;
    bool shared = true; ///< All entities have it: category "共通", else "一般".
};

/// The items of raw attribute lists, in the order in which they first occur; a value that is not the same on
/// all entities that have the item is "*各種*". Headers and strings without an id are left out, and so is an
/// id's second occurrence in one list, which no look-up reaches. Takes time linear in the strings, times the
/// logarithm of the different ids.
[[nodiscard]] std::vector<ShownItem> shownItems(std::span<const CStringArray* const> lists);

/// Puts the values of the property list into a raw list. Items that the list lacks, that may not be edited,
/// or whose value is "*各種*" are passed over, and so are values that hold "|", which a record can't keep.
/// True when a string changed.
bool applyItems(CStringArray& list, std::span<const ShownItem> items, const ParameterIndex& parameters);

} // namespace zu
