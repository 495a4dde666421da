#include "dxf_records.h"
#include "part_files.h"
#include "texts.h"

#include <gtest/gtest.h>

#include <bit>

namespace zu::test {
namespace {

std::string entities(std::string_view records) {
    return dxfRecords("0 SECTION|2 ENTITIES") + dxfRecords(records) + dxfRecords("0 ENDSEC|0 EOF");
}

PlainJson entitiesOf(const std::string& bytes) {
    const PartFile file(bytes);
    return modelOf(CAcadDxf(file.path()))["entities"];
}

TEST(Reading, FieldsOfDamagedAndUnusualEntities) {
    // A record before the first entity, a vertex without a polyline, unknown types, an embedded object.
    const PlainJson list = entitiesOf(
        entities("8 before|0 VERTEX|10 1|0 line|10 1|0 LINE|10 +1.5|20  2,5|11 nan|21 1e999|62  3x|0 "
                 "PLINE|70 1|0 VERTEX|10 7|0 SEQEND|8 none|0 MTEXT|10 4|101 Embedded Object|10 5|1 not the "
                 "text|0 POINT|5  1f |0 POINT|5 1G|0 LINE|5 1234567890123456A"));
    ASSERT_EQ(list.size(), 6U);
    EXPECT_EQ(list[0]["p1"], PlainJson({1.5, 2.0}));
    EXPECT_EQ(list[0]["color"], 3);
    EXPECT_EQ(list[0]["p2"], PlainJson({0.0, 0.0}));
    EXPECT_EQ(list[0]["handle"], nullptr);
    EXPECT_EQ(list[1]["type"], "POLYLINE");
    EXPECT_EQ(list[1]["vertices"].size(), 1U);
    EXPECT_EQ(list[1]["vertices"][0]["p"], PlainJson({7.0, 0.0}));
    EXPECT_EQ(list[2]["p"], PlainJson({4.0, 0.0}));
    EXPECT_EQ(list[2]["text"], nullptr);
    EXPECT_EQ(list[3]["handle"], "1F");
    EXPECT_EQ(list[4]["handle"], nullptr);
    EXPECT_EQ(list[5]["handle"], nullptr);
}

TEST(Reading, TextByCodePageVersionAndMark) {
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"AC1015", "ANSI_932", "\x95\x5C\x8E\xA6", "表示"},
        {"AC1015", "ANSI_1252", "\xC4", "Ä"},
        {"AC1015", "NO_SUCH", "\x95\x5C", "表"},
        {"AC1015", "ANSI_37", "\x95\x5C", "表"},
        {"AC1024", "ANSI_932", "\xE8\xA1\xA8", "表"},
        {"AC1015", "ANSI_932", "\\U+33A5/h", "㎥/h"},
        {"AC1015", "ANSI_1252", "\\M+1955C", "表"},
        {"AC1015", "ANSI_932", "\\U+33Z5", "\\U+33Z5"},
        {"AC1024", "", "\\U+D83D\\U+DE00", "\xF0\x9F\x98\x80"}};
    for (const auto& [version, page, value, text] : cases) {
        SCOPED_TRACE(std::string(version) + page + text);
        const std::string header = dxfRecords(std::string("0 SECTION|2 HEADER|9 $ACADVER|1 ") + version +
                                              "|9 $DWGCODEPAGE|3 " + page + "|0 ENDSEC");
        EXPECT_EQ(entitiesOf(header + entities(std::string("0 TEXT|1 ") + value))[0]["text"], text);
    }
    EXPECT_EQ(entitiesOf("\xEF\xBB\xBF" + entities("0 TEXT|8 外形"))[0]["layer"], "外形");
}

TEST(Reading, TextsAreTruncatedToTheirLimit) {
    const std::string text(700, 'x');
    EXPECT_EQ(entitiesOf(entities("0 TEXT|1 " + text))[0]["text"], text.substr(0, 512));
    const std::string records = binaryText(0, "TEXT") + binaryText(1, text) + binaryText(8, "after");
    const PlainJson list = entitiesOf(binaryDrawing(records));
    EXPECT_EQ(list[0]["text"], text.substr(0, 255));
    EXPECT_EQ(list[0]["layer"], "after");
}

TEST(Reading, StrictTableStopsAtOtherCodes) {
    std::string extra;
    append(extra, 370, 2);
    append(extra, 25, 2);
    const PartFile file(
        binaryDrawing(binaryText(0, "POINT") + extra + binaryText(8, "after") + binaryText(0, "POINT")));
    const PlainJson complete = modelOf(CAcadDxf(file.path()))["entities"];
    ASSERT_EQ(complete.size(), 2U);
    EXPECT_EQ(complete[0]["lineweight"], 25);
    const PlainJson strict = modelOf(CAcadDxf(file.path(), 0, CAcadDxf::kStrictTable))["entities"];
    ASSERT_EQ(strict.size(), 1U);
    EXPECT_EQ(strict[0]["layer"], "");
}

TEST(Reading, FirstRecordsDetermineTheWidthOfBinaryCodes) {
    using namespace std::string_literals;
    const std::string sentinel = binaryDrawing("").substr(0, 22);
    const std::tuple<std::string, int, int> cases[] = {
        {sentinel + "\0SECTION\0\2ENTITIES\0\0POINT\0\0ENDSEC\0"s, 1, 0},
        {sentinel + binaryText(9, "first") + binaryDrawing(binaryText(0, "POINT")).substr(22), 1, 1}};
    for (const auto& [bytes, complete, strict] : cases) {
        const PartFile file(bytes);
        EXPECT_EQ(CAcadDxf(file.path()).GetEntities().GetCount(), complete);
        EXPECT_EQ(CAcadDxf(file.path(), 0, CAcadDxf::kStrictTable).GetEntities().GetCount(), strict);
    }
}

TEST(Reading, RecordsOneByOne) {
    CAcadDxf reader;
    ASSERT_TRUE(reader.Open(arrayOf({L"0", L"SECTION", L"999", L"comment", L" 40", L" 2.5 ", L"70", L"-3",
                                     L"1", L"外形\r", L"1", L"b", L"0"})));
    ASSERT_EQ(reader.GetRecord(), 1);
    EXPECT_EQ(reader.GetText(), L"SECTION");
    ASSERT_EQ(reader.GetRecord(), 1);
    EXPECT_EQ(reader.GetCode(), 40);
    EXPECT_EQ(reader.GetReal(), 2.5);
    EXPECT_EQ(reader.GetInteger(), 0);
    ASSERT_EQ(reader.GetRecord(), 1);
    EXPECT_EQ(reader.GetInteger(), -3);
    EXPECT_EQ(reader.GetReal(), 0);
    ASSERT_EQ(reader.Skip(1), 1);
    EXPECT_EQ(reader.GetText(), L"外形");
    // Skip moves past the current record even when it matches.
    EXPECT_EQ(reader.Skip(1, L"b"), 1);
    EXPECT_EQ(reader.Skip(0), 0);
    EXPECT_EQ(reader.GetRecord(), 0);
}

TEST(Reading, RecordsHaveNoValueAfterTheEnd) {
    std::string real;
    append(real, 40, 2);
    append(real, std::bit_cast<std::uint64_t>(2.5), 8);
    const PartFile file(binaryDrawing(real).substr(0, 22) + binaryText(0, "SECTION") + real + real + "?");
    CAcadDxf reader;
    ASSERT_TRUE(reader.Open(file.path()));
    ASSERT_EQ(reader.Skip(40), 1);
    EXPECT_EQ(reader.GetReal(), 2.5);
    EXPECT_EQ(reader.Skip(70), 0);
    EXPECT_EQ(reader.GetCode(), 40);
    EXPECT_EQ(reader.GetReal(), 0);
    EXPECT_EQ(reader.GetText(), L"");
}

TEST(Reading, EntitiesOutliveTheirDrawing) {
    CEntList list;
    for (const wchar_t* text : {L"first", L"second"}) {
        CAcadDxf reader;
        reader.Open(arrayOf({L"0", L"SECTION", L"2", L"ENTITIES", L"0", L"MTEXT", L"3", L"the ", L"1", text,
                             L"8", L"外形", L"0", L"ENDSEC"}));
        ASSERT_EQ(reader.Skip(2), 1);
        reader.LoadEnt(list);
        EXPECT_EQ(reader.GetText(), L"ENDSEC");
        EXPECT_EQ(reader.GetRecord(), 0);
    }
    const auto& text = static_cast<const CMtext&>(*list.GetTail());
    EXPECT_EQ(text.GetFullText(), L"the second");
    EXPECT_EQ(text.GetParts(), std::vector<CString>{L"the "});
    EXPECT_EQ(text.GetLayer(), L"外形");
    EXPECT_EQ(static_cast<const CMtext&>(*list.GetHead()).GetText(), L"first");
}

/// Fields that no listing shows are kept for modules that insert parts into drawings.
TEST(Reading, FieldsThatNoListingShows) {
    const PartFile file(entities(
        "0 LWPOLYLINE|10 0|10 1|40 2|41 3|10 2|0 POLYLINE|40 1|41 2|71 3|72 4|73 5|0 VERTEX|50 45|71 1|72 "
        "-2|73 3|0 MTEXT|42 9|72 3|73 2|0 DIMENSION|40 1|41 2|42 850.5|51 30|71 1|72 2|0 POINT|50 15"));
    const CAcadDxf part(file.path());
    POSITION at = part.GetEntities().GetHeadPosition();
    const auto next = [&]() -> const CObject& { return *part.GetEntities().GetNext(at); };
    ASSERT_EQ(part.GetEntities().GetCount(), 5);
    const auto widths = static_cast<const CLwPline&>(next()).GetWidths();
    ASSERT_EQ(widths.size(), 2U);
    EXPECT_EQ(std::tuple(widths[0].start, widths[0].end), std::tuple(0, 0));
    EXPECT_EQ(std::tuple(widths[1].start, widths[1].end), std::tuple(2, 3));
    const auto& mesh = static_cast<const CPline&>(next());
    EXPECT_EQ(std::tuple(mesh.m_startWidth, mesh.m_endWidth), std::tuple(1, 2));
    EXPECT_EQ(std::tuple(mesh.m_rows, mesh.m_columns, mesh.m_density), std::tuple(3, 4, 5));
    const auto& vertex = static_cast<const CVertex&>(*mesh.m_vertices.GetHead());
    EXPECT_EQ(std::tuple(vertex.m_tangent, vertex.m_corner1, vertex.m_corner2, vertex.m_corner3),
              std::tuple(45, 1, -2, 3));
    const auto& text = static_cast<const CMtext&>(next());
    EXPECT_EQ(std::tuple(text.m_writtenWidth, text.m_direction, text.m_lineSpacing), std::tuple(9, 3, 2));
    const auto& dimension = static_cast<const CDim&>(next());
    EXPECT_EQ(std::tuple(dimension.m_leader, dimension.m_lineSpacing, dimension.m_measurement,
                         dimension.m_horizontal, dimension.m_attach, dimension.m_lineSpacingStyle),
              std::tuple(1, 2, 850.5, 30, 1, 2));
    EXPECT_EQ(static_cast<const CAcPoint&>(next()).m_angle, 15);
}

TEST(Reading, BinaryDataIsReadInOrder) {
    const std::string bytes = readBytes(sample("binary/fitting-01.dxf"));
    CAcadDxf reader;
    ASSERT_TRUE(reader.Open(hostPath(sample("binary/fitting-01.dxf"))));
    std::string read;
    wchar_t buffer[700];
    for (int count = 700; count > 0;) {
        count = reader.ReadBinData(buffer, 700);
        read.append(reinterpret_cast<const char*>(buffer), static_cast<std::size_t>(count));
    }
    EXPECT_EQ(read, bytes.substr(22));
}

TEST(Reading, LayersBlocksAndOptions) {
    const CString path = hostPath(sample("fitting-01.dxf"));
    const CAcadDxf part(path, CAcadDxf::kWhite);
    EXPECT_EQ(part.GetLyColor(L"中心線"), 1);
    EXPECT_EQ(part.GetLyColor(L"no such layer"), 7);
    EXPECT_EQ(CAcadDxf(path, 2).GetLyColor(L"no such layer"), 7);
    EXPECT_EQ(CAcadDxf(path).GetLyColor(L"no such layer"), 1);
    EXPECT_EQ(part.GetLinetype(L"中心線"), L"CENTER");
    EXPECT_EQ(part.GetLinetype(L"no such layer"), L"CONTINUOUS");
    EXPECT_NE(part.FindLayer(L"defPOINTS"), nullptr);
    EXPECT_NE(part.FindBlock(L"*model_space"), nullptr);
    EXPECT_EQ(part.FindBlock(L"nothing"), nullptr);

    const CAcadDxf withoutEntities(path, 0, 0, CAcadDxf::kNoEntities);
    EXPECT_TRUE(withoutEntities.GetEntities().IsEmpty());
    EXPECT_EQ(withoutEntities.GetBlocks().GetCount(), part.GetBlocks().GetCount());
    EXPECT_EQ(part.isA(), CAcadDxf::desc());
    EXPECT_EQ(CAcadDxf::cast(static_cast<const AcRxObject*>(&part)), &part);

    const PartFile file(
        dxfRecords("0 SECTION|2 TABLES|0 TABLE|2 LAYER|70 1|0 LAYER|2 a|370 35|0 ENDTAB|0 ENDSEC"));
    EXPECT_EQ(CAcadDxf(file.path()).GetLineWeight(L"A"), 35);
    EXPECT_EQ(CAcadDxf(file.path()).GetLineWeight(L"b"), CEnt::kWeightDefault);
}

TEST(Reading, LinesInMemoryEqualTheFile) {
    CStringArray lines;
    CStdioFile file(hostPath(sample("equip-fan.dxf")), CFile::modeRead);
    CString line;
    while (file.ReadString(line) != FALSE)
        lines.Add(line);
    EXPECT_EQ(modelOf(CAcadDxf(lines)), modelOf(CAcadDxf(hostPath(sample("equip-fan.dxf")))));
}

} // namespace
} // namespace zu::test
