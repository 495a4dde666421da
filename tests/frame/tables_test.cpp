#include "temporary_folder.h"

#include <zucomn/tables.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Fields = std::vector<std::wstring>;

Fields fieldsOf(const CStringArray& array) {
    Fields fields;
    for (int i = 0; i < array.GetSize(); ++i)
        fields.emplace_back(array[i].view());
    return fields;
}

TEST(Tables, FlatForm) {
    const struct {
        const char* bytes;
        int skip;
        const wchar_t* columns;
        int result;
        Fields fields;
    } cases[] = {
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
    };
    const TemporaryFolder folder;
    for (const auto& c : cases) {
        folder.write("t.csv", c.bytes);
        CStringArray fields;
        fields.Add(L"before");
        EXPECT_EQ(ZuComn_ReadConfigFile(folder.wide("t.csv").c_str(), fields, c.skip, c.columns, L"|"),
                  c.result)
            << c.bytes;
        EXPECT_EQ(fieldsOf(fields), c.fields) << c.bytes;
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

TEST(Tables, WhatCannotBeReadLeavesTheOutput) {
    const TemporaryFolder folder;
    CStringArray fields;
    fields.Add(L"before");
    for (const std::wstring& path : {folder.wide("missing.csv"), folder.wide(""), std::wstring()})
        EXPECT_EQ(ZuComn_ReadConfigFile(path.c_str(), fields, 0, nullptr, L"|"), -1);
    EXPECT_EQ(ZuComn_ReadConfigFile(folder.wide("missing.csv").c_str(), fields, 0, nullptr, nullptr), -1);
    EXPECT_EQ(fieldsOf(fields), Fields{L"before"});
    EXPECT_EQ(ZuComn_findFile(folder.wide("missing.csv").c_str()), 0);
}

} // namespace
