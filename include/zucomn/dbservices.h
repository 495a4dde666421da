#pragma once

#include "export.h"

#include <acarray.h>
#include <dbid.h>

// Services on the working drawing: which ids still name live objects, and which groups hold an element.
// Nothing here shows a message; every object that is opened is closed again.

/// 1 when the object is gone (erased, never there, or the null id), 0 when it exists. The sense is inverted
/// on purpose.
ZUCOMN_API int ZuComn_ExistenceIdCheck(AcDbObjectId id);

/// Removes from the array every id whose object is gone; the others keep their order.
ZUCOMN_API void ZuComn_ExistenceIdChecks(AcArray<AcDbObjectId>& ids);

/// Removes the element from the group when the element is gone.
ZUCOMN_API void ZuComn_ExistenceGroupIdCheck(AcDbObjectId group, AcDbObjectId element);

/// Removes from the group every member that is gone.
ZUCOMN_API void ZuComn_ExistenceGroupIdChecks(AcDbObjectId group);

/// Removes every id of the array that is gone, from the array and from the group.
ZUCOMN_API void ZuComn_ExistenceGroupIdChecks(AcDbObjectId group, AcArray<AcDbObjectId>& ids);

/// Appends the groups that hold the element, each once, in the order of the element's reactors: those that it
/// names as reactors, whether they list it or not. An erased element is looked at as well. 0, also when no
/// group holds it; -1 when the element can't be opened or has no reactor list.
ZUCOMN_API int ZuComn_GetGroupID(AcDbObjectId element, AcArray<AcDbObjectId>& groups);

/// The group of the element that serves a link kind: the only one when there is just one, whatever its kind;
/// else the first whose first member carries the kind in its "ZU_LINK" record. The null id when there is
/// none. Throws the framework's invalid-argument exception for a first member whose link record is empty:
/// such an element is corrupt.
ZUCOMN_API AcDbObjectId ZuComn_GetGroupID(AcDbObjectId element, int linkKind);
