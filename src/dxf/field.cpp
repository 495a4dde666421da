#include "field.h"

#include "drawing/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace zu::dxf {

namespace {

using zuhost::dxf::ValueType;

double finite(double value) {
    return std::isfinite(value) ? value : 0;
}

int narrowed(std::int64_t value) {
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

int leadingInteger(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.starts_with('+'))
        text.remove_prefix(1);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range)
        return text.starts_with('-') ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    return narrowed(value);
}

} // namespace

double realOf(const zuhost::dxf::Record& record, bool binary) {
    if (!binary)
        return finite(zuhost::parseReal(record.value).value_or(0));
    const bool isReal = zuhost::dxf::valueType(record.code) == ValueType::real;
    return isReal ? finite(zuhost::dxf::binaryReal(record.value)) : 0;
}

int integerOf(const zuhost::dxf::Record& record, bool binary) {
    if (!binary)
        return leadingInteger(record.value);
    return zuhost::dxf::isInteger(zuhost::dxf::valueType(record.code))
               ? narrowed(zuhost::dxf::binaryInteger(record.value))
               : 0;
}

std::size_t textLimit(bool binary) {
    return binary ? 255 : 512;
}

} // namespace zu::dxf
