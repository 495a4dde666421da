#pragma once

#include "dxf_records/plain_number.h"
#include "dxf_records/record_reader.h"
#include "dxf_records/take_record.h"

#include <cmath>
#include <string_view>

namespace zu::dxf {

using zuhost::dxf::TakenRecord;

// How values lie in the records of either form. A value that is no finite number is 0; of an integer the
// leading digits count.

struct AsciiForm {
    static TakenRecord take(const char* at, const char* end) { return zuhost::dxf::takeAsciiRecord(at, end); }
    static double real(std::string_view value) {
        double number = 0;
        return zuhost::parsePlainReal(value, number) ? number : otherReal(value);
    }
    static int integer(std::string_view value);

private:
    static double otherReal(std::string_view value);
};

struct BinaryForm {
    static TakenRecord take(const char* at, const char* end) {
        return zuhost::dxf::takeBinaryRecord(at, end);
    }
    /// Of a record whose group code means a real number.
    static double real(std::string_view value) {
        const double number = zuhost::dxf::realAt(value.data());
        return std::isfinite(number) ? number : 0;
    }
    /// Of a record whose group code means an integer.
    static int integer(std::string_view value);
};

/// 0 for a record whose group code means something else.
[[nodiscard]] double realOf(const zuhost::dxf::Record& record, bool binary);
[[nodiscard]] int integerOf(const zuhost::dxf::Record& record, bool binary);

} // namespace zu::dxf
