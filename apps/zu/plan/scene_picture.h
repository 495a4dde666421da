#pragma once

#include "plan/plan_scene.h"

#include <string>

namespace zu::app {

/// Draws the plan into a PNG or SVG file, by its ending. Routes are coloured by link kind; joined connection
/// points are filled, dangling ones are rings. Throws Failure when the file can't be written.
void drawPlan(const PlanScene& scene, const std::string& file, int width);

} // namespace zu::app
