#include "temporary_folder.h"
#include "texts.h"

#include <zucomn/tables.h>

#include <zuhost/file_ops.h>
#include <zuhost/texts.h>

#include <gtest/gtest.h>

namespace {

namespace file_ops = zuhost::file_ops;

TEST(Tables, FlatForm) {
    const std::tuple<std::string_view, int, const wchar_t*, int, Texts> cases[] = {
        {"a|b|\n", 0, nullptr, 0, {L"a", L"b", L""}},
        {"a|b|c\n", 0, L"2", 0, {L"b"}},
        {"a|b|c\n", 0, L"3,1", 0, {L"a", L"c"}},
        {"a\nend\nb\n", 0, nullptr, 0, {L"a"}},
        {"ENDING\nEND \nx\n", 0, nullptr, 0, {L"ENDING", L"END", L"x"}},
        {"# c\n   \n  x  | y#  \n", 0, nullptr, 0, {L"  x", L" y#"}},
        {"# c\n\nEND\n", 0, nullptr, -1, {}},
        {"a\n", 5, nullptr, -1, {}},
        {"a\r\nb", 1, nullptr, 0, {L"b"}},
        {"\x83\x7C\x83\x93\x83\x76|x\n", 0, nullptr, 0, {L"ポンプ", L"x"}}, // "|" as a second byte
        {"\xEF\xBB\xBF㎥|x\n", 0, nullptr, 0, {L"㎥", L"x"}},
        {"a|b\x83", 0, nullptr, 0, {L"a", L"b・"}}, // ends inside a character
        {"a|\x83\nb\n", 0, nullptr, 0, {L"a", L"・", L"b"}},
        {"\uFEFFa|\xE3\x8E", 0, nullptr, 0, {L"a", L"\uFFFD\uFFFD"}},
        {std::string_view("\377\376a\0|\0b", 7), 0, nullptr, 0, {L"a", L""}},
        {std::string_view("a\0b|\0\n", 6), 0, nullptr, 0, {std::wstring(L"a\0b", 3), std::wstring(1, L'\0')}},
    };
    const TemporaryFolder folder;
    for (const auto& [bytes, skip, columns, result, expectedFields] : cases) {
        folder.write("t.csv", bytes);
        CStringArray fields;
        fields.Add(L"before");
        EXPECT_EQ(ZuComn_ReadConfigFile(folder.wide("t.csv").c_str(), fields, skip, columns, L"|"), result)
            << bytes;
        EXPECT_EQ(textsOf(fields), expectedFields) << bytes;
    }
}

TEST(Tables, RecordsWithoutKeptFieldsAreStored) {
    const TemporaryFolder folder;
    folder.write("t.csv", "a\nb|c\n");
    CPtrArray records;
    EXPECT_EQ(ZuComn_ReadConfigFile(folder.wide("t.csv").c_str(), records, 0, L"2", L"|"), 0);
    ASSERT_EQ(records.GetSize(), 2);
    EXPECT_TRUE(static_cast<CStringArray*>(static_cast<CObject*>(records[0]))->IsEmpty());
    ZuComn_RemoveAllFree(records);
}

/// Returns numbered records, enough of which make a table that several threads read.
std::string manyRecords(int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i)
        bytes.append("# comment\n").append(std::to_string(i)).append("|\x83\x7C|same\n");
    return bytes;
}

TEST(Tables, RecordsOfALargeFileKeepTheirOrder) {
    constexpr int kRecords = 60'000;
    const TemporaryFolder folder;
    folder.write("t.csv", "first\nsecond\n" + manyRecords(kRecords) + "END\nx|y|z\n" + manyRecords(kRecords));
    const std::wstring path = folder.wide("t.csv");
    CStringArray fields;
    CPtrArray records;
    ASSERT_EQ(ZuComn_ReadConfigFile(path.c_str(), fields, 2, nullptr, L"|"), 0);
    ASSERT_EQ(ZuComn_ReadConfigFile(path.c_str(), records, 2, L"1,2", L"|"), 0);
    ASSERT_EQ(fields.GetSize(), 3 * kRecords);
    ASSERT_EQ(records.GetSize(), kRecords);
    for (int i = 0; i < kRecords; ++i) {
        const CStringArray& record = *static_cast<CStringArray*>(static_cast<CObject*>(records[i]));
        ASSERT_EQ(textsOf(record), (Texts{std::to_wstring(i), L"ポ"}));
        ASSERT_EQ(zuhost::viewOf(fields[3 * i]), zuhost::viewOf(record[0]));
        ASSERT_EQ(fields[3 * i + 2], L"same");
    }
    ZuComn_RemoveAllFree(records);
}

TEST(Tables, IgnoresErrorsAfterTheEndOfALargeTable) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.write("t.csv", manyRecords(30'000) + "END\n");
    std::filesystem::resize_file(file, 40'000'000); // a line that is too long
    CStringArray fields;
    EXPECT_EQ(ZuComn_ReadConfigFile(folder.wide("t.csv").c_str(), fields, 0, L"1", L"|"), 0);
    EXPECT_EQ(fields.GetSize(), 30'000);
}

// The line over the limit is a hole in a sparse file and takes no disk space.
TEST(Tables, ReadErrorsEmptyTheList) {
    const TemporaryFolder folder;
    const std::filesystem::path file = folder.write("t.csv", manyRecords(30'000) + "#");
    const std::wstring path = folder.wide("t.csv");
    const auto fails = [&path] {
        CStringArray fields;
        CPtrArray records;
        return ZuComn_ReadConfigFile(path.c_str(), fields, 0, nullptr, L"|") == -1 && fields.IsEmpty() &&
               ZuComn_ReadConfigFile(path.c_str(), records, 0, nullptr, L"|") == -1 && records.IsEmpty();
    };
    EXPECT_FALSE(fails());
    std::filesystem::resize_file(file, 40'000'000);
    EXPECT_TRUE(fails());
    std::filesystem::resize_file(file, 1'000'000);
    EXPECT_FALSE(fails());
    int reads = 0;
    const file_ops::Interception broken([&reads](file_ops::Operation operation, const std::string&) {
        return operation == file_ops::Operation::read && ++reads % 3 == 0 ? EIO : 0;
    });
    EXPECT_TRUE(fails());
}

TEST(Tables, MissingFilesFoldersAndUnreadableFilesLeaveTheOutputUntouched) {
    const TemporaryFolder folder;
    folder.write("t.csv", "a|b\n");
    const auto expectMissing = [](const std::wstring& path) {
        CStringArray fields;
        fields.Add(L"before");
        EXPECT_EQ(ZuComn_ReadConfigFile(path.c_str(), fields, 0, nullptr, L"|"), -1);
        EXPECT_EQ(textsOf(fields), Texts{L"before"});
        EXPECT_EQ(ZuComn_findFile(path.c_str()), 0);
    };
    for (const std::wstring& path :
         {folder.wide("."), folder.wide("missing.csv"), folder.wide(""), std::wstring()})
        expectMissing(path);
    const file_ops::Interception unreadable([](file_ops::Operation operation, const std::string&) {
        return operation == file_ops::Operation::open ? EACCES : 0;
    });
    expectMissing(folder.wide("t.csv"));
}

} // namespace
