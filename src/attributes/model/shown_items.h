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
/// id's second occurrence in one list, which no look-up reaches. Blanks at the end of values are left out.
/// Takes time linear in the strings, times the logarithm of the different ids.
[[nodiscard]] std::vector<ShownItem> shownItems(std::span<const CStringArray* const> lists);

/// The items of the property list that may be written: without such that may not be edited, whose value is
/// "*各種*", or whose value holds "|", which a record can't keep.
[[nodiscard]] std::vector<ShownItem> writableItems(std::span<const ShownItem> items,
                                                   const ParameterIndex& parameters);

/// Puts the values of writable items into a raw list; items that the list lacks are passed over. True when a
/// string changed.
bool applyItems(CStringArray& list, std::span<const ShownItem> writable);

} // namespace zu
