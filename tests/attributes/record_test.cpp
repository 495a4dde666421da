#include "attributes/attribute_record.h"
#include "attributes/attribute_rows.h"
#include "sample_settings.h"
#include "test_drawing.h"

#include <zucomn/attributes.h>
#include <zuhost/texts.h>

namespace {

/// Makes protected members accessible.
class Attributes : public CAttributeData {
public:
    using CAttributeData::AddCommon;
    using CAttributeData::CheckCommon;
    using CAttributeData::checkIndex;
    using CAttributeData::DeleteCPtrArray1;
    using CAttributeData::GetCsvFileName;
    using CAttributeData::GetEnv;
    using CAttributeData::GetPartsName;
    using CAttributeData::ReadConfigFile;
    using CAttributeData::SetAttributeData;
    using CAttributeData::SetAttributeDataArray1;
    using CAttributeData::SetAttributeDataArray2;
    using CAttributeData::SetCommonData;
};

Texts row(const CPtrArray& entities, int table, int index) {
    return textsOf(zu::stringsAt(zu::tableAt(entities, table), index));
}

TEST(AttributeRecord, DecodesAllStringsWhateverTheHeaderCount) {
    const std::pair<Texts, std::vector<Texts>> cases[] = {
        {{L"1|A|B|", L"K|v|E|n|1|1|"}, {{L"A", L"B", L"", L"K", L"v", L"E", L"n", L"1", L"1"}}},
        {{L"99999999|A|B|"}, {}},
        {{L"0|A|B|", L"K|v|"}, {{L"A", L"B", L"", L"K", L"v", L"", L"", L"", L""}}},
        {{L"", L"", L"1|2|3|4|5|6|7|8|"},
         {{L"", L"", L"", L"", L"", L"", L"", L"", L""},
          {L"", L"", L"", L"1", L"2", L"3", L"4", L"5", L"6"}}},
        {{L"x|ソ表能|", L"ポンプ"}, {{L"ソ表能", L"", L"", L"ポンプ", L"", L"", L"", L"", L""}}},
    };
    for (const auto& [texts, rows] : cases) {
        Attributes data;
        CStringArray list = arrayOf(texts);
        EXPECT_EQ(data.SetAttributeDataArray2(list), 0);
        ASSERT_EQ(data.GetEntityList().GetSize(), 1);
        ASSERT_EQ(zu::tableAt(data.GetEntityList(), 0).GetSize(), static_cast<int>(rows.size()));
        for (std::size_t i = 0; i < rows.size(); ++i)
            EXPECT_EQ(row(data.GetEntityList(), 0, static_cast<int>(i)), rows[i]);
    }
    Attributes data;
    EXPECT_EQ(data.SetAttributeDataArray2(CStringArray()), 0);
    EXPECT_TRUE(data.GetEntityList().IsEmpty());
}

TEST(AttributeRecord, EncodesTrimmedValues) {
    Attributes data;
    CStringArray list = arrayOf({L"7| A |B\t|", L" K |v v| E|n|1|1|", L"L||||||"});
    data.SetAttributeDataArray2(list);
    CStringArray encoded;
    Attributes::SetAttributeDataArray1(zu::tableAt(data.GetEntityList(), 0), encoded);
    EXPECT_EQ(textsOf(encoded), (Texts{L"2|A|B|", L"K|v v|E|n|1|1|", L"L||||||"}));
    CPtrArray none;
    Attributes::SetAttributeDataArray1(none, encoded);
    EXPECT_TRUE(encoded.IsEmpty());
    CStringArray narrow;
    narrow.SetSize(8);
    CPtrArray table;
    table.Add(&narrow);
    EXPECT_THROW(Attributes::SetAttributeDataArray1(table, encoded), CInvalidArgException*);
}

TEST(AttributeRecord, LookUpsMatchPrefixes) {
    CStringArray list = arrayOf({L"3|A|B|", L"S401|2700|E|", L"S4|x|", L"K|old|x|tail", L"bare"});
    EXPECT_EQ(CAttributeData::FindAtt(&list, L"S4"), 1);
    EXPECT_EQ(CAttributeData::FindAtt(&list, L"401"), -1);
    EXPECT_EQ(CAttributeData::FindAtt(nullptr, L"S4"), -1);
    CString out = L"untouched";
    EXPECT_EQ(CAttributeData::GetAtAtt(&list, L"none", out), -1);
    EXPECT_EQ(CAttributeData::GetAtt(&list, L"none", out), -1);
    EXPECT_EQ(out, L"untouched");
    EXPECT_EQ(CAttributeData::GetAtAtt(&list, L"S401", out), 0);
    EXPECT_EQ(out, L"S401|2700|E|");
    EXPECT_EQ(CAttributeData::GetAtt(&list, L"S401", out), 0);
    EXPECT_EQ(out, L"S401");
    EXPECT_EQ(CAttributeData::GetAtt(&list, L"bare", out), 0);
    EXPECT_EQ(out, L"bare");
    EXPECT_EQ(CAttributeData::GetValueAtt(&list, L"S4"), L"x") << "matches whole keys only";
    EXPECT_EQ(CAttributeData::GetValueAtt(&list, L"S401|"), L"2700");
    EXPECT_EQ(CAttributeData::GetValueAtt(&list, L"bare"), L"");
    EXPECT_EQ(CAttributeData::SetAtAtt(&list, L"K", L"new"), 0);
    EXPECT_EQ(list[3], L"K|new|x|") << "removes the unterminated tail";
    EXPECT_EQ(CAttributeData::SetAtAtt(&list, L"bare", L"new"), 0);
    EXPECT_EQ(list[4], L"") << "there is no value to replace";
    EXPECT_EQ(CAttributeData::SetAtAtt(&list, L"Q", L"new"), -1);
    EXPECT_EQ(CAttributeData::GettoolTipData(L"W=100 H=50", L"W=", out), 0);
    EXPECT_EQ(out, L"100");
    EXPECT_EQ(CAttributeData::GettoolTipData(L"W=100 H=50", L"H=", out), 0);
    EXPECT_EQ(out, L"50");
    CString tip = L"duct W=1 x";
    CAttributeData::toolTipStrUpDate(tip, 2.5, 300);
    EXPECT_EQ(tip, L"duct W=2.50 x H=300.00");
}

TEST(AttributeFiles, AreNamedAfterParts) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"C:\\p\\pipe-01.dxf", L"C:\\p\\pipe.csv"},
        {L"C:\\p\\pipe-02.DXF", L"C:\\p\\pipe.csv"},
        {L"C:\\p\\pipe-1.dxf", L"C:\\p\\pipe-1.csv"},
        {L"C:\\p\\pipe-01.txt", L"C:\\p\\pipe-01.csv"},
        {L"C:\\p-12.x\\a.dxf", L"C:\\p-12.x\\a.csv"},
        {L"C:\\p\\a-b-12.dxf", L"C:\\p\\a-b.csv"},
        {L"C:\\p\\a-123.dxf", L"C:\\p\\a-123.csv"},
        {L"C:\\p\\any.CSW", L"C:\\p\\any.CSW"},
        {L"C:\\p\\plain", L"C:\\p\\plain.csv"},
        {L"pipe-01.dxf", L"pipe.csv"},
        {L"\\pipe-01.dxf", L"\\pipe.csv"},
        {L"/p/pipe.x.dxf", L"/p\\pipe.x.csv"},
    };
    for (const auto& [part, file] : cases)
        EXPECT_EQ(Attributes::GetCsvFileName(part), file) << zuhost::toUtf8(part);
    EXPECT_EQ(Attributes::GetPartsName(L"C:\\p\\pipe-01.dxf"), L"pipe");
    EXPECT_TRUE(Attributes::checkIndex(L"3,1", 1));
    EXPECT_FALSE(Attributes::checkIndex(L"3,11", 1));
    EXPECT_TRUE(Attributes::checkIndex(nullptr, 9));
}

TEST(AttributeFiles, AreReadWithNamesFromTheTitleTable) {
    const SampleSettings settings;
    CAttributeData data;
    EXPECT_EQ(data.ReadData(zuhost::textOf(settings.folder().wide("parts/fitting-02.dxf")), 0), 0);
    EXPECT_EQ(data.ReadData2(CString(L"Z:\\elsewhere\\fitting-01.dxf"), 1), 0)
        << "found in the route-parts folder";
    EXPECT_EQ(data.ReadData(CString(L"none-01.dxf"), 1), -1);
    const CPtrArray& read = data.GetEntityList();
    ASSERT_EQ(read.GetSize(), 2);
    ASSERT_EQ(zu::tableAt(read, 0).GetSize(), 7);
    EXPECT_EQ(row(read, 0, 0),
              (Texts{L"fitting", L"", L"取付高", L"S401", L"2700", L"E", L"取付高", L"1", L"1"}));
    EXPECT_EQ(row(read, 0, 5)[4], L"亜鉛鉄板") << "trailing blanks are removed";
    EXPECT_EQ(row(read, 1, 6)[3], L"S602");
    CPtrArray parameters;
    EXPECT_EQ(CAttributeData::GetItemParameter(L"S302", parameters), 4);
    CStringArray offered;
    EXPECT_EQ(CAttributeData::GetItemParameter2(L"S401", L"A", offered), 1);
    EXPECT_EQ(offered[0], L"2400");
    data.FreeData(1);
    EXPECT_EQ(data.GetEntityList().GetSize(), 2);
    data.FreeData(2);
    EXPECT_TRUE(data.GetEntityList().IsEmpty());
}

TEST(AttributeFiles, SkipLinesAndKeepColumns) {
    const TemporaryFolder folder;
    folder.write("t.csv", "skipped\na|b |c\n   \n# note\nd||f\nend\nx|y|z\n");
    CPtrArray rows;
    EXPECT_EQ(Attributes::ReadConfigFile(folder.wide("t.csv").c_str(), rows, 1, L"3,2", L"|", 0), 0);
    ASSERT_EQ(rows.GetSize(), 2);
    EXPECT_EQ(textsOf(zu::stringsAt(rows, 0)), (Texts{L"b", L"c"}));
    EXPECT_EQ(textsOf(zu::stringsAt(rows, 1)), (Texts{L"", L"f"}));
    Attributes::DeleteCPtrArray1(rows);
    EXPECT_EQ(Attributes::ReadConfigFile(folder.wide("t.csv").c_str(), rows, 9, nullptr, L"|", 0), -1);
    EXPECT_EQ(Attributes::ReadConfigFile(folder.wide("t.csv").c_str(), rows, 0, nullptr, nullptr, 0), -1);
    EXPECT_EQ(Attributes::ReadConfigFile(folder.wide("none.csv").c_str(), rows, 0, nullptr, L"|", 0), -1);
    folder.write("a.ini", "[s]\nnumber=3.14159\nmissing=Error\n");
    CString value = L"untouched";
    const std::wstring ini = folder.wide("a.ini");
    EXPECT_EQ(Attributes::GetEnv(value, 0, ini.c_str(), L"s", L"missing"), -1);
    EXPECT_EQ(value, L"untouched");
    EXPECT_EQ(Attributes::GetEnv(value, 1, ini.c_str(), L"s", L"number"), 0);
    EXPECT_EQ(value, L" 3.14");
}

TEST(AttributeData, RoundTripsThroughEntities) {
    const TestDrawing drawing;
    const AcDbObjectId block = drawing.block(L"RT-1", {});
    const AcDbObjectId entity = drawing.element(block, {});
    const AcDbObjectId bare = drawing.element(block, {});
    Attributes data;
    CStringArray list = arrayOf({L"2|A|B|", L"S401|100|E|h|1|1|", L"S501|給気㎥|A|u|2|1|"});
    EXPECT_EQ(data.SetAttributeData(entity, list), 0);
    EXPECT_EQ(data.ReadData(TestDrawing::ids({bare, entity, entity})), 0);
    EXPECT_EQ(data.GetEntityList().GetSize(), 2) << "an entity without a record adds no table";
    EXPECT_EQ(data.GetValueAttID(entity, L"S501"), L"給気㎥");
    EXPECT_EQ(data.GetValueAttID(bare, L"S501"), L"");
    CPtrArray raw;
    EXPECT_EQ(data.WriteData(data.GetEntityList(), raw), 0);
    EXPECT_EQ(textsOf(zu::stringsAt(raw, 1)), textsOf(list));
    EXPECT_EQ(data.ReadData3(entity, &raw), 0);
    EXPECT_EQ(textsOf(zu::stringsAt(raw, 2)), textsOf(list));
    EXPECT_TRUE(data.GetEntityList().IsEmpty());
    EXPECT_EQ(data.WriteDataFree(raw), 0);
    EXPECT_TRUE(raw.IsEmpty());
    CStringArray read;
    EXPECT_EQ(data.GetExtensionElementData(bare, read), 1);
    EXPECT_EQ(data.GetExtensionElementData({}, read), -1);
    TestDrawing::erase(entity);
    EXPECT_EQ(data.GetExtensionElementData(entity, read), 0) << "erased entities are accepted";
    EXPECT_EQ(data.SetAttributeData(entity, list), -1);
}

TEST(AttributeData, RejectsTooLargeRecords) {
    const TestDrawing drawing;
    const AcDbObjectId entity = drawing.element(drawing.block(L"RT-1", {}), {});
    Attributes data;
    CStringArray list = arrayOf({L"1|A|B|", L"K|v|||||"});
    EXPECT_EQ(data.SetAttributeData(entity, list), 0);
    CStringArray large;
    for (int i = 0; i < 100; ++i)
        large.Add(CString(L'x', 200));
    EXPECT_EQ(data.SetAttributeData(entity, large), -1);
    CStringArray read;
    data.GetExtensionElementData(entity, read);
    EXPECT_EQ(textsOf(read), textsOf(list));
}

TEST(AttributeData, SharedItemsAreThoseOfAllTables) {
    Attributes data;
    for (const wchar_t* const height : {L"K|100|||||", L"K|200|||||"}) {
        CStringArray list =
            arrayOf({L"3|A|B|", height, L"M|same|||||", height[2] == L'1' ? L"X|1|||||" : L"Y|1|||||"});
        data.SetAttributeDataArray2(list);
    }
    CPtrArray common;
    EXPECT_EQ(data.AddCommon(common), 0);
    ASSERT_EQ(common.GetSize(), 2);
    EXPECT_EQ(zu::stringsAt(common, 0)[4], L"*各種*");
    EXPECT_TRUE(data.CheckCommon(L"M"));
    EXPECT_FALSE(data.CheckCommon(L"X"));
    zu::stringsAt(common, 1)[4] = L"new";
    data.SetCommonData(common);
    EXPECT_EQ(row(data.GetEntityList(), 0, 0)[4], L"100") << "values that differ are kept";
    EXPECT_EQ(row(data.GetEntityList(), 1, 0)[4], L"200");
    EXPECT_EQ(row(data.GetEntityList(), 1, 1)[4], L"new");
    Attributes::DeleteCPtrArray1(common);
    EXPECT_EQ(CAttributeData().isA(), acrxFindAcRxClass(L"CAttributeData"));
}

} // namespace
