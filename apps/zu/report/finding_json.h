#pragma once

#include "model/audit.h"
#include "report/output.h"

namespace zu::app {

/// A finding as `zu check --json` prints it.
[[nodiscard]] Json findingJson(const Finding& finding);

} // namespace zu::app
