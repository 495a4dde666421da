#include "report/json_writer.h"
#include "report/output.h"

#include <gtest/gtest.h>

#include <limits>

namespace zu::app {

namespace {

TEST(JsonWriter, WritesNumbersAsATreeOfValuesDoes) {
    const double values[] = {0.0,
                             -0.0,
                             1.0,
                             -17.0,
                             0.1,
                             0.1 + 0.2,
                             1300.5,
                             -24500.333333333332,
                             1e-4,
                             0.00012345678901234567,
                             9.99e-5,
                             1e-5,
                             -2.5e-300,
                             123456789012345.6,
                             999999999999999.0,
                             1e15,
                             1.5e15,
                             123456789012345678.0,
                             1e300,
                             std::numeric_limits<double>::denorm_min(),
                             std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()};
    for (const double value : values) {
        std::string text;
        appendNumber(text, value);
        EXPECT_EQ(text, jsonText(Json(value)));
    }
}

TEST(JsonWriter, WritesTextsAndNestedValuesAsATreeDoes) {
    JsonWriter json;
    for (int pass = 0; pass < 2; ++pass) {
        json.clear();
        json.open('{');
        json.key("points");
        json.open('[');
        for (const double x : {0.5, 2.0}) {
            json.open('[');
            json.add(x);
            json.add(-1.0);
            json.close(']');
        }
        json.close(']');
        json.key("texts");
        json.open('[');
        for (const char* text : {"", "RT-1", "a \"b\" \\", "\n\t\x01\x7F", "給気", "\xFF\xE7\xB5"})
            json.add(text);
        json.close(']');
        json.field("none", false);
        json.field("kind", -1);
        json.close('}');
        const Json tree{{"points", {{0.5, -1.0}, {2.0, -1.0}}},
                        {"texts", {"", "RT-1", "a \"b\" \\", "\n\t\x01\x7F", "給気", "\xFF\xE7\xB5"}},
                        {"none", false},
                        {"kind", -1}};
        EXPECT_EQ(json.text(), jsonText(tree));
    }
}

} // namespace

} // namespace zu::app
