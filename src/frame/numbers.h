#pragma once

namespace zu {

/// Returns the number of decimal places set in the configuration; 0 when it is not set.
[[nodiscard]] int configuredPrecision();

} // namespace zu
