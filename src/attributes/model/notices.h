#pragma once

#include <afxstr.h>
#include <dbid.h>

#include <span>
#include <vector>

namespace zu {

// The lines above a property list that say why it does not show or edit all that it could.

/// Says which of the library's tables are missing; empty when none is. `usesMarks`: items are editable by the
/// marks of the records while the parameter table is missing.
[[nodiscard]] std::vector<CString> tableNotices(bool usesMarks);

/// The elements of a selection that an edit skips.
struct LockedElements {
    std::size_t count = 0;
    CString layer; ///< The locked layer of the first one.
};
[[nodiscard]] LockedElements lockedAmong(std::span<const AcDbObjectId> elements);

/// Says how many of the selected elements an edit skips; empty when none.
[[nodiscard]] CString lockNotice(const LockedElements& locked, std::size_t selected);

} // namespace zu
