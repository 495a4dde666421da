#include "values.h"

#include "dxf_records/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace zu::dxf {

namespace {

using zuhost::dxf::ValueType;

int narrowed(std::int64_t value) {
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

double AsciiForm::otherReal(std::string_view value) {
    const double number = zuhost::parseReal(value).value_or(0);
    return std::isfinite(number) ? number : 0;
}

int AsciiForm::integer(std::string_view value) {
    value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
    if (value.starts_with('+'))
        value.remove_prefix(1);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    if (error == std::errc::result_out_of_range)
        return value.starts_with('-') ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    return narrowed(number);
}

int BinaryForm::integer(std::string_view value) {
    return narrowed(zuhost::dxf::binaryInteger(value));
}

double realOf(const zuhost::dxf::Record& record, bool binary) {
    // Nothing is left of the value where reading has ended.
    if (record.value.empty() || zuhost::dxf::valueType(record.code) != ValueType::real)
        return 0;
    return binary ? BinaryForm::real(record.value) : AsciiForm::real(record.value);
}

int integerOf(const zuhost::dxf::Record& record, bool binary) {
    if (!zuhost::dxf::isInteger(zuhost::dxf::valueType(record.code)))
        return 0;
    return binary ? BinaryForm::integer(record.value) : AsciiForm::integer(record.value);
}

} // namespace zu::dxf
