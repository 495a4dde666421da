#pragma once

#include "acutmem.h"
#include "dbid.h"

// Objects of the working database by name (ads_name) and as chains of their records. A name stays valid as
// long as its database is open, and is refused afterwards.

/// Sets the name of an object; eNullObjectId, and no name, for the null id.
Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id);
/// Returns the object with the name, erased or not; eInvalidAdsName, and the null id, when there is none.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
/// Sets the name of the object with the hexadecimal handle, erased or not; RTERROR when there is none.
int acdbHandEnt(const ACHAR* handle, ads_name name);
