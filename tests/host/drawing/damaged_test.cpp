#include "notation.h"

#include <gtest/gtest.h>

using namespace zuhost;

namespace {

struct Damage {
    const char* what;
    std::string bytes;
    std::uint64_t line;
    std::wstring problem; ///< A part of it.
};

std::string entities(const std::string& records) {
    return dxf("0 SECTION|2 ENTITIES\n" + records + "\n0 ENDSEC|0 EOF");
}

const Damage damages[] = {
    {"empty file", "", 1, L"EOF"},
    {"text of another kind", "Hello\nworld\n", 1, L"group code"},
    {"no EOF", dxf("0 SECTION|2 ENTITIES|0 ENDSEC"), 7, L"EOF"},
    {"cut within a value", "0\nSECTION\n2\nENTI", 4, L"ends within the section"},
    {"cut behind a group code", "0\nSECTION\n2\nENTITIES\n0\n", 5, L"group code"},
    {"word as a group code", "0\nSECTION\n2\nENTITIES\n0\nLINE\nlayer\n0\n", 7, L"group code"},
    {"word as a number", entities("0 LINE|8 0|10 1,5"), 10, L"\"1,5\" is not a number"},
    {"number cut off", entities("0 LINE|8 0|10 1.5e"), 10, L"not a number"},
    {"empty number", entities("0 LINE|40 "), 8, L"not a number"},
    {"fraction as an integer", entities("0 LINE|62 1.5"), 8, L"not an integer"},
    {"handle with a letter too many", entities("0 LINE|5 1G"), 8, L"not a handle"},
    {"handle beyond 64 bits", entities("0 LINE|5 10000000000000000"), 8, L"not a handle"},
    {"reference that is no handle", entities("0 LINE|330 XY"), 8, L"not a handle"},
    {"handle twice", entities("0 LINE|5 A|0 POINT|5 B|0 LINE|5 a"), 13, L"handle A occurs a second time"},
    {"two sections of a name", dxf("0 SECTION|2 ENTITIES|0 ENDSEC|0 SECTION|2 ENTITIES|0 ENDSEC|0 EOF"), 10,
     L"second section"},
    {"section in a section", dxf("0 SECTION|2 ENTITIES|0 LINE|8 0|0 SECTION|2 OBJECTS|0 EOF"), 10,
     L"\"SECTION\" within the section \"ENTITIES\""},
    {"section without a name", dxf("0 SECTION|0 ENDSEC|0 EOF"), 4, L"without a name"},
    {"record between sections", dxf("0 SECTION|2 ENTITIES|0 ENDSEC|8 0|0 EOF"), 8, L"outside of any section"},
    {"record before the objects", dxf("0 SECTION|2 ENTITIES|8 0|0 ENDSEC|0 EOF"), 6,
     L"outside of any object"},
    {"EOF in a section", dxf("0 SECTION|2 XYZ|0 THING|0 EOF"), 8, L"within the section \"XYZ\""},
    {"table not closed",
     dxf("0 SECTION|2 TABLES|0 TABLE|2 LAYER|0 LAYER|2 0|0 TABLE|2 STYLE|0 ENDTAB|0 ENDSEC|0 EOF"), 14,
     L"\"TABLE\" within the table \"LAYER\""},
    {"table without a name", dxf("0 SECTION|2 TABLES|0 TABLE|70 1|0 ENDTAB|0 ENDSEC|0 EOF"), 5,
     L"without a name"},
    {"entry outside of tables", dxf("0 SECTION|2 TABLES|0 LAYER|2 0|0 ENDSEC|0 EOF"), 6, L"ENDSEC expected"},
    {"block not closed", dxf("0 SECTION|2 BLOCKS|0 BLOCK|2 A|0 LINE|8 0|0 ENDSEC|0 EOF"), 14,
     L"within the block \"A\""},
    {"block in a block", dxf("0 SECTION|2 BLOCKS|0 BLOCK|2 A|0 BLOCK|2 B|0 ENDBLK|0 ENDSEC|0 EOF"), 10,
     L"within the block \"A\""},
    {"block among entities", entities("0 BLOCK|2 A|0 ENDBLK"), 6, L"\"BLOCK\" within the section"},
    {"object without a type", entities("0 "), 6, L"without a type"},
    {"data behind the end", entities("0 POINT|8 0") + "0\nLINE\n", 13, L"behind the EOF"},
};

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

} // namespace

TEST(Damaged, ErrorNamesFileLineAndProblem) {
    for (const Damage& damage : damages) {
        SCOPED_TRACE(damage.what);
        const DocumentError error = refused(damage.bytes);
        EXPECT_EQ(error.file, L"test.dxf");
        EXPECT_EQ(error.line, damage.line) << narrow(error.problem);
        EXPECT_NE(error.problem.find(damage.problem), std::wstring::npos) << narrow(error.problem);
        EXPECT_EQ(error.message(), L"test.dxf:" + std::to_wstring(error.line) + L": " + error.problem);
    }
}

TEST(Damaged, LinesAreCountedWhateverEndsThem) {
    for (const std::string end : {"\n", "\r\n", "\r"}) {
        std::string bytes;
        for (const char c : entities("0 LINE|10 ?"))
            bytes += c == '\n' ? end : std::string(1, c);
        EXPECT_EQ(refused(bytes).line, 8U);
    }
}

/// Every way to cut a drawing off is told, none opens.
TEST(Damaged, NoPrefixOfADrawingOpens) {
    for (const char* sample : {"/drawings/office-floor-932.dxf", "/parts/binary/fitting-01.dxf"}) {
        const std::string whole = fileBytes(std::string(ZU_SAMPLES) + sample);
        ASSERT_FALSE(whole.empty());
        const std::size_t lastMark = whole.rfind("EOF");
        for (std::size_t size = 0; size < lastMark + 3; size += size < 3000 ? 7 : 997)
            ASSERT_FALSE(refused(whole.substr(0, size)).problem.empty()) << sample << " cut to " << size;
    }
}

TEST(Damaged, BinaryErrorsNameTheByte) {
    std::string bytes = fileBytes(ZU_SAMPLES "/parts/binary/fitting-01.dxf");
    const std::size_t code = bytes.find("$INSBASE") + 9;
    bytes[code] = static_cast<char>(0x52); // 82: no such group code
    const DocumentError error = refused(bytes);
    EXPECT_EQ(error.line, 0U);
    EXPECT_EQ(error.offset, code);
    EXPECT_NE(error.message().find(L": byte " + std::to_wstring(code)), std::wstring::npos);
}

TEST(Damaged, MissingFileIsTold) {
    auto result = Document::openFile(L"no/such/drawing.dxf", nullptr);
    const auto* error = std::get_if<DocumentError>(&result);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->file, L"no/such/drawing.dxf");
    EXPECT_FALSE(error->problem.empty());
}

/// Spellings that are no faults.
TEST(Damaged, OddSpellingsAreAcceptedAndKept) {
    for (const char* records :
         {"40  1.5 ", "40 1.0E 20", "40 nan", "40 -1.#IND", "40 +2", "40 .5", "40 1e400", "70    3 ", "62 +7",
          "5 0", "330 0", "1500 whatever", "-4 <or", "310 odd digits", "290 1"}) {
        const std::string bytes = entities(std::string("0 LINE|") + records);
        EXPECT_EQ(saved(*opened(bytes)), bytes) << records;
    }
}
