#include "plain_number.h"

#include <charconv>
#include <cmath>
#include <string>

namespace zu {

std::optional<double> plainNumber(std::wstring_view text) {
    if (text.starts_with(L'+'))
        text.remove_prefix(1);
    std::string digits;
    for (const wchar_t c : text)
        digits += static_cast<char32_t>(c) < 0x80 ? static_cast<char>(c) : '?';
    double number = 0.0;
    const char* const last = digits.data() + digits.size();
    const auto [end, error] = std::from_chars(digits.data(), last, number);
    const bool isNumber = error == std::errc() && end == last && std::isfinite(number);
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace zu
