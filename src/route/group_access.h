#pragma once

#include <afxstr.h>
#include <dbid.h>

#include <optional>

namespace zu {

/// The group of that name in the group dictionary of the working drawing; the null id when there is none.
[[nodiscard]] AcDbObjectId findGroup(const CString& name);

/// Members in group order; nullopt when the group can't be opened.
[[nodiscard]] std::optional<AcDbObjectIdArray> groupMembers(AcDbObjectId group);

/// The ids that can become members of a group of the drawing, each once: those of its live entities. nullopt
/// when one of them is open elsewhere.
[[nodiscard]] std::optional<AcDbObjectIdArray> usableMembers(const AcDbObjectIdArray& ids,
                                                             const AcDbDatabase* drawing);

/// True when the object's groups can be changed now: it can be opened for write, or is an entity on a locked
/// layer.
[[nodiscard]] bool canBeChanged(AcDbObjectId object);
/// True when the group can be opened for write now, and nothing else holds its dictionary open.
[[nodiscard]] bool canBeDeleted(AcDbObjectId group);

/// The group's name in the group dictionary; nullopt when the group can't be opened or has none.
[[nodiscard]] std::optional<CString> groupName(AcDbObjectId group);

/// True for "RTGR..." and "*A...".
[[nodiscard]] bool isRouteGroupName(const CString& name);

/// The number by which route groups are ranked.
[[nodiscard]] int groupNumber(const CString& name);

} // namespace zu
