#pragma once

#include "acutmem.h"
#include "zuhost/buffer_size.h"
#include "zuhost/command_line.h"
#include "zuhost/list_value.h"

#include <afxstr.h>
#include <zuhost/platform/export.h>

#include <array>

/// Prints on the host's command line (zuhost/command_line.h). The arguments are checked against the format as
/// in CString::Format. Returns RTNORM; RTERROR for a null format.
template <typename... Arguments>
int acutPrintf(const wchar_t* format, const Arguments&... arguments) {
    if (format == nullptr)
        return RTERROR;
    CString text;
    text.Format(format, arguments...);
    zuhost::printToCommandLine(text.GetString());
    return RTNORM;
}

/// Returns a new chain of the types (group codes or RT codes) and values in turn, which ends with the
/// arguments, RTNONE or 0; RTDXF0 stands for group code 0. Points and names are copied, texts too. The caller
/// frees it with acutRelRb. Null for an unknown type and for a value that is missing or of the wrong kind.
template <typename... Arguments>
[[nodiscard]] resbuf* acutBuildList(int type, const Arguments&... arguments) {
    const std::array<zuhost::ListValue, sizeof...(Arguments) + 1> values{zuhost::listValue(type),
                                                                         zuhost::listValue(arguments)...};
    return zuhost::buildList(values);
}

/// Returns the angle in radians, 0 to 2 pi, of the direction from one point to the other in the XY plane.
ZUHOST_API ads_real acutAngle(const ads_point from, const ads_point to);
/// Returns the distance between two points in space.
ZUHOST_API ads_real acutDistance(const ads_point a, const ads_point b);
/// Sets `result` to the point at a distance from `from`, in the direction of an angle in radians in the XY
/// plane.
ZUHOST_API void acutPolar(const ads_point from, ads_real angle, ads_real distance, ads_point result);

/// Returns RTNORM when the text matches the pattern, RTERROR when it does not and for null texts. Case
/// matters. In a pattern "#" is a digit, "@" a letter, "." neither of both, "?" any character, "*" any
/// characters, "[...]" one of the characters, "[~...]" one of the others, "-" in brackets a range; "`" makes
/// the next character plain,
/// "~" at the start negates the pattern, "," separates alternatives.
ZUHOST_API int acutWcMatch(const ACHAR* text, const ACHAR* pattern);
