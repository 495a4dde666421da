#include "attributes/partslist/attribute_lines.h"
#include "attributes/partslist/lines_file.h"
#include "temporary_folder.h"
#include "texts.h"

#include <zuhost/file_ops.h>
#include <zuhost/texts.h>

#include <gtest/gtest.h>

namespace {

TEST(PartsList, ItemsEndAfterTheSixthFieldOrALineEnd) {
    const std::pair<const wchar_t*, Texts> cases[] = {
        {L"", {}},
        {L"\r\n  \n", {}},
        {L"a|b|c|d|e|f|A|B|C|D|E|F|", {L"a|b|c|d|e|f|", L"A|B|C|D|E|F|"}},
        {L"a|b|c|d|e|f|\rA|B|C|D|E|F|\n", {L"a|b|c|d|e|f|", L"A|B|C|D|E|F|"}},
        {L"a||||||A|B|\nC|D", {L"a||||||", L"A|B|||||", L"C|D|||||"}},
        {L"|||||||", {L"||||||", L"||||||"}},
    };
    for (const auto& [text, expectedLines] : cases) {
        CStringArray lines;
        zu::appendItems(text, lines);
        EXPECT_EQ(textsOf(lines), expectedLines) << testing::PrintToString(std::wstring(text));
    }
    EXPECT_EQ(zu::paddedLine(L"a|b|c|d|e|f|g|h"), L"a|b|c|d|e|f|");
    EXPECT_EQ(zu::paddedLine(L"a||c"), L"a||c||||");
}

TEST(PartsList, RepeatedIdStartsAPart) {
    const auto sizesOf = [](std::initializer_list<const wchar_t*> list) {
        std::vector<int> sizes;
        int next = 0;
        for (const zu::LineRange& part : zu::partsOf(arrayOf(list))) {
            EXPECT_EQ(part.first, next);
            next += part.count;
            sizes.push_back(part.count);
        }
        return sizes;
    };
    EXPECT_EQ(sizesOf({}), std::vector<int>());
    EXPECT_EQ(sizesOf({L"A|", L"B|", L"|x|", L"|y|"}), std::vector<int>({4}));
    EXPECT_EQ(sizesOf({L"A|", L"B|", L"A|", L"A|", L"C|"}), std::vector<int>({2, 1, 2}));
}

TEST(PartsList, WritesEditableValuesIntoLines) {
    const CStringArray editable = arrayOf({L"A", L"", L"x", L"1"});
    const CStringArray fixed = arrayOf({L"B", L"", L"x", L"0"});
    CPtrArray table;
    table.Add(const_cast<CStringArray*>(&editable));
    table.Add(const_cast<CStringArray*>(&fixed));
    const zu::ParameterIndex parameters(table);
    const auto after = [&](const wchar_t* key, const wchar_t* value) {
        CStringArray lines = arrayOf({L"A|3", L"B|4|||||", L"A|1|p|||6|"});
        const std::vector<zu::ShownItem> items = {{key, value}};
        zu::applyToLines(lines, items, parameters);
        EXPECT_EQ(lines[1], L"B|4|||||");
        return textsOf(lines);
    };
    const Texts before = {L"A|3", L"B|4|||||", L"A|1|p|||6|"};
    EXPECT_EQ(after(L"A|", L"新"), Texts({L"A|新|||||", L"B|4|||||", L"A|新|p|||6|"}));
    EXPECT_EQ(after(L"A|", L""), Texts({L"A||||||", L"B|4|||||", L"A||p|||6|"}));
    EXPECT_EQ(after(L"A|", L"3")[0], L"A|3") << "unchanged value";
    EXPECT_EQ(after(L"B|", L"5"), before) << "not editable";
    EXPECT_EQ(after(L"C|", L"5"), before) << "unknown id";
    EXPECT_EQ(after(L"A|", L"*各種*"), before);
    EXPECT_EQ(after(L"A|", L"x|y"), before);
    EXPECT_EQ(after(L"A|", L"x\ny"), before);
}

TEST(PartsList, MergesItemsOfSeveralParts) {
    std::wstring text;
    for (const zu::ShownItem& item :
         zu::shownItemsOf(arrayOf({L"A|1|", L"B|2|", L"|x|", L"A|3|", L"B|2|", L"C|4|"})))
        text += std::wstring(zuhost::viewOf(item.key)) + std::wstring(zuhost::viewOf(item.value)) +
                (item.shared ? L" " : L"- ");
    EXPECT_EQ(text, L"A|*各種* B|2 C|4- ");
    EXPECT_EQ(zu::lineName(L"x|1|P|ｻｲｽﾞ|"), L"ｻｲｽﾞ");
    EXPECT_EQ(zu::lineName(L"x|1|"), L"x");
}

class LinesFile : public testing::Test {
protected:
    void save(std::string_view name, CStringArray lines, bool saved = true) const {
        EXPECT_EQ(zu::saveLines(path(name), lines), saved);
    }
    [[nodiscard]] CString path(std::string_view name) const { return zuhost::textOf(folder_.wide(name)); }
    [[nodiscard]] std::string read(std::string_view name) const {
        return TemporaryFolder::read(folder_.file(name));
    }

    TemporaryFolder folder_;
};

TEST_F(LinesFile, WritesLineEndsForRouteAttributesOnly) {
    const CStringArray lines = arrayOf({L"S1|値", L"S2||E||5|1|"});
    save("RootAttr.dat", lines);
    EXPECT_EQ(read("RootAttr.dat"), "S1|\x92\x6C|||||\r\nS2||E||5|1|\r\n");
    save("parts.txt", lines);
    EXPECT_EQ(read("parts.txt"), "S1|\x92\x6C|||||S2||E||5|1|");
    folder_.write("parts.txt", "\xEF\xBB\xBF");
    save("parts.txt", arrayOf({L"𠮷"}));
    EXPECT_EQ(read("parts.txt"), "\xEF\xBB\xBF𠮷||||||") << "an existing file keeps its encoding";

    EXPECT_TRUE(zu::isRouteAttributeFile(L"C:\\a\\RootAttr.dat"));
    EXPECT_TRUE(zu::isRouteAttributeFile(L"/a/RootAttr.dat"));
    EXPECT_FALSE(zu::isRouteAttributeFile(L"C:\\a\\MyRootAttr.dat"));
}

TEST_F(LinesFile, SampleRoundTrips) {
    CStringArray lines;
    ASSERT_TRUE(zu::readLines(ZU_SAMPLES L"/system/RootAttr.dat", lines));
    ASSERT_EQ(lines.GetSize(), 4);
    EXPECT_EQ(lines[3], L"S302|300|P|ｻｲｽﾞ|5|1|");
    save("RootAttr.dat", lines);
    EXPECT_EQ(read("RootAttr.dat"), TemporaryFolder::read(ZU_SAMPLES "/system/RootAttr.dat"));
    const std::string joinedBytes = "S401|2700|E|\nS1|x";
    folder_.write("own.txt", joinedBytes);
    ASSERT_TRUE(zu::readLines(path("own.txt"), lines));
    save("own.txt", lines);
    EXPECT_EQ(read("own.txt"), joinedBytes) << "unchanged lines leave the bytes alone";
    ASSERT_TRUE(zu::readLines(ZU_SAMPLES L"/system/RootAttr.dat", lines));

    save("joined.txt", lines);
    CStringArray joined;
    ASSERT_TRUE(zu::readLines(path("joined.txt"), joined));
    EXPECT_EQ(textsOf(joined), textsOf(lines));
    EXPECT_FALSE(zu::readLines(path("missing.txt"), joined));
    EXPECT_EQ(joined.GetSize(), 4);
}

TEST_F(LinesFile, FailedSaveKeepsFileAndLines) {
    folder_.write("parts.txt", "old");
    save("missing/parts.txt", arrayOf({L"A|1"}), false);
    save("parts.txt", arrayOf({L"A|𠮷"}), false);
    CStringArray withNull;
    withNull.Add(zuhost::textOf(std::wstring_view(L"A\0|1", 4)));
    save("parts.txt", withNull, false);
    EXPECT_EQ(read("parts.txt"), "old") << "the encoding cannot represent a character, and a null character";

    const std::string mark = "\xEF\xBB\xBF";
    folder_.write("parts.txt", mark + "old");
    save("parts.txt", arrayOf({L"A|1\nB|2"}), false);
    int failures = 0;
    for (std::uint64_t n = 1; n < 40; ++n) {
        folder_.write("parts.txt", mark + "old");
        CStringArray lines = arrayOf({L"A|1"});
        bool saved = false;
        {
            const zuhost::file_ops::FailAt failure(n);
            saved = zu::saveLines(path("parts.txt"), lines);
        }
        failures += saved ? 0 : 1;
        EXPECT_EQ(lines[0], saved ? L"A|1|||||" : L"A|1") << n;
        EXPECT_EQ(read("parts.txt"), mark + (saved ? "A|1|||||" : "old")) << n;
    }
    EXPECT_GT(failures, 3);
    EXPECT_LT(failures, 35);
}

} // namespace
