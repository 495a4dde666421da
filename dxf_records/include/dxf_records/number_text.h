#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zuhost {

/// Numbers as the text of drawings spells them, independent of any locale. Blanks around a number are
/// allowed.

/// A real number. Besides the usual spellings: "1.0E 20" (some writers drop the plus of the exponent), and
/// not-a-number and infinity as different C libraries print them ("nan", "-nan(ind)", "1.#IND", "1.#INF").
/// Magnitudes beyond the range of double read as infinity or 0.
[[nodiscard]] std::optional<double> parseReal(std::string_view text);

/// A decimal integer, with an optional sign.
[[nodiscard]] std::optional<std::int64_t> parseInteger(std::string_view text);

/// One to sixteen hexadecimal digits.
[[nodiscard]] std::optional<std::uint64_t> parseHandle(std::string_view text);

/// The shortest decimal text that reads back as the same number, always with a point or an exponent.
[[nodiscard]] std::string formatReal(double value);

/// Upper-case hexadecimal digits without leading zeros.
[[nodiscard]] std::string formatHandle(std::uint64_t value);

} // namespace zuhost
