// Locating the files of a part, and the ".zuf" file beside a drawing.
#include "part_files.h"

#include <gtest/gtest.h>

namespace zu::test {
namespace {

std::array<double, 4> extentsOf(const CAcadDxf& part) {
    std::array<double, 4> values{};
    part.GetSave(values[0], values[1], values[2], values[3]);
    return values;
}

TEST(Files, FirstEighteenCharactersIdentifyBinaryDrawings) {
    const std::pair<std::string, int> cases[] = {{"AutoCAD Binary DXF", 0},
                                                 {"AutoCAD Binary DXF and anything", 0},
                                                 {"AutoCAD Binary DX", 1},
                                                 {"autocad binary dxf\r\n\x1a", 1},
                                                 {"", 1}};
    for (const auto& [bytes, ascii] : cases) {
        const PartFile file(bytes);
        EXPECT_EQ(CAcadDxf::IsAscii(file.path()), ascii) << bytes;
    }
    EXPECT_EQ(CAcadDxf::IsAscii(L"no/such/file"), 1);
}

TEST(Files, MissingFileIsAnEmptyDrawing) {
    const CAcadDxf part(L"no\\such\\part.dxf");
    EXPECT_EQ(part.GetVersion(), 0);
    EXPECT_TRUE(part.GetEntities().IsEmpty());
    EXPECT_EQ(extentsOf(part), (std::array<double, 4>{0, 0, 0, 0}));
    EXPECT_FALSE(CAcadDxf::CheckEntities(L"no\\such\\part.dxf"));
}

TEST(Files, CheckEntitiesFindsOnlyKeptTypes) {
    EXPECT_TRUE(CAcadDxf::CheckEntities(hostPath(sample("fitting-01.dxf"))));
    EXPECT_TRUE(CAcadDxf::CheckEntities(hostPath(sample("binary/fitting-01.dxf"))));
    const PartFile unknown("0\nSECTION\n2\nENTITIES\n0\nSPLINE\n0\nENDSEC\n0\nLINE\n0\nEOF\n");
    EXPECT_FALSE(CAcadDxf::CheckEntities(unknown.path()));
}

TEST(Files, NamesOfSideFiles) {
    const std::pair<const wchar_t*, const wchar_t*> names[] = {{L"C:\\parts\\a.dxf", L"C:\\parts\\a.zuf"},
                                                               {L"a.b.dxf", L"a.b.zuf"},
                                                               {L"a.dxfx", L"a.xzuf"},
                                                               {L"a.d", L"a.zuf"},
                                                               {L"a.", L"a.zuf"},
                                                               {L"a", L"a.zuf"}};
    for (const auto& [path, expected] : names) {
        CString zuf = L"before";
        ZUComn_GetZufNameFromDxfName(path, zuf);
        EXPECT_EQ(zuf, expected);
    }
}

TEST(Files, ReportsWhichFileExists) {
    const PartFile file("x", "part.dwg");
    CString dxf = file.path();
    dxf.Replace(L".dwg", L".dxf");
    CString zuf = file.path();
    zuf.Replace(L".dwg", L".zuf");
    EXPECT_EQ(ZUComn_DxfOrZufFileExistOrNot(dxf, zuf), 3);
    EXPECT_EQ(ZUComn_DxfOrZufFileExistOrNot(dxf, file.path()), 2);
    EXPECT_EQ(ZUComn_DxfOrZufFileExistOrNot(file.path(), file.path()), 1);
    EXPECT_EQ(ZUComn_DxfOrZufFileExistOrNot(L"no such.dxf", L"no such.zuf"), 0);
}

TEST(Files, MembersOfALine) {
    const std::tuple<int, int, const wchar_t*, const wchar_t*> cases[] = {{0, 0, L"H  0  0 100   50", L"H"},
                                                                          {1, 0, L"H  0  1 100   50", L"0"},
                                                                          {4, 0, L"H  0  1 100   50", L"50"},
                                                                          {5, -1, L"H  0  1 100   50", L""},
                                                                          {0, 0, L" a b", L""},
                                                                          {1, 0, L" a b", L"a"},
                                                                          {1, 0, L"a ", L""},
                                                                          {1, -1, L"a", L""},
                                                                          {0, 0, L"", L""},
                                                                          {-1, -1, L"a b", L""}};
    for (const auto& [n, result, expectedLine, expectedMember] : cases) {
        CString member = L"before";
        EXPECT_EQ(CAcadDxf::GetRecordMember(n, expectedLine, member), result) << n;
        EXPECT_EQ(member, expectedMember) << n;
        CString line = expectedLine;
        EXPECT_EQ(CAcadDxf::GetRecordMember(n, line, line), result) << n;
        EXPECT_EQ(line, expectedMember) << n;
    }
}

TEST(Files, ZufLinesAndExtents) {
    CAcadDxf part(hostPath(sample("fitting-01.zuf")));
    ASSERT_EQ(part.GetZufLines().GetSize(), 7);
    EXPECT_EQ(part.GetZufLines()[5], L"T 10 60 5 30 ｴﾙﾎﾞ 90°");
    EXPECT_EQ(extentsOf(part), (std::array<double, 4>{0, 0, 100, 50}));

    // Next to the drawing that was read.
    CAcadDxf drawing(hostPath(sample("fitting-01.dxf")));
    EXPECT_TRUE(drawing.LoadZufData());
    EXPECT_EQ(extentsOf(drawing), (std::array<double, 4>{0, 0, 100, 50}));
    CAcadDxf other(hostPath(sample("fitting-02.dxf")));
    EXPECT_FALSE(other.LoadZufData());

    CStringArray lines;
    lines.Add(L"L 1 2 3 4");
    lines.Add(L"H -1 2.5 x");
    EXPECT_TRUE(part.LoadZufData(lines));
    EXPECT_EQ(extentsOf(part), (std::array<double, 4>{-1, 2.5, 0, 50}));
    lines.Add(L"H 1e999 nan");
    EXPECT_TRUE(part.LoadZufData(lines));
    EXPECT_EQ(extentsOf(part), (std::array<double, 4>{0, 0, 0, 50}));
}

} // namespace
} // namespace zu::test
