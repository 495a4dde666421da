#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zuhost {

// Conversion between numbers and the text of drawings, independent of any locale. Blanks around a number are
// allowed.

/// Parses a real number. Also accepts "1.0E 20" (some writers omit the plus of the exponent), and NaN and
/// infinity as different C libraries print them ("nan", "-nan(ind)", "1.#IND", "1.#INF"). Magnitudes beyond
/// the range of double give infinity or 0.
[[nodiscard]] std::optional<double> parseReal(std::string_view text);
/// Faster, for many numbers. Returns false and leaves the value untouched when the text is no number.
bool parseReal(std::string_view text, double& value);

/// Parses a decimal integer with an optional sign.
[[nodiscard]] std::optional<std::int64_t> parseInteger(std::string_view text);

/// Parses one to sixteen hexadecimal digits.
[[nodiscard]] std::optional<std::uint64_t> parseHandle(std::string_view text);

/// Returns the shortest decimal text that reads back as the same number, with a decimal point or an exponent.
[[nodiscard]] std::string formatReal(double value);

/// Returns upper-case hexadecimal digits without leading zeros.
[[nodiscard]] std::string formatHandle(std::uint64_t value);

} // namespace zuhost
