#include "audit/problem_text.h"

#include <afxstr.h>
#include <zuhost/texts.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

using zu::ProblemText;
using zu::Rounded;

std::wstring formatted(double value) {
    CString text;
    text.Format(L"%.15g", std::round(value * 1000.0) / 1000.0 + 0.0);
    return std::wstring(zuhost::viewOf(text));
}

} // namespace

TEST(ProblemText, LengthsAreRoundedAndShortest) {
    const std::pair<double, const wchar_t*> cases[] = {{0.0, L"0"},
                                                       {-0.0, L"0"},
                                                       {-0.0004, L"0"},
                                                       {0.0005, L"0.001"},
                                                       {0.1 + 0.2, L"0.3"},
                                                       {100000, L"100000"},
                                                       {1e12, L"1000000000000"},
                                                       {1e15, L"1e+15"},
                                                       {-2700.4996, L"-2700.5"},
                                                       {999999999999.999, L"999999999999.999"}};
    for (const auto& [value, text] : cases)
        EXPECT_EQ((ProblemText() << Rounded{value}).take(), text);
    for (const double value : {std::numeric_limits<double>::infinity(), std::nan(""), 1e300, -1e300, 5e-324})
        EXPECT_EQ((ProblemText() << Rounded{value}).take(), formatted(value)) << value;
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const double scale = std::pow(10.0, static_cast<double>(random() % 19) - 4.0);
        const double value = (static_cast<double>(random() % 2000001) - 1e6) * scale / 1e6;
        EXPECT_EQ((ProblemText() << Rounded{value}).take(), formatted(value)) << value;
    }
}
