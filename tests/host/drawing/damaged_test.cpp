#include "notation.h"

#include <gtest/gtest.h>

using namespace zuhost;

namespace {

struct Damage {
    const char* what;
    std::string bytes;
    std::uint64_t line;
    std::wstring problem; ///< A part of the message.
};

std::string entities(const std::string& records) {
    return ascii("0 SECTION|2 ENTITIES\n" + records + "\n0 ENDSEC|0 EOF");
}

const Damage kUnreadable[] = {
    {"empty file", "", 1, L"EOF"},
    {"text of another kind", "Hello\nworld\n", 1, L"group code"},
    {"no EOF", ascii("0 SECTION|2 ENTITIES|0 ENDSEC"), 7, L"EOF"},
    {"cut within a value", "0\nSECTION\n2\nENTI", 4, L"ends within the section"},
    {"cut after a group code", "0\nSECTION\n2\nENTITIES\n0\n", 5, L"group code"},
    {"cut within a block", ascii("0 SECTION|2 BLOCKS|0 BLOCK|2 A|0 LINE"), 11,
     L"ends within the block \"A\""},
    {"word as a group code", "0\nSECTION\n2\nENTITIES\n0\nLINE\nlayer\n0\n", 7, L"group code"},
};

const Damage kMended[] = {
    {"word as a number", entities("0 LINE|8 0|10 1,5"), 10, L"\"1,5\" is not a number"},
    {"number cut off", entities("0 LINE|8 0|10 1.5e"), 10, L"not a number"},
    {"empty number", entities("0 LINE|40 "), 8, L"not a number"},
    {"fraction as an integer", entities("0 LINE|62 1.5"), 8, L"not an integer"},
    {"handle with a letter too many", entities("0 LINE|5 1G"), 8, L"\"1G\" is not a handle"},
    {"empty handle", entities("0 LINE|5 |8 0"), 8, L"group code 5: \"\" is not a handle"},
    {"handle beyond 64 bits", entities("0 LINE|5 10000000000000000"), 8, L"not a handle"},
    {"reference that is no handle", entities("0 MLINE|340 Standard"), 8,
     L"340: \"Standard\" is not a handle"},
    {"handle twice", entities("0 LINE|5 A|0 POINT|5 B|0 LINE|5 a"), 13, L"handle A occurs a second time"},
    {"two sections of a name", ascii("0 SECTION|2 ENTITIES|0 ENDSEC|0 SECTION|2 ENTITIES|0 ENDSEC|0 EOF"), 7,
     L"second section"},
    {"two headers", ascii("0 SECTION|2 HEADER|0 ENDSEC|0 SECTION|2 HEADER|9 $X|0 ENDSEC|0 EOF"), 7,
     L"second"},
    {"section in a section", ascii("0 SECTION|2 ENTITIES|0 LINE|8 0|0 SECTION|2 OBJECTS|0 ENDSEC|0 EOF"), 1,
     L"the section \"ENTITIES\" is not closed"},
    {"EOF in a section", ascii("0 SECTION|2 XYZ|0 THING|0 EOF"), 1, L"the section \"XYZ\" is not closed"},
    {"EOF in a block", ascii("0 SECTION|2 BLOCKS|0 BLOCK|2 A|0 EOF"), 1, L"\"BLOCKS\" is not closed"},
    {"section without SECTION", ascii("0 SECTIOM|2 ENTITIES|0 LINE|8 0|0 ENDSEC|0 EOF"), 2,
     L"\"SECTIOM\" out"},
    {"section name alone", ascii("2 ENTITIES|0 LINE|8 0|0 ENDSEC|0 EOF"), 1, L"\"ENTITIES\" has no SECTION"},
    {"section without a name", ascii("0 SECTION|0 ENDSEC|0 EOF"), 1, L"without a name"},
    {"record between sections", ascii("0 SECTION|2 ENTITIES|0 ENDSEC|8 0|0 EOF"), 8, L"outside of sections"},
    {"object between sections", ascii("0 LINE|8 0|0 SECTION|2 ENTITIES|0 ENDSEC|0 EOF"), 2,
     L"\"LINE\" outside"},
    {"ENDSEC twice", ascii("0 SECTION|2 ENTITIES|0 ENDSEC|0 ENDSEC|0 EOF"), 8, L"\"ENDSEC\" outside"},
    {"record before the objects", ascii("0 SECTION|2 ENTITIES|8 0|0 ENDSEC|0 EOF"), 6, L"outside of objects"},
    {"value without a variable", ascii("0 SECTION|2 HEADER|70 1|0 ENDSEC|0 EOF"), 5, L"name of a variable"},
    {"object in the header", ascii("0 SECTION|2 HEADER|0 LINE|0 ENDSEC|0 EOF"), 6, L"\"LINE\" outside"},
    {"table not closed",
     ascii("0 SECTION|2 TABLES|0 TABLE|2 LAYER|0 LAYER|2 0|0 TABLE|2 STYLE|0 ENDTAB|0 ENDSEC|0 EOF"), 5,
     L"the table \"LAYER\" is not closed"},
    {"table without a name", ascii("0 SECTION|2 TABLES|0 TABLE|70 1|0 ENDTAB|0 ENDSEC|0 EOF"), 5,
     L"without a name"},
    {"entry outside of tables", ascii("0 SECTION|2 TABLES|0 LAYER|2 0|0 ENDSEC|0 EOF"), 6,
     L"outside of tables"},
    {"block not closed", ascii("0 SECTION|2 BLOCKS|0 BLOCK|2 A|0 LINE|8 0|0 ENDSEC|0 EOF"), 5,
     L"the block \"A\" is not closed"},
    {"block in a block", ascii("0 SECTION|2 BLOCKS|0 BLOCK|2 A|0 BLOCK|2 B|0 ENDBLK|0 ENDSEC|0 EOF"), 5,
     L"the block \"A\" is not closed"},
    {"block without a name", ascii("0 SECTION|2 BLOCKS|0 BLOCK|8 0|0 ENDBLK|0 ENDSEC|0 EOF"), 5,
     L"without a name"},
    {"block among entities", entities("0 BLOCK|2 A|0 ENDBLK"), 6, L"\"BLOCK\" outside of objects"},
    {"object without a type", entities("0 "), 5, L"without a type"},
    {"data after the end", entities("0 POINT|8 0") + "0\nLINE\n", 13, L"after the EOF"},
};

std::string narrow(const std::wstring& text) {
    return {text.begin(), text.end()};
}

void expectFault(const Damage& damage, const DocumentError& fault) {
    EXPECT_EQ(fault.file, L"test.dxf");
    EXPECT_EQ(fault.line, damage.line) << narrow(fault.problem);
    EXPECT_NE(fault.problem.find(damage.problem), std::wstring::npos) << narrow(fault.problem);
    EXPECT_EQ(fault.message(L"warning: "),
              L"test.dxf:" + std::to_wstring(fault.line) + L": warning: " + fault.problem);
}

/// A change that touches no object of the file.
std::string withNewBlock(std::string bytes) {
    const auto document = opened(std::move(bytes));
    document->appendBlock("NEW", nullptr);
    return saved(*document);
}

} // namespace

TEST(Damaged, UnreadableStructureIsAnError) {
    for (const Damage& damage : kUnreadable) {
        SCOPED_TRACE(damage.what);
        expectFault(damage, refused(damage.bytes));
    }
}

TEST(Damaged, OtherFaultsAreWarningsAndPreserved) {
    for (const Damage& damage : kMended) {
        SCOPED_TRACE(damage.what);
        const auto document = opened(damage.bytes);
        ASSERT_FALSE(document->warnings().empty());
        expectFault(damage, document->warnings().front());
        EXPECT_EQ(saved(*document), damage.bytes);
        EXPECT_EQ(opened(withNewBlock(damage.bytes))->objectCount(), document->objectCount() + 2);
    }
}

/// The first object keeps the handle. The others are found and, after any change, saved under new ones.
TEST(Damaged, RepeatedAndUnreadableHandlesAreReplacedInChangedDrawings) {
    const std::string bytes =
        drawing("AC1015", R"(0 SECTION|2 ENTITIES|0 LINE|5 A|0 POINT|102 {X|5 C|102 }|5 A|8 p
0 CIRCLE|5 ?|0 ARC|5 a|0 ENDSEC)");
    const auto document = opened(bytes);
    EXPECT_EQ(saved(*document), bytes);
    EXPECT_EQ(document->find(0xA), member(*document, "LINE"));
    EXPECT_EQ(document->find(0xB), member(*document, "POINT"));
    EXPECT_EQ(document->tags(*member(*document, "POINT")),
              TagList({{0, "POINT"}, {102, "{X"}, {5, "C"}, {102, "}"}, {5, "B"}, {8, "p"}}));
    const auto again = opened(withNewBlock(bytes));
    EXPECT_TRUE(again->warnings().empty());
    EXPECT_EQ(again->find(0xB), member(*again, "POINT"));
    EXPECT_EQ(again->find(0xC), member(*again, "CIRCLE"));
    EXPECT_EQ(again->find(0xD), member(*again, "ARC"));
    EXPECT_TRUE(opened(document->bytes(DrawingForm::binary, nullptr))->warnings().empty());
}

TEST(Damaged, ManyFaultsAreCounted) {
    std::string records;
    for (int i = 0; i < 5000; ++i)
        records += "0 LINE|5 A|62 x|" + std::to_string(60 + i % 20) + " y\n";
    const auto document = opened(entities(records));
    const auto& warnings = document->warnings();
    EXPECT_EQ(warnings.size(), 21U * 3); // codes 60 to 79, and the handles
    EXPECT_EQ(warnings[0].message(), L"test.dxf:10: group code 62: \"x\" is not an integer");
    EXPECT_TRUE(std::any_of(warnings.begin(), warnings.end(), [](const DocumentError& warning) {
        return warning.problem.find(L"(and 4996 more like it)") != std::wstring::npos;
    }));
}

TEST(Damaged, LinesAreCountedWithEveryLineEnd) {
    for (const std::string end : {"\n", "\r\n", "\r"}) {
        std::string bytes;
        for (const char c : entities("0 LINE|10 ?"))
            bytes += c == '\n' ? end : std::string(1, c);
        EXPECT_EQ(opened(bytes)->warnings().front().line, 8U);
    }
}

TEST(Damaged, TruncatedDrawingsAreErrors) {
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

TEST(Damaged, MissingFileIsReported) {
    auto result = Document::openFile(L"no/such/drawing.dxf", nullptr);
    const auto* error = std::get_if<DocumentError>(&result);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->file, L"no/such/drawing.dxf");
    EXPECT_FALSE(error->problem.empty());
}

TEST(Damaged, UnusualNotationsAreAcceptedAndPreserved) {
    for (const char* records :
         {"40  1.5 ", "40 1.0E 20", "40 nan", "40 -1.#IND", "40 +2", "40 .5", "40 1e400", "70    3 ", "62 +7",
          "5 0", "330 0", "1500 whatever", "-4 <or", "310 odd digits", "290 1"}) {
        const std::string bytes = entities(std::string("0 LINE|") + records);
        EXPECT_EQ(saved(*opened(bytes)), bytes) << records;
    }
}
