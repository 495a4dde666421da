#include "dxf_records/number_text.h"
#include "dxf_records/record_reader.h"
#include "dxf_records/text_escapes.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <random>

namespace zuhost {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Numbers, RealsAsProgramsWriteThem) {
    const std::pair<const char*, double> good[] = {
        {"0", 0},
        {" 1.5 ", 1.5},
        {"+2.", 2},
        {"-.25", -0.25},
        {"1e3", 1000},
        {"1.0E 20", 1e20},
        {"1E+05", 1e5},
        {"1.#INF", kInfinity},
        {"-1.#INF00", -kInfinity},
        {"1e999", kInfinity},
        {"-1e-999", 0},
        {"0.1000000000000000055511151231257827", 0.1},
        {"123456789012345678901234567890", 123456789012345678901234567890.0},
        {"9007199254740993", 9007199254740993.0},
        {"8.5\r", 8.5},
        {"0.30000000000000004", 0.30000000000000004}};
    for (const auto& [text, value] : good)
        EXPECT_EQ(parseReal(text), value) << text;
    for (const char* text : {"", " ", "-", ".", "1,5", "abc", "1.5x", "+-1", "++1", "1e", "--1"})
        EXPECT_EQ(parseReal(text), std::nullopt) << text;
    EXPECT_TRUE(std::isnan(parseReal("-nan(ind)").value_or(0)));
    EXPECT_TRUE(std::signbit(parseReal("-0.0").value_or(0)));
}

TEST(Numbers, RealsRoundTrip) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const double scale = std::pow(10.0, static_cast<double>(random() % 30) - 15.0);
        const double value = (static_cast<double>(random() % 2000001) - 1e6) * scale;
        EXPECT_EQ(parseReal(formatReal(value)), value);
        // Numbers rounded to decimal places, as in drawings.
        char text[64];
        std::snprintf(text, sizeof text, "%.*f", static_cast<int>(random() % 17), value);
        EXPECT_EQ(parseReal(text), std::strtod(text, nullptr)) << text;
    }
}

TEST(Numbers, RealsOfManyDigitsAreRoundedCorrectly) {
    std::mt19937_64 random(2);
    const auto expectNearest = [](const std::string& text) {
        double nearest = 0;
        std::from_chars(text.data(), text.data() + text.size(), nearest);
        EXPECT_EQ(parseReal(text), nearest) << text;
    };
    for (int i = 0; i < 300000; ++i) {
        std::string text = std::to_string(random() >> random() % 14);
        text.insert(random() % (text.size() + 1), 1, '.');
        if (i % 2 == 0)
            text.insert(0, 1, '-');
        expectNearest(text);
    }
    // Just below, at and just above the middle between two doubles.
    for (std::uint64_t middle = (1ULL << 54U) + 2; middle < (1ULL << 60U); middle += middle / 7 * 4) {
        middle &= ~7ULL;
        const auto half =
            static_cast<std::uint64_t>(std::nextafter(static_cast<double>(middle), 1e30)) - middle;
        for (const std::uint64_t digits : {middle + half / 2 - 1, middle + half / 2, middle + half / 2 + 1})
            for (const char* const zeros : {"", ".0", ".00"})
                expectNearest(std::to_string(digits) + zeros);
    }
}

TEST(Numbers, BinaryValues) {
    EXPECT_EQ(dxf::binaryReal(std::string_view("\0\0\0\0\0\0\xF8\x3F", 8)), 1.5);
    const std::pair<std::string_view, std::int64_t> integers[] = {
        {"\xFF", 255},
        {"\xFE\xFF", -2},
        {"\xFF\xFF\xFF\x7F", 2147483647},
        {{"\0\0\0\0\0\0\0\x80", 8}, std::numeric_limits<std::int64_t>::min()}};
    for (const auto& [bytes, value] : integers)
        EXPECT_EQ(dxf::binaryInteger(bytes), value);
}

TEST(Names, CodePages) {
    const std::pair<const char*, std::optional<int>> names[] = {
        {"ANSI_932", 932}, {"ansi_1252", 1252}, {"DOS850", 850}, {"dos_437", 437}, {"gb2312", 936},
        {"UTF-8", 65001},  {"932", {}},         {"ANSI_", {}},   {"ANSI_9x", {}},  {"", {}}};
    for (const auto& [name, number] : names)
        EXPECT_EQ(dxf::codePageNumber(name), number) << name;
}

} // namespace
} // namespace zuhost
