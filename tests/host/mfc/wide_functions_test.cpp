#include "temporary_folder.h"

#include <afx.h>
#include <shlwapi.h>

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(WideFunctions, BuffersThatAreTooSmallStayTerminated) {
    wchar_t buffer[4] = L"ab";
    EXPECT_NE(wcscat_s(buffer, L"cd"), 0);
    EXPECT_STREQ(buffer, L"");
    EXPECT_NE(wcscpy_s(buffer, 4, nullptr), 0);
    EXPECT_NE(wcscpy_s(static_cast<wchar_t*>(nullptr), 4, L"a"), 0);
    EXPECT_NE(wcscpy_s(buffer, 0, L"a"), 0);
    wchar_t unterminated[2] = {L'a', L'b'};
    EXPECT_NE(wcscat_s(unterminated, L"c"), 0);
    EXPECT_STREQ(unterminated, L"");
    EXPECT_EQ(wcsncpy_s(buffer, L"abcdef", 2), 0);
    EXPECT_STREQ(buffer, L"ab");
    EXPECT_NE(wcsncpy_s(buffer, L"abcdef", 4), 0);
    EXPECT_EQ(_snwprintf(buffer, 4, L"%d", 1234), 4) << "no room for a final zero, none written";
    EXPECT_EQ(_snwprintf_s(buffer, 3, L"%d", 1234), -1);
    EXPECT_STREQ(buffer, L"123");
    EXPECT_EQ(_snwprintf_s(buffer, _TRUNCATE, L"%d", 12), 2);
    EXPECT_EQ(swprintf_s(buffer, 4, nullptr), 0);
}

TEST(WideFunctions, IntegersOfAnyBaseAreLimited) {
    const std::tuple<const wchar_t*, int, LONG, std::ptrdiff_t> cases[] = {
        {L" -42x", 10, -42, 4},
        {L"0x1F", 0, 31, 4},
        {L"0x", 16, 0, 1},
        {L"017", 0, 15, 3},
        {L"zz", 36, 35 * 37, 2},
        {L"99999999999", 10, std::numeric_limits<LONG>::max(), 11},
        {L"-99999999999", 10, std::numeric_limits<LONG>::min(), 12},
        {L"none", 10, 0, 0},
        {L"12", 1, 0, 0},
    };
    for (const auto& [text, base, value, length] : cases) {
        wchar_t* end = nullptr;
        EXPECT_EQ(_tcstol(text, &end, base), value) << text;
        EXPECT_EQ(end - text, length) << text;
    }
    EXPECT_EQ(_tcstoul(L"4294967295", nullptr, 10), 4294967295U);
    EXPECT_EQ(_tcstoul(L"4294967296", nullptr, 10), 4294967295U);
    EXPECT_EQ(_wtoi64(L"-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(_wtoi64(L"99999999999999999999"), std::numeric_limits<std::int64_t>::max());
    wchar_t digits[33];
    EXPECT_EQ(_itow_s(-1, digits, 2), 0);
    EXPECT_EQ(std::wstring(digits), std::wstring(32, L'1'));
    EXPECT_NE(_itow_s(5, digits, 1), 0);
    wchar_t* end = nullptr;
    EXPECT_EQ(_tcstod(L" +1.5e2m", &end), 150);
    EXPECT_EQ(*end, L'm');
    EXPECT_EQ(_tcstod(L"x", &end), 0);
    EXPECT_EQ(*end, L'x');
}

TEST(WideFunctions, NarrowTextsReplaceWhatTheCodePageLacks) {
    EXPECT_STREQ(CW2A(L"表"), "\x95\x5C");
    EXPECT_STREQ(CW2A(L"a\u0633b"), "a?b");
    EXPECT_EQ(static_cast<char*>(CW2A(nullptr)), nullptr);
    EXPECT_STREQ(CA2W("\x95\x5C"), L"表");
    EXPECT_EQ(CString("\x95\x5C"), L"表");
    EXPECT_EQ(CString("abc", 2), L"ab");
    EXPECT_EQ(CString(static_cast<const char*>(nullptr)), L"");
}

TEST(PathFunctions, ChangeTextsInPlace) {
    struct Case {
        const wchar_t* path;
        const wchar_t* name;
        const wchar_t* extension;
        const wchar_t* folder;
    };
    const Case cases[] = {
        {L"C:\\a\\b.txt", L"b.txt", L".txt", L"C:\\a"},
        {L"C:\\b.txt", L"b.txt", L".txt", L"C:\\"},
        {L"a/b.c/d", L"d", L"", L"a/b.c"},
        {L"name", L"name", L"", L""},
        {L"C:\\a\\", L"a\\", L"", L"C:\\a"},
        {L"", L"", L"", L""},
    };
    for (const Case& c : cases) {
        EXPECT_STREQ(PathFindFileName(c.path), c.name);
        EXPECT_STREQ(PathFindExtension(c.path), c.extension);
        wchar_t path[MAX_PATH];
        lstrcpy(path, c.path);
        PathRemoveFileSpec(path);
        EXPECT_STREQ(path, c.folder) << c.path;
    }
    wchar_t path[MAX_PATH];
    EXPECT_STREQ(PathCombine(path, L"C:\\a\\", L"b"), L"C:\\a\\b");
    EXPECT_STREQ(PathCombine(path, L"C:\\a", L"D:\\b"), L"D:\\b");
    EXPECT_EQ(PathCombine(path, std::wstring(MAX_PATH, L'a').c_str(), L"b"), nullptr);
    EXPECT_STREQ(path, L"");
    EXPECT_EQ(PathFindFileName(nullptr), nullptr);
    EXPECT_FALSE(PathRemoveFileSpec(nullptr));
    EXPECT_FALSE(PathFileExists(nullptr));
}

TEST(FolderFunctions, CreateFindAndRemove) {
    const TemporaryFolder folder;
    const std::wstring sub = folder.wide("Sub");
    EXPECT_TRUE(CreateDirectory(sub.c_str(), nullptr));
    EXPECT_FALSE(CreateDirectory(sub.c_str(), nullptr));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_FALSE(CreateDirectory(folder.wide("no/folder").c_str(), nullptr));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    folder.write("Sub/B.TXT", "12345");
    folder.write("Sub/a.txt", "");
    folder.write("Sub/c.dat", "");
    EXPECT_FALSE(RemoveDirectory(sub.c_str())) << "it is not empty";
    std::wstring found;
    WIN32_FIND_DATA data;
    const HANDLE search = FindFirstFile((sub + L"\\?.txt").c_str(), &data);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    do
        found += std::wstring(data.cFileName) + L':' + std::to_wstring(data.nFileSizeLow) + L' ';
    while (FindNextFile(search, &data));
    EXPECT_EQ(GetLastError(), ERROR_NO_MORE_FILES);
    EXPECT_TRUE(FindClose(search));
    EXPECT_EQ(found, L"B.TXT:5 a.txt:0 ");
    EXPECT_EQ(FindFirstFile((sub + L"\\*.none").c_str(), &data), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(FindNextFile(INVALID_HANDLE_VALUE, &data));
    EXPECT_FALSE(FindClose(nullptr));
    const std::wstring file = sub + L"\\c.dat";
    EXPECT_TRUE(SetFileAttributes(file.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(GetFileAttributes(file.c_str()), FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(SetFileAttributes(file.c_str(), FILE_ATTRIBUTE_NORMAL));
    EXPECT_EQ(GetFileAttributes(sub.c_str()), FILE_ATTRIBUTE_DIRECTORY);
    wchar_t full[MAX_PATH];
    wchar_t* name = nullptr;
    EXPECT_EQ(GetFullPathName(file.c_str(), 3, full, &name), file.size() + 1) << "the size needed";
    GetFullPathName(file.c_str(), MAX_PATH, full, &name);
    EXPECT_STREQ(name, L"c.dat");
}

} // namespace
