#include "notation.h"

#include "drawing/tag_view.h"
#include "dxf_records/number_text.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace zuhost;

namespace {

/// "CODE VALUE" records separated by "|".
TagList list(std::string_view notation) {
    const auto document = opened(ascii("0 SECTION|2 ENTITIES|" + std::string(notation) + "|0 ENDSEC|0 EOF"));
    return document->tags(*document->containers().front().members.at(0));
}

const TagList& entity() {
    static const TagList tags =
        list("0 MTEXT|5 1|102 {ACAD_REACTORS|330 A|102 }|330 2|100 AcDbEntity|8 L|100 AcDbMText"
             "|10 1.50|71 3|1 abc|101 Embedded Object|71 9|10 7.0"
             "|1001 ACAD|1040 1.0|1001 Zu|1070 2|1005 FF");
    return tags;
}

std::string codes(const TagView& tags) {
    std::string text;
    for (const TagRef& tag : tags)
        text += std::to_string(tag.code) + ' ';
    return text;
}

} // namespace

TEST(TagView, FindsItsParts) {
    const TagView tags = entity();
    EXPECT_EQ(codes(tags.subclass("AcDbEntity")), "8 ");
    EXPECT_EQ(codes(tags.subclass("AcDbMText")), "10 71 1 "); // without the embedded object
    EXPECT_EQ(tags.subclass("AcDbLine").range().first, tags.extendedDataStart());
    EXPECT_EQ(codes(tags.applicationGroup("ACAD_REACTORS")), "102 330 102 ");
    EXPECT_EQ(tags.applicationGroup("ACAD_XDICTIONARY").range().first, 2U);
    EXPECT_TRUE(tags.applicationGroup("ACAD_XDICTIONARY").empty());
    EXPECT_EQ(codes(tags.extendedData("zu")), "1001 1070 1005 ");
    EXPECT_TRUE(tags.extendedData("Z").empty());
    const TagList old = list("0 LINE|8 L|10 1.0|1001 ZU|1040 1.0");
    EXPECT_EQ(codes(TagView(old).subclass("AcDbLine")), "8 10 ");
}

TEST(TagList, ReadsAndWritesValues) {
    TagList tags = entity();
    const auto view = [&] { return TagView(tags); };
    const auto part = [&] { return view().subclass("AcDbMText"); };
    EXPECT_EQ(part().real(10), 1.5);
    EXPECT_EQ(part().integer(71), 3);
    EXPECT_EQ(part().text(1), "abc");
    EXPECT_EQ(view().extendedData("Zu").handle(1005), 0xFFU);
    EXPECT_EQ(part().real(40), std::nullopt);
    EXPECT_EQ(part().integer(1), std::nullopt);

    tags.setReal(10, 1.5, part().range());
    EXPECT_EQ(tags, entity()); // an equal number keeps its text
    tags.setReal(10, 2, part().range());
    EXPECT_EQ(part().text(10), "2.0");
    tags.setReal(40, 2.5, part().range());
    EXPECT_EQ(codes(part()), "10 71 1 40 ");
    EXPECT_EQ(tags[part().range().last].code, 101);
    tags.setHandle(340, 0xABC, part().range());
    EXPECT_EQ(part().text(340), "ABC");
    tags.erase(tags.extendedData("ACAD"));
    EXPECT_EQ(codes(view().extendedData()), "1001 1070 1005 ");
    tags.erase({5, 500});
    EXPECT_EQ(tags.size(), 5U);
}

/// Returns the codes, values and numbers of the records, and where their parts are.
std::string described(const TagView& tags) {
    std::string text;
    std::string scratch;
    for (const TagRef& tag : tags) {
        text += std::to_string(tag.code) + '=' + std::string(tag.value(scratch));
        text += ' ' + formatReal(tag.real().value_or(-1)) + ' ' + std::to_string(tag.integer().value_or(-1)) +
                ' ' + formatHandle(tag.handle().value_or(0)) + '\n';
    }
    return text + codes(tags.subclass("AcDbX")) + '/' + codes(tags.extendedData()) + '/' +
           codes(tags.in({tags.firstMarker(), tags.range().last}));
}

/// The bytes of every form read as the list of their records.
TEST(TagView, ReadsEveryFormInPlace) {
    const std::string usual =
        "0 X|5 1A|999 comment|102 {ACAD_REACTORS|330 A|102 }|100 AcDbEntity|8 L|100 AcDbX|10 -0.25"
        "|60 -3|90 70000|310 00FF|1 text|1001 Zu|1004 0A|1040 2.0|1070 7|1010 1.0|1000 last";
    const std::string longFirstSubclass =
        "0 X|5 1A|100 AcDbEntity|8 " + std::string(300, 'L') + "|100 AcDbX|10 1.0|1001 Zu|1070 7";
    const std::string thirdSubclass =
        "0 X|5 1A|100 AcDbEntity|8 L|100 AcDbY|10 2.0|100 AcDbX|10 1.0|100 Z|8 M";
    const std::string markerInExtendedData = "0 X|5 1A|100 AcDbEntity|8 L|1001 Zu|100 AcDbX|10 1.0";
    const std::string oneMarker = "0 X|5 1A|100 AcDbX|10 1.0";
    for (const auto& [version, records] :
         {std::pair("AC1009", usual), std::pair("AC1032", usual), std::pair("AC1032", longFirstSubclass),
          std::pair("AC1032", thirdSubclass), std::pair("AC1032", markerInExtendedData),
          std::pair("AC1032", oneMarker)}) {
        const std::string lines = drawing(version, "0 SECTION|2 ENTITIES|" + records + "|0 Y|0 ENDSEC");
        std::string returns = lines;
        std::ranges::replace(returns, '\n', '\r');
        for (const std::string& bytes :
             {lines, returns, opened(lines)->bytes(DrawingForm::binary, nullptr)}) {
            const auto document = opened(bytes);
            const AcDbStub& stub = *member(*document, "X");
            EXPECT_EQ(described(document->view(stub)), described(list(records))) << version << records;
            EXPECT_EQ(described(document->view(*member(*document, "Y"))), described(list("0 Y")));
        }
    }
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
