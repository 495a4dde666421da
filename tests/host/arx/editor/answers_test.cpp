#include "editor_drawing.h"

#include <cmath>
#include <numbers>

namespace {

using Answers = EditorDrawing;

constexpr double kUntouched = -77.0;

/// An input function with a number as its result.
using Ask = int (*)(double& result);

int askReal(double& result) {
    return acedGetReal(L"", &result);
}
int askInteger(double& result) {
    int integer = static_cast<int>(kUntouched);
    const int code = acedGetInt(L"", &integer);
    result = integer;
    return code;
}
int askDistance(double& result) {
    return acedGetDist(nullptr, L"", &result);
}
int askAngle(double& result) {
    return acedGetAngle(nullptr, L"", &result);
}
int askOrientation(double& result) {
    return acedGetOrient(nullptr, L"", &result);
}
int askPoint(double& result) {
    ads_point point{kUntouched, 0, 0};
    const int code = acedGetPoint(nullptr, L"", point);
    result = point[X];
    return code;
}
int askCorner(double& result) {
    const ads_point base{0, 0, 0};
    ads_point point{kUntouched, 0, 0};
    const int code = acedGetCorner(base, L"", point);
    result = point[X];
    return code;
}
constexpr Ask kAsking[] = {askReal, askInteger, askDistance, askAngle, askOrientation, askPoint, askCorner};

TEST_F(Answers, OtherThanValuesLeaveTheResultOfEachFunction) {
    struct Case {
        const wchar_t* typed;
        int flags;
        int code;
        const wchar_t* keyword; ///< Null when there is none.
    };
    for (const Case& c : {
             Case{L"\n", 0, RTNONE, nullptr},
             Case{L" ", 0, RTNONE, nullptr},
             Case{L"Exit ", 0, RTKWORD, L"Exit"},
             Case{L"e ", 0, RTKWORD, L"Exit"},
             Case{L"_e ", 0, RTKWORD, L"Exit"},
             Case{L"anything ", RSG_OTHER, RTKWORD, L"anything"},
             Case{L"\n\nexit ", RSG_NONULL, RTKWORD, L"Exit"},
             Case{L"\x03", 0, RTCAN, nullptr},
             Case{L"nonsense \x1b", 0, RTCAN, nullptr},
             Case{L"", 0, RTCAN, nullptr},
             Case{L"\n\n", RSG_NONULL, RTCAN, nullptr},
         }) {
        for (std::size_t function = 0; function < std::size(kAsking); ++function) {
            SCOPED_TRACE(testing::PrintToString(std::wstring(c.typed)) + " to " + std::to_string(function));
            type(c.typed);
            EXPECT_EQ(acedInitGet(c.flags, L"Exit Undo"), RTNORM);
            double result = kUntouched;
            EXPECT_EQ(kAsking[function](result), c.code);
            EXPECT_EQ(result, kUntouched);
            wchar_t keyword[40] = L"none";
            if (c.keyword != nullptr) {
                EXPECT_EQ(acedGetInput(keyword), RTNORM);
                EXPECT_STREQ(keyword, c.keyword);
            }
            type(L"Exit ");
            EXPECT_EQ(kAsking[function](result), RTCAN) << "keywords are for one call";
        }
    }
    EXPECT_EQ(acedInitGet(-1, L"Exit"), RTERROR);
    EXPECT_EQ(acedInitGet(0x10000, L"Exit"), RTERROR);
    EXPECT_EQ(acedInitGet(0, nullptr), RTNORM);
}

TEST_F(Answers, NumbersOutsideTheFlagsAreAskedForAgain) {
    struct Case {
        Ask ask;
        const wchar_t* typed;
        int flags;
        double value;
    };
    for (const Case& c : {
             Case{askReal, L"-0.0 -1 0 2 ", RSG_NOZERO | RSG_NONEG, 2.0},
             Case{askReal, L"-1 ", RSG_NOZERO, -1.0},
             Case{askReal, L"0 ", RSG_NONEG, 0.0},
             Case{askInteger, L"0 -3 4 ", RSG_NOZERO | RSG_NONEG, 4.0},
             Case{askInteger, L"-3 ", RSG_NOZERO, -3.0},
             Case{askInteger, L"99999 -32769 +5 ", 0, 5.0},
             Case{askInteger, L"- + 1- +-5 6 ", 0, 6.0},
             // The low bytes of these letters are digits.
             Case{askInteger, L"\u0131 \u0435 7 ", 0, 7.0},
             Case{askDistance, L"-1 0 3 ", RSG_NOZERO | RSG_NONEG, 3.0},
             Case{askAngle, L"x 180 ", 0, std::numbers::pi},
             Case{askPoint, L"5 x,y 1, ,1 @x 8,9 ", 0, 8.0},
         }) {
        type(c.typed);
        acedInitGet(c.flags, nullptr);
        double result = kUntouched;
        EXPECT_EQ(c.ask(result), RTNORM) << testing::PrintToString(std::wstring(c.typed));
        EXPECT_DOUBLE_EQ(result, c.value) << testing::PrintToString(std::wstring(c.typed));
    }
}

TEST_F(Answers, DistancesBetweenPointsMayIgnoreTheHeight) {
    const ads_point base{1, 1, 5};
    double distance = 0.0;
    for (const auto& [flags, expected] : {std::pair{0, std::sqrt(50.0)}, {int{RSG_2D}, 5.0}}) {
        type(L"4,5,10 ");
        acedInitGet(flags, nullptr);
        EXPECT_EQ(acedGetDist(base, L"", &distance), RTNORM);
        EXPECT_DOUBLE_EQ(distance, expected);
        type(L"1,1,5 4,5,10 ");
        acedInitGet(flags, nullptr);
        EXPECT_EQ(acedGetDist(nullptr, L"", &distance), RTNORM) << "of two points";
        EXPECT_DOUBLE_EQ(distance, expected);
    }
    distance = kUntouched;
    type(L"1,1 \x1b");
    EXPECT_EQ(acedGetDist(nullptr, L"", &distance), RTCAN);
    EXPECT_EQ(distance, kUntouched);
}

TEST_F(Answers, TheLastPointFollowsThePointsEntered) {
    ads_point point;
    const ads_point base{100, 100, 0};
    type(L"3,4 @1,1 @ @2<90 @1,1 ");
    const struct {
        const ads_real* base;
        AcGePoint3d expected;
    } steps[] = {{nullptr, {3, 4, 0}},
                 {nullptr, {4, 5, 0}},
                 {nullptr, {4, 5, 0}},
                 {nullptr, {4, 7, 0}},
                 {base, {101, 101, 0}}};
    for (const auto& step : steps) {
        ASSERT_EQ(acedGetPoint(step.base, L"", point), RTNORM);
        EXPECT_LT(asPnt3d(point).distanceTo(step.expected), 1e-12);
        resbuf last;
        ASSERT_EQ(acedGetVar(L"LASTPOINT", &last), RTNORM);
        EXPECT_LT(asPnt3d(last.resval.rpoint).distanceTo(step.expected), 1e-12);
    }
}

TEST_F(Answers, ExpressionsCancelsAndLineEndsSeparateWords) {
    wchar_t text[60];
    const struct {
        const wchar_t* typed;
        bool line;
        int code;
        const wchar_t* text;
        const wchar_t* rest; ///< The next word.
    } cases[] = {
        {L"one\r\ntwo\r\n", false, RTNORM, L"one", L"two"},
        {L"one two\r\nthree ", true, RTNORM, L"one two", L"three"},
        {L"(handent \"2F (\") next ", false, RTNORM, L"(handent \"2F (\")", L"next"},
        {L"(open next ", false, RTNORM, L"(open", L"next"},
        {L"\tone ", false, RTNORM, L"", L"one"},
        {L"\x1bword ", false, RTCAN, L"", L"word"},
        {L"a\x1b word ", false, RTNORM, L"a\x1b", L"word"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(c.typed)));
        type(c.typed);
        text[0] = L'\0';
        EXPECT_EQ(acedGetString(c.line ? 1 : 0, nullptr, text), c.code);
        EXPECT_STREQ(text, c.text);
        EXPECT_EQ(acedGetString(0, nullptr, text), RTNORM);
        EXPECT_STREQ(text, c.rest);
    }
    const std::wstring longest(300'000, L'x');
    type((longest + L" \n").c_str());
    std::vector<wchar_t> buffer(longest.size() + 1);
    EXPECT_EQ(acedGetString(0, L"", buffer.data(), buffer.size()), RTNORM);
    EXPECT_EQ(std::wstring(buffer.data()), longest);
    EXPECT_EQ(acedGetString(0, L"", buffer.data(), 0), RTERROR);
}

TEST_F(Answers, ASourceOfLinesIsReadToItsEnd) {
    std::vector<std::wstring> lines{L"5", L"", L"1,2 7"};
    std::size_t next = 0;
    zuhost::setInputSource([&]() -> std::optional<std::wstring> {
        return next < lines.size() ? std::optional(lines[next++]) : std::nullopt;
    });
    double value = 0.0;
    ads_point point;
    EXPECT_EQ(acedGetReal(nullptr, &value), RTNORM);
    EXPECT_EQ(value, 5.0);
    EXPECT_EQ(acedGetReal(nullptr, &value), RTNONE) << "an empty line is a plain Enter";
    EXPECT_EQ(acedGetPoint(nullptr, nullptr, point), RTNORM);
    EXPECT_EQ(acedGetReal(nullptr, &value), RTNORM);
    EXPECT_EQ(value, 7.0);
    EXPECT_EQ(acedGetReal(nullptr, &value), RTCAN);
    EXPECT_EQ(acedGetReal(nullptr, &value), RTCAN) << "and stays at the end";
}

} // namespace
