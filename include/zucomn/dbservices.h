#pragma once

#include "export.h"

#include <acarray.h>
#include <dbid.h>

// Queries on the working drawing: which ids still refer to live objects, and which groups contain an element.
// No function shows a message; all of them close the objects that they open.

/// Returns 0 when the object can be opened for reading, 1 when it is erased or missing or the id is null.
ZUCOMN_API int ZuComn_ExistenceIdCheck(AcDbObjectId id);

/// Removes the ids of erased and missing objects from the array; the order of the others is preserved.
ZUCOMN_API void ZuComn_ExistenceIdChecks(AcArray<AcDbObjectId>& ids);

/// Removes the element from the group if the element is erased or missing.
ZUCOMN_API void ZuComn_ExistenceGroupIdCheck(AcDbObjectId group, AcDbObjectId element);

/// Removes all erased and missing members from the group.
ZUCOMN_API void ZuComn_ExistenceGroupIdChecks(AcDbObjectId group);

/// Removes the ids of erased and missing objects from the array and from the group.
ZUCOMN_API void ZuComn_ExistenceGroupIdChecks(AcDbObjectId group, AcArray<AcDbObjectId>& ids);

/// Appends the groups among the element's persistent reactors to `groups`, each once, in reactor order,
/// whether or not they list the element. Erased elements are accepted. Returns 0 on success, also when there
/// are no such groups; -1 with `groups` untouched when the element cannot be opened or has no reactor list.
ZUCOMN_API int ZuComn_GetGroupID(AcDbObjectId element, AcArray<AcDbObjectId>& groups);

/// Returns the element's group for a link kind: its only group, whatever the kind, or the first of several
/// groups whose first member has this kind in its "ZU_LINK" record. Returns the null id when there is none.
/// Throws the framework's invalid-argument exception when the link record of a first member is empty, because
/// such an element is corrupt.
ZUCOMN_API AcDbObjectId ZuComn_GetGroupID(AcDbObjectId element, int linkKind);
