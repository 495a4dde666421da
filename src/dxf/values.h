#pragma once

#include "dxf_records/plain_number.h"
#include "dxf_records/record_reader.h"
#include "dxf_records/scan_record.h"

#include <cmath>
#include <string_view>

namespace zu::dxf {

using zuhost::dxf::ScannedRecord;

// How ASCII and binary records store values. A number followed by other text is read up to that text; a value
// that is not a finite number is read as 0.

/// A number and the problem of its record: a constant text, empty for a valid number.
template <typename Number>
struct ReadNumber {
    Number number = 0;
    std::string_view problem;
};

inline constexpr std::string_view kNotFinite = "the number is not finite: 0 is used";

struct AsciiForm {
    static ScannedRecord scan(const char* at, const char* end) {
        return zuhost::dxf::scanAsciiRecord(at, end);
    }
    static constexpr bool kHasLines = true;
    /// Parses nearly every number; returns false for the others.
    static bool plainReal(std::string_view value, double& number) {
        return zuhost::parsePlainReal(value, number);
    }
    static ReadNumber<double> real(std::string_view value);
    static ReadNumber<int> integer(std::string_view value);
};

struct BinaryForm {
    static ScannedRecord scan(const char* at, const char* end) {
        return zuhost::dxf::scanBinaryRecord(at, end);
    }
    static constexpr bool kHasLines = false;
    /// For records whose group code denotes a real number.
    static bool plainReal(std::string_view value, double& number) {
        number = zuhost::dxf::realAt(value.data());
        return std::isfinite(number);
    }
    static ReadNumber<double> real(std::string_view value);
    /// For records whose group code denotes an integer.
    static ReadNumber<int> integer(std::string_view value);
};

/// Returns 0 for a record whose group code denotes another type of value.
[[nodiscard]] ReadNumber<double> realOf(const zuhost::dxf::Record& record, bool binary);
[[nodiscard]] ReadNumber<int> integerOf(const zuhost::dxf::Record& record, bool binary);

} // namespace zu::dxf
