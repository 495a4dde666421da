#include "dxf_records/number_text.h"

#include "decimal_quotient.h"
#include "dxf_records/plain_number.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace zuhost {
namespace {

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view withoutPlus(std::string_view text) {
    const bool signedTwice = text.size() > 1 && (text[1] == '-' || text[1] == '+');
    return !text.empty() && text.front() == '+' && !signedTwice ? text.substr(1) : text;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return lower;
}

/// Parses "1.#IND", "1.#QNAN0" and "1.#INF00" of older C libraries.
std::optional<double> parseOldSpecial(std::string_view digits) {
    if (!digits.starts_with("1.#"))
        return std::nullopt;
    const std::string name = lowerCase(digits.substr(3));
    if (name.starts_with("inf"))
        return std::numeric_limits<double>::infinity();
    if (name.starts_with("ind") || name.starts_with("qnan") || name.starts_with("snan"))
        return std::numeric_limits<double>::quiet_NaN();
    return std::nullopt;
}

/// Returns "1.0E+20" for "1.0E 20".
std::optional<std::string> exponentWithPlus(std::string_view text) {
    const std::size_t exponent = text.find_first_of("eE");
    if (exponent == std::string_view::npos || exponent + 1 >= text.size() || text[exponent + 1] != ' ')
        return std::nullopt;
    const std::size_t digits = text.find_first_not_of(' ', exponent + 1);
    return std::string(text.substr(0, exponent + 1)) + '+' + std::string(text.substr(digits));
}

/// Fast path for numbers without exponent and with up to 19 digits. Returns false for others.
bool parseDecimal(std::string_view text, double& value) {
    constexpr std::size_t kLongest = 21; // with a sign and a point
    PlainDecimal decimal;
    if (text.size() > kLongest || !parsePlainDecimal(text, decimal))
        return false;
    return divideExactly(decimal, value) || divideRounding(decimal, value);
}

std::optional<double> parsePlain(std::string_view text) {
    double value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (stop != end)
        return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        const bool tiny =
            text.find("e-") != std::string_view::npos || text.find("E-") != std::string_view::npos;
        const double magnitude = tiny ? 0.0 : std::numeric_limits<double>::infinity();
        return text.front() == '-' ? -magnitude : magnitude;
    }
    return error == std::errc{} ? std::optional(value) : std::nullopt;
}

/// Parses a number with an exponent or many digits, and what is no number.
std::optional<double> parseUnusual(std::string_view number) {
    if (const auto value = parsePlain(number))
        return value;
    if (const auto repaired = exponentWithPlus(number))
        return parsePlain(*repaired);
    const bool negative = number.front() == '-';
    const auto special = parseOldSpecial(negative ? number.substr(1) : number);
    return special && negative ? std::optional(-*special) : special;
}

} // namespace

std::optional<double> parseReal(std::string_view text) {
    double value = 0;
    return parseReal(text, value) ? std::optional(value) : std::nullopt;
}

bool parseReal(std::string_view text, double& value) {
    // Heights, scales and normals mostly are "0.0" or "1.0".
    if (text.size() == 3 && text[1] == '.' && text[2] == '0' && text[0] >= '0' && text[0] <= '9') {
        value = text[0] - '0';
        return true;
    }
    if (parseDecimal(text, value))
        return true;
    const std::string_view number = withoutPlus(trimmed(text));
    if (number.empty())
        return false;
    if (number.size() < text.size() && parseDecimal(number, value))
        return true;
    const auto unusual = parseUnusual(number);
    value = unusual.value_or(value);
    return unusual.has_value();
}

std::optional<std::int64_t> parseInteger(std::string_view text) {
    const std::string_view number = withoutPlus(trimmed(text));
    std::int64_t value = 0;
    const char* const end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, value);
    return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

std::optional<std::uint64_t> parseHandle(std::string_view text) {
    const std::string_view digits = trimmed(text);
    if (digits.empty() || digits.size() > 16 || digits.front() == '-')
        return std::nullopt;
    std::uint64_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, 16);
    return error == std::errc{} && stop == end ? std::optional(value) : std::nullopt;
}

std::string formatReal(double value) {
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    std::string text(buffer.data(), end);
    if (text.find_first_of(".ein") == std::string::npos)
        text += ".0";
    return text;
}

std::string formatHandle(std::uint64_t value) {
    std::array<char, 16> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, 16);
    std::string text(buffer.data(), end);
    for (char& c : text)
        c = c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c;
    return text;
}

} // namespace zuhost
