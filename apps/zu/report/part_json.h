#pragma once

#include "report/output.h"

#include <zucomn/dxf.h>

namespace zu::app {

/// A part drawing as `zu part --json` prints it: values as stored, null for records that are not in the file.
[[nodiscard]] Json partToJson(const CAcadDxf& part);

} // namespace zu::app
