#pragma once

#include "gepnt3d.h"

namespace zuhost {

/// LASTPOINT: the point entered last.
[[nodiscard]] AcGePoint3d lastPoint();
void setLastPoint(const AcGePoint3d& point);

/// ERRNO: why the last selection failed.
enum class InputError : short { none = 0, missedPick = 7, emptyReply = 52 };
void setInputError(InputError error);

} // namespace zuhost
