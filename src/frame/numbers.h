#pragma once

namespace zu {

/// The number of digits behind the point that the settings ask for; 0 when they don't say.
[[nodiscard]] int configuredPrecision();

} // namespace zu
