#include "editor_drawing.h"

#include <cmath>
#include <numbers>
#include <random>

namespace {

constexpr double kPi = std::numbers::pi;
constexpr int kUnits = 5;

/// Sets variables of the drawing that determine how numbers are written.
class UnitText : public EditorDrawing {
protected:
    static void set(const wchar_t* name, int value) {
        resbuf item;
        item.restype = RTSHORT;
        item.resval.rint = static_cast<short>(value);
        EXPECT_EQ(acedSetVar(name, &item), RTNORM);
    }
    static void set(const wchar_t* name, double value) {
        resbuf item;
        item.restype = RTREAL;
        item.resval.rreal = value;
        EXPECT_EQ(acedSetVar(name, &item), RTNORM);
    }
    static std::wstring length(double value, int unit, int precision) {
        wchar_t text[600];
        EXPECT_EQ(acdbRToS(value, unit, precision, text), RTNORM);
        return text;
    }
    static std::wstring angle(double value, int unit, int precision) {
        wchar_t text[100];
        EXPECT_EQ(acdbAngToS(value, unit, precision, text), RTNORM);
        return text;
    }
};

/// Returns half of the last place that a text of the unit has.
double roundingOf(double value, int unit, int precision) {
    switch (unit) {
    case 1:
        return std::abs(value) * std::pow(10.0, -precision) / 2;
    case 4:
    case 5:
        return std::pow(2.0, -precision) / 2;
    default:
        return std::pow(10.0, -precision) / 2;
    }
}

TEST_F(UnitText, LengthsAreReadBackWithinTheirPrecision) {
    std::mt19937 random(7); // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable
    std::uniform_real_distribution<double> exponent(-3.0, 5.0);
    std::vector<double> values{0, 1, 12, 11.999999, 0.5, 100, 143.9999, 144, 1e-9};
    for (int i = 0; i < 40; ++i)
        values.push_back(std::pow(10.0, exponent(random)));
    for (const int suppression : {0, 1, 2, 3, 4, 8, 12, 15}) {
        set(L"DIMZIN", suppression);
        for (int unit = 1; unit <= kUnits; ++unit)
            for (const int precision : {0, 1, 4, 8})
                for (const double size : values)
                    for (const double value : {size, -size}) {
                        const std::wstring text = length(value, unit, precision);
                        double read = NAN;
                        ASSERT_EQ(acdbDisToF(text.c_str(), unit, &read), RTNORM)
                            << testing::PrintToString(text) << " of unit " << unit;
                        ASSERT_NEAR(read, value, roundingOf(value, unit, precision) * (1 + 1e-9) + 1e-15)
                            << testing::PrintToString(text);
                    }
    }
}

TEST_F(UnitText, LengthsCarryAndSuppressZeros) {
    struct Case {
        double value;
        int unit;
        int precision;
        int suppression;
        const wchar_t* text;
    };
    for (const Case& c : {
             Case{0.5, 2, 4, 4, L".5000"},        Case{0.5, 2, 4, 8, L"0.5"},
             Case{0.5, 2, 4, 12, L".5"},          Case{20.0, 2, 4, 8, L"20"},
             Case{0.0, 2, 2, 12, L"0"},           Case{99.999, 2, 2, 0, L"100.00"},
             Case{9.9999, 1, 2, 0, L"1.00E+01"},  Case{11.996, 3, 2, 0, L"1'"},
             Case{11.996, 3, 2, 1, L"1'-0.00\""}, Case{6.0, 3, 2, 1, L"0'-6.00\""},
             Case{6.0, 3, 2, 2, L"0'-6.00\""},    Case{6.0, 3, 2, 0, L"6.00\""},
             Case{24.0, 4, 4, 3, L"2'-0\""},      Case{24.0, 4, 4, 2, L"2'"},
             Case{0.0, 4, 4, 0, L"0\""},          Case{0.0, 4, 4, 1, L"0'-0\""},
             Case{2.96875, 5, 5, 0, L"2 31/32"},  Case{2.96875, 5, 4, 0, L"3"},
             Case{0.03, 5, 2, 0, L"0"},           Case{1e100, 2, 0, 0, nullptr},
         }) {
        set(L"DIMZIN", c.suppression);
        if (c.text != nullptr) {
            EXPECT_EQ(length(c.value, c.unit, c.precision), c.text);
        } else {
            EXPECT_EQ(length(c.value, c.unit, c.precision).size(), 101U) << "all digits";
        }
    }
    wchar_t text[50];
    for (const int unit : {3, 4, 5})
        EXPECT_EQ(acdbRToS(1e200, unit, 2, text), RTERROR) << "has no fractions";
    set(L"DIMZIN", 0);
    set(L"LUNITS", 4);
    set(L"LUPREC", 3);
    EXPECT_EQ(length(15.625, -1, -1), L"1'-3 5/8\"") << "the drawing's units";
    wchar_t small[5];
    EXPECT_EQ(acdbRToS(15.625, -1, -1, small), RTNORM);
    EXPECT_STREQ(small, L"1'-3") << "cut";
}

TEST_F(UnitText, AnglesAreReadBackWithinTheirPrecision) {
    // Half of the last place, in radians: of degrees, of minutes or seconds, of grads, of radians.
    const auto rounding = [](int unit, int precision) {
        const double decimals = std::pow(10.0, -precision);
        if (unit == 2)
            return decimals * kPi / 400;
        if (unit == 3)
            return decimals / 2;
        if (unit == 0)
            return decimals * kPi / 360;
        const double degree = precision == 0  ? 1.0
                              : precision < 3 ? 1.0 / 60
                              : precision < 5 ? 1.0 / 3600
                                              : std::pow(10.0, 4 - precision) / 3600;
        return degree * kPi / 360;
    };
    const double angles[] = {0,   1e-9, 0.1,       kPi / 4, kPi / 2,        2.0,  kPi - 1e-7,
                             kPi, 4.0,  1.5 * kPi, 5.0,     2 * kPi - 1e-9, -0.3, 7.0};
    for (const double base : {0.0, kPi / 2, 4.0}) {
        for (const int clockwise : {0, 1}) {
            set(L"ANGBASE", base);
            set(L"ANGDIR", clockwise);
            for (int unit = 0; unit <= 4; ++unit)
                for (int precision = 0; precision <= 8; ++precision)
                    for (const double value : angles) {
                        const std::wstring text = angle(value, unit, precision);
                        double read = NAN;
                        ASSERT_EQ(acdbAngToF(text.c_str(), unit, &read), RTNORM)
                            << testing::PrintToString(text);
                        EXPECT_GE(read, 0.0);
                        EXPECT_LT(read, 2 * kPi);
                        ASSERT_NEAR(std::remainder(read - value, 2 * kPi), 0.0,
                                    rounding(unit, precision) * (1 + 1e-6) + 1e-12)
                            << testing::PrintToString(text) << " of unit " << unit << " for " << value;
                        EXPECT_EQ(text.find(L"60'"), std::wstring::npos) << "sixty minutes are a degree";
                        EXPECT_EQ(text.find(L"60\""), std::wstring::npos);
                    }
        }
    }
}

TEST_F(UnitText, AnglesAreMeasuredFromTheBaseInTheDirection) {
    struct Case {
        double base;
        int clockwise;
        double value;
        int unit;
        const wchar_t* text;
    };
    for (const Case& c : {
             Case{kPi / 2, 0, kPi, 0, L"90.00"},
             Case{kPi / 2, 1, kPi, 0, L"270.00"},
             Case{0, 1, kPi / 4, 0, L"315.00"},
             Case{0, 0, -kPi / 4, 2, L"350.00g"},
             Case{kPi / 2, 1, kPi / 4, 4, L"N 45d0' E"}, // bearings name directions of the world
             Case{1.0, 0, kPi, 4, L"W"},
             Case{0, 0, 1.75 * kPi, 4, L"S 45d0' E"},
         }) {
        set(L"ANGBASE", c.base);
        set(L"ANGDIR", c.clockwise);
        EXPECT_EQ(angle(c.value, c.unit, 2), c.text);
    }
    double read = 0.0;
    for (const int unit : {-2, 5}) {
        wchar_t text[20];
        EXPECT_EQ(acdbAngToS(1.0, unit, 2, text), RTERROR);
        EXPECT_EQ(acdbAngToF(L"1", unit, &read), RTERROR);
    }
    EXPECT_EQ(acdbAngToF(nullptr, 0, &read), RTERROR);
    EXPECT_EQ(acdbAngToF(L"1", 0, nullptr), RTERROR);
    EXPECT_EQ(acdbDisToF(nullptr, -1, &read), RTERROR);
    EXPECT_EQ(acdbDisToF(L"1", 6, &read), RTERROR);
}

TEST_F(UnitText, TextsThatAreNoNumbersLeaveTheResult) {
    const std::wstring longest(100'000, L'9');
    for (const std::wstring& text :
         {std::wstring(L" "), std::wstring(L"."), std::wstring(L"1.2.3"), std::wstring(L"1e"),
          std::wstring(L"0x10"), std::wstring(L"1'2'"), std::wstring(L"1/"), std::wstring(L"/2"),
          std::wstring(L"1-2"), std::wstring(L"\u0661"), std::wstring(L"\u0131"), std::wstring(L"1,5"),
          std::wstring(L"nan"), std::wstring(L"infinity"), std::wstring(L"1e400"), longest}) {
        double read = 42.0;
        EXPECT_EQ(acdbDisToF(text.c_str(), -1, &read), RTERROR) << testing::PrintToString(text.substr(0, 20));
        EXPECT_EQ(read, 42.0);
    }
}

} // namespace
