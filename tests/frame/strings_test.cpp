#include "sample_settings.h"
#include "texts.h"

#include <zucomn/strings.h>
#include <zuhost/file_ops.h>

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(Strings, Separate) {
    const std::pair<const wchar_t*, Texts> cases[] = {{L"a, b ,,c", {L"a", L"b", L"", L"c"}},
                                                      {L"  whole text ", {L"  whole text "}},
                                                      {L"", {L""}},
                                                      {L",", {L"", L""}}};
    for (const auto& [text, expectedFields] : cases) {
        CStringArray fields;
        EXPECT_EQ(ZuComn_SeparateString(text, fields, L','), static_cast<int>(expectedFields.size())) << text;
        EXPECT_EQ(textsOf(fields), expectedFields) << text;
    }
}

TEST(Strings, Split) {
    const std::tuple<const wchar_t*, const wchar_t*, int, Texts> cases[] = {
        {L" a |b  |", nullptr, 0, {L" a", L"b", L""}},
        {L"a|b|c", L"2,3", 0, {L"b", L"c"}},
        {L"a|b", L"7", -1, {}},
        {L"", nullptr, -1, {}},
        {L"||", nullptr, 0, {L"", L"", L""}}};
    for (const auto& [text, columns, result, expectedFields] : cases) {
        CStringArray fields;
        EXPECT_EQ(ZuComn_GetSplitString(text, fields, columns, L"|x"), result) << text;
        EXPECT_EQ(textsOf(fields), expectedFields) << text;
    }
}

// Long texts: their memory is soon reused if the input is freed too early.
TEST(Strings, SplitsAFieldIntoItsOwnList) {
    const Texts pieces{std::wstring(100, L'a'), std::wstring(100, L'b'), std::wstring(100, L'c')};
    const std::wstring whole = pieces[0] + L"|" + pieces[1] + L"|" + pieces[2];
    CStringArray fields;
    fields.Add(whole.c_str());
    EXPECT_EQ(ZuComn_GetSplitString(fields[0], fields, nullptr, L"|"), 0);
    EXPECT_EQ(textsOf(fields), pieces);
    fields.RemoveAll();
    fields.Add(whole.c_str());
    EXPECT_EQ(ZuComn_SeparateString(fields[0], fields, L'|'), 3);
    EXPECT_EQ(textsOf(fields), pieces);
}

TEST(Strings, PathParts) {
    const std::tuple<const wchar_t*, int, const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*>
        cases[] = {{L"C:\\a\\b\\part-01.dxf", 1, L"C:\\a", L"part-01.dxf", L"part-01", L"dxf"},
                   {L"C:\\a\\b\\part-01.dxf", 9, L"C:\\a\\b", L"part-01.dxf", L"part-01", L"dxf"},
                   {L"C:\\a.b\\file", 0, L"C:", L"file", L"", L"b\\file"},
                   {L"file.x", 0, L"", L"", L"", L"x"},
                   {L".profile", 0, L"", L"", L"", L""}};
    for (const auto& [path, level, expectedDirectory, expectedName, expectedTitle, expectedExtension] :
         cases) {
        wchar_t directory[MAX_PATH];
        wchar_t name[MAX_PATH];
        wchar_t title[MAX_PATH];
        wchar_t extension[MAX_PATH];
        ZuComn_ExtractFileName(directory, name, title, extension, path, level);
        EXPECT_STREQ(directory, expectedDirectory) << path;
        EXPECT_STREQ(name, expectedName) << path;
        EXPECT_STREQ(title, expectedTitle) << path;
        EXPECT_STREQ(extension, expectedExtension) << path;
        ZuComn_ExtractFileName(nullptr, nullptr, nullptr, nullptr, path, level);
    }
}

TEST(Numbers, RoundingAndAngles) {
    const std::pair<double, double> roundings[] = {{2.5, 3},   {-2.5, -2}, {-2.6, -3},
                                                   {-0.59, 0}, {0.5, 1},   {-0.5, 0}};
    for (const auto& [value, rounded] : roundings) {
        EXPECT_EQ(ZuComn_C4O5I(value), rounded) << value;
        EXPECT_EQ(std::signbit(ZuComn_C4O5I(value)), std::signbit(rounded)) << value;
    }
    const std::pair<double, double> angles[] = {
        {-30, 330}, {720, 0}, {1.0e6, 1.0e6}, {359.5, 359.5}, {-36000, 0}};
    for (const auto& [angle, normalized] : angles)
        EXPECT_EQ(ZUComn_AngleAptitude(angle), normalized) << angle;
}

TEST(Numbers, RealFormat) {
    const std::tuple<double, int, int, const wchar_t*> cases[] = {
        {12.3456, 2, 0, L"12.35"},
        {-12.3456, 2, 0, L"-12.35"},
        {0.0, 3, 0, L"0"},
        {2.5, 0, 0, L"2"},
        {2.5, 0, 1, L"3"},
        {-2.5, 0, 1, L"-3"},
        {0.001, 3, 0, L"0.001"},
        {0.00012, 5, 0, L"0.00012"},
        {-0.0005, 4, 0, L"-0.0005"},
        {1234567.5, 1, 0, L"1234567.5"},
        {1e-9, 3, 0, L"0.00"},
        {0.0003, 1, 0, L"0"},
        {-0.5, 2, 0, L"-0.5"},
        {0.0005, 20, 0, L"0.0005"},
        {0.0003, 5, 0, L"0.0003"},
        {0.000199, 5, 0, L"0.0002"},
        {0.00012345678901234567, 20, 0, L"0.000123456789012345671298"},
        {-2.5e9, 0, 0, L"-2500000000"},
        {2.5e9, 0, 1, L"2500000000"},
        {1e20, 0, 0, L"100000000000000000000"},
        {2500000000000.25, 2, 0, L"2500000000000.25"},
        {-0.3, 0, 0, L"0"},
        {3e9, 1, 0, L"3000000000"}};
    for (const auto& [value, precision, rounding, text] : cases)
        EXPECT_STREQ(ZuComn_RealFormat(value, precision, rounding), text) << value << ' ' << precision;
}

} // namespace
