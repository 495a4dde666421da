#pragma once

#include "adsdef.h"

#include <zuhost/platform/export.h>

#include <string_view>

class AcDbDatabase;

namespace zuhost {

/// Sets `value` to the variable of the drawing's header, named without "$": RTSTR (the caller frees the
/// text), RTSHORT, RTLONG, RTREAL, RTPOINT or RT3DPOINT. A variable that the header lacks has its usual
/// value. Returns false for an unknown one.
ZUHOST_API bool headerVariable(const AcDbDatabase& database, std::wstring_view name, resbuf& value);

/// Sets the variable, or adds it, and notifies the database's reactors. Returns false, and changes nothing,
/// for an unknown or read-only variable and for a value of another kind, beyond 16 bits or out of the
/// variable's range. Undo does not restore it.
ZUHOST_API bool setHeaderVariable(AcDbDatabase& database, std::wstring_view name, const resbuf& value);

} // namespace zuhost
