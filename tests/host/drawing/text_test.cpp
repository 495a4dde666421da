#include "notation.h"

#include <gtest/gtest.h>

using namespace zuhost;

namespace {

std::unique_ptr<Document> drawingOf(std::string_view version, std::string_view codePage) {
    return opened(ascii("0 SECTION|2 HEADER|9 $ACADVER|1 " + std::string(version) + "|9 $DWGCODEPAGE|3 " +
                        std::string(codePage) + "|0 ENDSEC|0 EOF"));
}

} // namespace

TEST(Text, DecodesByVersionAndCodePage) {
    struct Case {
        const char* version;
        const char* page;
        std::string bytes;
        std::wstring text;
    };
    const Case cases[] = {
        {"AC1015", "ANSI_932", "\x83\x7C\x83\x93\x83\x76", L"ポンプ"},
        {"AC1015", "ansi_932", "\x95\x5C\\U+33a5/h", L"表㎥/h"}, // the second byte of 表 is a backslash
        {"AC1018", "ANSI_932", "\x83\x5E\x5E\x4A", L"タ\n"},     // ... and that of タ a caret
        {"AC1021", "ANSI_932", "\xE8\xA1\xA8", L"表"},           // UTF-8 regardless of the page
        {"AC1032", "ANSI_1252", "\\U+8868", L"表"},
        {"AC1015", "ANSI_1252", "\xE9\x80", L"é€"},
        {"AC1009", "dos850", "\x82", L"é"},
        {"AC1015", "ANSI_1252", "\\M+1955C \\M+5B1ED", L"表 表"}, // Shift JIS and GBK
        {"AC1032", "", "\\U+D842\\U+DFB7", L"𠮷"},
        {"AC1032", "", "a^Jb^Ic^ d", L"a\nb\tc^d"},
        {"AC1032", "", "\\U+12 \\U+XYZW \\M+9ABCD ^2 ^", L"\\U+12 \\U+XYZW \\M+9ABCD ^2 ^"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(drawingOf(c.version, c.page)->decode(c.bytes), c.text) << c.version << ' ' << c.bytes;
}

TEST(Text, DecodingRestoresEncodedText) {
    const std::wstring texts[] = {L"機器-固定",         L"850㎥/h é ü", L"𠮷野家",
                                  L"line\r\nline\tend", L"x^2 ^J",      L"\\U+0041 \\P \\M+1955C",
                                  L"能 ～ － ①"};
    for (const char* version : {"AC1009", "AC1015", "AC1032"}) {
        for (const char* page : {"ANSI_932", "ANSI_1252", "no-such-page"}) {
            const auto document = drawingOf(version, page);
            for (const std::wstring& text : texts) {
                const std::string bytes = document->encode(text);
                EXPECT_EQ(document->decode(bytes), text) << version << ' ' << page << ' ' << bytes;
                EXPECT_EQ(bytes.find_first_of("\r\n\t"), std::string::npos);
            }
        }
    }
    EXPECT_EQ(drawingOf("AC1015", "ANSI_932")->encode(L"㎥é"), "\\U+33A5\\U+00E9");
    EXPECT_EQ(drawingOf("AC1015", "ANSI_1252")->encode(L"𠮷"), "\\U+D842\\U+DFB7");
}

TEST(Text, LoneSurrogatesArePreserved) {
    const auto document = drawingOf("AC1032", "");
    EXPECT_EQ(document->encode(document->decode("a\\U+D842b")), "a\\U+D842b");
}

TEST(Text, UnknownCodePageIsAWarning) {
    const auto document = drawingOf("AC1015", "ANSI_4711");
    ASSERT_EQ(document->warnings().size(), 1U);
    EXPECT_NE(document->warnings()[0].message().find(L"ANSI_4711"), std::wstring::npos);
    EXPECT_EQ(document->decode("\x95\x5C"), L"表");
    EXPECT_EQ(drawingOf("AC1015", "ANSI_37")->warnings().size(), 1U); // a page without ASCII
    EXPECT_TRUE(drawingOf("AC1032", "ANSI_4711")->warnings().empty());
}
