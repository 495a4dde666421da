#pragma once

#include <zuhost/platform/export.h>

namespace zuhost {

/// Determines how lengths and angles are written.
struct UnitSettings {
    int lengthUnit = 2;
    int lengthPrecision = 4;
    int angleUnit = 0;
    int anglePrecision = 0;
    double angleBase = 0.0; ///< In radians.
    bool isClockwise = false;
    int zeroSuppression = 0; ///< DIMZIN.
};

/// Returns the angle from the x axis as measured from the base in the settings' direction, 0 to 2 pi.
[[nodiscard]] ZUHOST_API double fromAngleBase(double angle, const UnitSettings& settings);

/// Returns the settings of the working drawing; the usual ones without one.
[[nodiscard]] ZUHOST_API UnitSettings unitSettings();

/// Returns the angle in [0, 2 pi).
[[nodiscard]] ZUHOST_API double withinTurn(double angle);

} // namespace zuhost
