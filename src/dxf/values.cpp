#include "values.h"

#include "dxf_records/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace zu::dxf {

namespace {

using zuhost::dxf::ValueType;

constexpr std::string_view kNoNumber = "the number is missing: 0 is used";
constexpr std::string_view kOtherText = "other text follows the number and is ignored";
constexpr std::string_view kTooLarge = "the number is too large: the nearest possible one is used";

ReadNumber<int> narrowed(std::int64_t value) {
    const std::int64_t nearest =
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    return {static_cast<int>(nearest), nearest == value ? std::string_view() : kTooLarge};
}

/// Removes leading blanks and a plus sign.
std::string_view withoutStart(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.starts_with('+'))
        text.remove_prefix(1);
    return text;
}

} // namespace

ReadNumber<double> AsciiForm::real(std::string_view value) {
    if (const auto number = zuhost::parseReal(value))
        return {std::isfinite(*number) ? *number : 0,
                std::isfinite(*number) ? std::string_view() : kNotFinite};
    const std::string_view text = withoutStart(value);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc::invalid_argument)
        return {0, kNoNumber};
    if (error != std::errc() || !std::isfinite(number))
        return {0, kNotFinite};
    return {number, kOtherText};
}

ReadNumber<int> AsciiForm::integer(std::string_view value) {
    const std::string_view text = withoutStart(value);
    std::int64_t number = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number);
    if (error == std::errc::invalid_argument)
        return {0, kNoNumber};
    if (error == std::errc::result_out_of_range)
        return narrowed(text.starts_with('-') ? std::numeric_limits<std::int64_t>::min()
                                              : std::numeric_limits<std::int64_t>::max());
    ReadNumber<int> read = narrowed(number);
    if (std::string_view(end, last).find_first_not_of(" \t\r") != std::string_view::npos)
        read.problem = kOtherText;
    return read;
}

ReadNumber<double> BinaryForm::real(std::string_view value) {
    double number = 0;
    if (plainReal(value, number))
        return {number, {}};
    return {0, kNotFinite};
}

ReadNumber<int> BinaryForm::integer(std::string_view value) {
    return narrowed(zuhost::dxf::binaryInteger(value));
}

ReadNumber<double> realOf(const zuhost::dxf::Record& record, bool binary) {
    // After the end of reading the record has no value.
    if (record.value.empty() || zuhost::dxf::valueType(record.code) != ValueType::real)
        return {};
    return binary ? BinaryForm::real(record.value) : AsciiForm::real(record.value);
}

ReadNumber<int> integerOf(const zuhost::dxf::Record& record, bool binary) {
    if (record.value.empty() || !zuhost::dxf::isInteger(zuhost::dxf::valueType(record.code)))
        return {};
    return binary ? BinaryForm::integer(record.value) : AsciiForm::integer(record.value);
}

} // namespace zu::dxf
