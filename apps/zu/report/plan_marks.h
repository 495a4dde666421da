#pragma once

#include "report/output.h"

#include <functional>
#include <string>
#include <vector>

namespace zu::app {

/// A mark on the plan of a report: one finding, or several whose own marks would cover each other.
struct PlanMark {
    double x = 0.0;                    ///< Of its first finding, in widths of the plan.
    double y = 0.0;                    ///< In heights of the plan.
    std::vector<const Json*> findings; ///< In order of their numbers; within the report.

    /// True when one of them is an error.
    [[nodiscard]] bool isError() const;
    /// Its text: "3 8 9" for up to three, "3–7" for more in a row, "3 +5" for six others. `link` returns the
    /// number of a finding, as a link where there is one.
    [[nodiscard]] std::string text(const std::function<std::string(const Json& finding)>& link) const;
};

/// Returns the marks of a report's findings that have a place on the plan.
[[nodiscard]] std::vector<PlanMark> planMarks(const Json& report);

} // namespace zu::app
