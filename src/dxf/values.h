#pragma once

#include "dxf_records/plain_number.h"
#include "dxf_records/record_reader.h"
#include "dxf_records/take_record.h"

#include <cmath>
#include <string_view>

namespace zu::dxf {

using zuhost::dxf::TakenRecord;

// How values lie in the records of either form. A number that other text follows counts by its leading part;
// a value that is no finite number is 0.

/// A number with what is wrong with its spelling: a constant text, empty for a good number.
template <typename Number>
struct ReadNumber {
    Number number = 0;
    std::string_view problem;
};

inline constexpr std::string_view kNotFinite = "the number is not finite: 0 is used";

struct AsciiForm {
    static TakenRecord take(const char* at, const char* end) { return zuhost::dxf::takeAsciiRecord(at, end); }
    static constexpr bool kHasLines = true;
    /// Nearly every number; false for others.
    static bool plainReal(std::string_view value, double& number) {
        return zuhost::parsePlainReal(value, number);
    }
    static ReadNumber<double> real(std::string_view value);
    static ReadNumber<int> integer(std::string_view value);
};

struct BinaryForm {
    static TakenRecord take(const char* at, const char* end) {
        return zuhost::dxf::takeBinaryRecord(at, end);
    }
    static constexpr bool kHasLines = false;
    // Of a record whose group code means a real number.
    static bool plainReal(std::string_view value, double& number) {
        number = zuhost::dxf::realAt(value.data());
        return std::isfinite(number);
    }
    static ReadNumber<double> real(std::string_view value);
    /// Of a record whose group code means an integer.
    static ReadNumber<int> integer(std::string_view value);
};

/// 0 for a record whose group code means another kind of value.
[[nodiscard]] ReadNumber<double> realOf(const zuhost::dxf::Record& record, bool binary);
[[nodiscard]] ReadNumber<int> integerOf(const zuhost::dxf::Record& record, bool binary);

} // namespace zu::dxf
