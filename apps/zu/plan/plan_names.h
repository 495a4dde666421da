#pragma once

#include "plan/plan_elements.h"

#include <QColor>

namespace zu::app {

/// A route kind as the legend shows it.
struct KindName {
    int kind = 0;
    QString name;
    QColor colour;
};

/// Returns the route kinds of the elements that are shown, with names: the one that the settings give in
/// [経路種別] of "ZuConfig.ini" under the number of the kind, and the uses of its elements in the drawing.
[[nodiscard]] std::vector<KindName> kindNames(const std::vector<PlanElement>& elements);

} // namespace zu::app
