#include "notation.h"

#include "drawing/tag_list.h"
#include "dxf_records/number_text.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace zuhost;

namespace {

/// "CODE VALUE" records separated by "|".
TagList list(std::string_view notation) {
    const auto document = opened(dxf("0 SECTION|2 ENTITIES|" + std::string(notation) + "|0 ENDSEC|0 EOF"));
    return document->tags(*document->containers().front().members.at(0));
}

const TagList& entity() {
    static const TagList tags =
        list("0 MTEXT|5 1|102 {ACAD_REACTORS|330 A|102 }|330 2|100 AcDbEntity|8 L|100 AcDbMText"
             "|10 1.50|71 3|1 abc|101 Embedded Object|71 9|10 7.0"
             "|1001 ACAD|1040 1.0|1001 Zu|1070 2|1005 FF");
    return tags;
}

std::string codes(const TagList& tags, TagRange range) {
    std::string text;
    for (std::size_t i = range.first; i < range.last; ++i)
        text += std::to_string(tags[i].code) + ' ';
    return text;
}

} // namespace

TEST(TagList, FindsItsParts) {
    const TagList& tags = entity();
    EXPECT_EQ(codes(tags, tags.subclass("AcDbEntity")), "8 ");
    EXPECT_EQ(codes(tags, tags.subclass("AcDbMText")), "10 71 1 "); // without the embedded object
    EXPECT_EQ(tags.subclass("AcDbLine").first, tags.extendedDataStart());
    EXPECT_EQ(codes(tags, tags.applicationGroup("ACAD_REACTORS")), "102 330 102 ");
    EXPECT_EQ(tags.applicationGroup("ACAD_XDICTIONARY").first, 2U);
    EXPECT_TRUE(tags.applicationGroup("ACAD_XDICTIONARY").empty());
    EXPECT_EQ(codes(tags, tags.extendedData("zu")), "1001 1070 1005 ");
    EXPECT_TRUE(tags.extendedData("Z").empty());
    const TagList old = list("0 LINE|8 L|10 1.0|1001 ZU|1040 1.0");
    EXPECT_EQ(codes(old, old.subclass("AcDbLine")), "8 10 ");
}

TEST(TagList, ReadsAndWritesValues) {
    TagList tags = entity();
    const auto part = [&] { return tags.subclass("AcDbMText"); };
    EXPECT_EQ(tags.real(10, part()), 1.5);
    EXPECT_EQ(tags.integer(71, part()), 3);
    EXPECT_EQ(tags.text(1, part()), "abc");
    EXPECT_EQ(tags.handle(1005, tags.extendedData("Zu")), 0xFFU);
    EXPECT_EQ(tags.real(40, part()), std::nullopt);
    EXPECT_EQ(tags.integer(1, part()), std::nullopt);

    tags.setReal(10, 1.5, part());
    EXPECT_EQ(tags, entity()); // an equal number keeps its text
    tags.setReal(10, 2, part());
    EXPECT_EQ(tags.text(10, part()), "2.0");
    tags.setReal(40, 2.5, part());
    EXPECT_EQ(codes(tags, part()), "10 71 1 40 ");
    EXPECT_EQ(tags[part().last].code, 101);
    tags.setHandle(340, 0xABC, part());
    EXPECT_EQ(tags.text(340, part()), "ABC");
    tags.erase(tags.extendedData("ACAD"));
    EXPECT_EQ(codes(tags, {tags.extendedDataStart(), tags.size()}), "1001 1070 1005 ");
    tags.erase({5, 500});
    EXPECT_EQ(tags.size(), 5U);
}

TEST(Numbers, AreReadInEveryNotation) {
    const std::pair<const char*, double> reals[] = {
        {"1", 1},      {" 1.5\t", 1.5},       {"+.5", .5},          {"5.", 5},         {"1.0E 20", 1e20},
        {"1e-400", 0}, {"-1e400", -HUGE_VAL}, {"1.#INF", HUGE_VAL}, {"inf", HUGE_VAL}, {"-0", 0},
    };
    for (const auto& [text, value] : reals)
        EXPECT_EQ(parseReal(text), value) << text;
    for (const char* text : {"nan", "-nan", "1.#QNAN", "-1.#IND00"})
        EXPECT_TRUE(parseReal(text) && std::isnan(*parseReal(text))) << text;
    for (const char* text : {"", " ", "1,5", "1.5x", "+-1", "--1", "0x10", "1 2", "e5", "1.#X"})
        EXPECT_EQ(parseReal(text), std::nullopt) << text;
    EXPECT_EQ(parseInteger(" -12 "), -12);
    EXPECT_EQ(parseInteger("9223372036854775808"), std::nullopt);
    EXPECT_EQ(parseHandle("fFffFFffFFffFFff"), ~0ULL);
    for (const char* text : {"", "-1", "0x1", "G", "10000000000000000"})
        EXPECT_EQ(parseHandle(text), std::nullopt) << text;
    for (const auto& [value, text] : {std::pair(1.0, "1.0"), std::pair(1e20, "1e+20"), std::pair(.1, "0.1")})
        EXPECT_EQ(formatReal(value), text);
}
