#pragma once

#include "dxf_records/plain_number.h"

namespace zuhost {

/// Sets the double nearest to a number of more than 2^53 digits. Returns false and leaves it untouched for
/// more than 18 places, and for one number of some hundreds: when it is too near to the middle between two
/// doubles.
[[nodiscard]] bool divideRounding(const PlainDecimal& decimal, double& value);

} // namespace zuhost
