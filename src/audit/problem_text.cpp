#include "problem_text.h"

#include "frame/text_view.h"

#include <afxstr.h>

#include <array>
#include <charconv>
#include <cmath>

namespace zu {

namespace {

constexpr double kSteps = 1000.0; ///< In one drawing unit.

/// Appends what `convert` writes to the buffer; returns false when it does not fit.
template <typename Convert>
bool appendDigits(std::wstring& text, Convert convert) {
    std::array<char, 32> digits{};
    const std::to_chars_result result = convert(digits.data(), digits.data() + digits.size());
    if (result.ec == std::errc{})
        text.append(digits.data(), result.ptr);
    return result.ec == std::errc{};
}

} // namespace

ProblemText& ProblemText::operator<<(int number) {
    appendDigits(text_, [number](char* first, char* last) { return std::to_chars(first, last, number); });
    return *this;
}

ProblemText& ProblemText::operator<<(Rounded number) {
    constexpr double kLargestPlain = 1e12; // Smaller ones have at most 15 digits.
    // Adding 0.0 turns a negative zero, which would be written "-0", into a positive one.
    const double rounded = std::round(number.value * kSteps) / kSteps + 0.0;
    const auto convert = [rounded](char* first, char* last) {
        return std::to_chars(first, last, rounded, std::chars_format::fixed);
    };
    if (std::abs(rounded) < kLargestPlain && appendDigits(text_, convert))
        return *this;
    CString text;
    text.Format(L"%.15g", rounded);
    return *this << zu::view(text);
}

ProblemText& ProblemText::operator<<(AcDbObjectId object) {
    ACHAR buffer[17];
    object.handle().getIntoAsciiBuffer(buffer);
    return *this << buffer;
}

ProblemText& ProblemText::operator<<(const AcGePoint3d& place) {
    return *this << Rounded{place.x} << L", " << Rounded{place.y};
}

} // namespace zu
