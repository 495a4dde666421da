#include "atomic_file_fixture.h"
#include "environment.h"

#include <afx.h>
#include <zuhost/atomic_file.h>
#include <zuhost/file_ops.h>
#include <zuhost/line_block.h>
#include <zuhost/message_box.h>
#include <zuhost/paths.h>
#include <zuhost/platform/system_rules.h>
#include <zuhost/string_table.h>
#include <zuhost/texts.h>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

TEST(Paths, AreFoundIgnoringCase) {
    const TemporaryFolder folder;
    fs::create_directories(zuhost::platform::pathOf(folder.file("System/表能")));
    folder.write("System/ZuConfig.ini", "x");
    folder.write("System/表能/Ａ.csv", "x");
    const std::wstring root = folder.wide("");
    EXPECT_EQ(zuhost::systemPath(root + L"\\SYSTEM\\zuconfig.INI"), folder.file("System/ZuConfig.ini"));
    EXPECT_EQ(zuhost::systemPath(root + L"/system\\表能\\Ａ.CSV"), folder.file("System/表能/Ａ.csv"));
    EXPECT_EQ(zuhost::systemPath(root + L"\\system\\new.ini"), folder.file("System/new.ini"));
    const std::string drive = zuhost::platform::kPathsHaveDrives ? "C:" : "";
    EXPECT_EQ(zuhost::systemPath(L"C:\\nowhere\\x"), drive + "/nowhere/x");
    EXPECT_EQ(zuhost::systemPath(L""), "");
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutUnnamedFiles, AtomicFile, testing::Bool());

TEST_P(AtomicFile, AnyFailureLeavesTheOldFile) {
    for (const bool fromThenOn : {false, true}) {
        int error = 1;
        for (std::uint64_t n = 1; error != 0; ++n) {
            ASSERT_LT(n, 50U);
            folder.write("f", "old");
            error = replace("new",
                            [&](std::uint64_t at) { return at == n || (fromThenOn && at > n) ? ENOSPC : 0; });
            EXPECT_EQ(TemporaryFolder::read(path), error == 0 ? "new" : "old")
                << "failure at operation " << n;
            // The temporary file may remain only when removing it fails, too.
            EXPECT_TRUE(filesIn(folder) == 1 || fromThenOn) << "failure at operation " << n;
        }
        EXPECT_EQ(filesIn(folder), 1U) << "a save removes leftovers";
    }
}

TEST_P(AtomicFile, LeavesTemporaryFilesOfLivingProcesses) {
    zuhost::file_ops::File living;
    ASSERT_EQ(living.open(folder.write(".zu-saving-0", "x"), zuhost::file_ops::File::Mode::update), 0);
    ASSERT_EQ(living.tryLock(), 0);
    folder.write(".zu-saving-1", "of a dead process");
    EXPECT_EQ(replace("new"), 0);
    EXPECT_TRUE(fs::exists(folder.file(".zu-saving-0")));
    EXPECT_EQ(filesIn(folder), 2U);
}

TEST(StdioFile, ReadsLinesInTheFilesEncoding) {
    const std::pair<std::string, std::vector<std::wstring>> cases[] = {
        {"a\r\nb\n\nc", {L"a", L"b", L"", L"c"}},
        {"\x95\x5C\x94\x5C\n", {L"表能"}},
        {"\xEF\xBB\xBF㎥\r\n", {L"㎥"}},
        {std::string("\xFF\xFE\x68\x88\r\0\n\0x\0", 10), {L"表", L"x"}},
        {"a\x1A\nb", {L"a"}},
        {"a\x83", {L"a・"}},
        {"", {}}};
    const TemporaryFolder folder;
    for (const auto& [bytes, expectedLines] : cases) {
        folder.write("t", bytes);
        CStdioFile file(folder.wide("t").c_str(), CFile::modeRead | CFile::typeText);
        std::vector<std::wstring> lines;
        for (CString line; file.ReadString(line);)
            lines.emplace_back(zuhost::viewOf(line));
        EXPECT_EQ(lines, expectedLines) << bytes;
    }
}

TEST(StdioFile, ReadsLinesFromTheSoughtPosition) {
    const TemporaryFolder folder;
    folder.write("t", "\xEF\xBB\xBF㎥\r\n表\r\n");
    CStdioFile file(folder.wide("t").c_str(), CFile::modeRead | CFile::typeText);
    CString line;
    file.Seek(8, CFile::begin);
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, L"表");
    EXPECT_FALSE(file.ReadString(line));
    file.SeekToBegin();
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, L"㎥");
    EXPECT_EQ(file.GetLength(), 13U);
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, L"表") << "GetLength keeps the position";
}

TEST(StdioFile, BlocksContinueAfterTheLinesRead) {
    const TemporaryFolder folder;
    std::string bytes = "\xFF\xFE";
    std::vector<std::wstring> wanted;
    for (int i = 0; i < 3000; ++i) {
        wanted.push_back(L"line " + std::to_wstring(i));
        for (const wchar_t c : wanted.back() + L"\n")
            bytes.append({static_cast<char>(c), '\0'});
    }
    folder.write("t", bytes);
    CStdioFile file(folder.wide("t").c_str(), CFile::modeRead | CFile::typeText);
    std::vector<zuhost::LineBlock> blocks(3);
    std::vector<std::wstring> lines;
    CString line;
    EXPECT_FALSE(blocks[0].readLine(line));
    ASSERT_TRUE(zuhost::readLines(file, blocks[0], 20'000));
    EXPECT_FALSE(blocks[0].isLast());
    ASSERT_TRUE(file.ReadString(line));
    const std::wstring between(zuhost::viewOf(line));
    ASSERT_TRUE(zuhost::readLines(file, blocks[1], 20'000));
    EXPECT_TRUE(blocks[1].isLast());
    EXPECT_FALSE(zuhost::readLines(file, blocks[2], 20'000));
    file.Close();
    while (blocks[0].readLine(line))
        lines.emplace_back(zuhost::viewOf(line));
    lines.push_back(between);
    while (blocks[1].readLine(line))
        lines.emplace_back(zuhost::viewOf(line));
    EXPECT_EQ(lines, wanted);
}

/// Returns the cause of the file exception that the action throws; -1 when it throws none.
template <typename Action>
int causeOf(Action action) {
    try {
        action();
    } catch (CFileException* error) {
        const int cause = error->m_cause;
        error->Delete();
        return cause;
    }
    return -1;
}

TEST(StdioFile, WritesInTheEncodingOfTheOldFile) {
    const TemporaryFolder folder;
    const auto rewrite = [&](const std::wstring& text) {
        CStdioFile file(folder.wide("t").c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeText);
        file.WriteString(text.c_str());
        file.Close();
    };
    rewrite(L"表\n");
    EXPECT_EQ(TemporaryFolder::read(folder.file("t")), "\x95\x5C\r\n");
    EXPECT_EQ(causeOf([&] { rewrite(L"x\n㎥\n"); }), CFileException::genericException);
    EXPECT_EQ(TemporaryFolder::read(folder.file("t")), "\x95\x5C\r\n") << "the old file stays";
    folder.write("t", "\xEF\xBB\xBFold");
    rewrite(L"㎥\n");
    EXPECT_EQ(TemporaryFolder::read(folder.file("t")), "\xEF\xBB\xBF㎥\r\n");
}

/// Calls `save`, which returns whether it succeeded, with each of its file operations failing in turn.
void expectWholeOrUntouched(const std::string& wanted, const std::function<bool(const std::wstring&)>& save) {
    const std::string old = "[A]\r\nk=1\r\n";
    bool saved = false;
    for (std::uint64_t n = 1; !saved; ++n) {
        ASSERT_LT(n, 50U);
        const TemporaryFolder folder;
        const std::string path = folder.write("f", old);
        {
            const zuhost::file_ops::FailAt failure(n);
            saved = save(folder.wide("f"));
        }
        EXPECT_EQ(TemporaryFolder::read(path), saved ? wanted : old) << "failure at operation " << n;
        EXPECT_EQ(filesIn(folder), 1U) << "failure at operation " << n;
    }
}

TEST(Saving, ProfilesAndTextFilesAreWholeOrUntouched) {
    expectWholeOrUntouched("[A]\r\nk=2\r\n", [](const std::wstring& path) {
        return WritePrivateProfileStringW(L"A", L"k", L"2", path.c_str()) != FALSE;
    });
    expectWholeOrUntouched("表\r\n", [](const std::wstring& path) {
        try {
            CFile file(path.c_str(), CFile::modeCreate | CFile::modeWrite);
            file.Write("表\r\n", 5);
            file.Close();
            return true;
        } catch (CFileException* error) {
            EXPECT_EQ(error->m_cause, CFileException::diskFull);
            error->Delete();
            return false;
        }
    });
}

TEST(File, ReportsTheCauseOfAFailure) {
    const TemporaryFolder folder;
    const std::tuple<std::wstring, UINT, int> cases[] = {
        {folder.wide("missing"), CFile::modeRead, CFileException::fileNotFound},
        {folder.wide("no/such"), CFile::modeCreate | CFile::modeWrite, CFileException::badPath},
        {folder.wide(""), CFile::modeRead, CFileException::accessDenied},
        {L"", CFile::modeRead, CFileException::fileNotFound}};
    for (const auto& [path, flags, cause] : cases) {
        CFile file;
        CFileException error;
        EXPECT_FALSE(file.Open(path.c_str(), flags, &error));
        EXPECT_EQ(error.m_cause, cause);
    }
    folder.write("f", "0123456789");
    CFile file(folder.wide("f").c_str(), CFile::modeReadWrite);
    char buffer[4] = {};
    EXPECT_EQ(file.Seek(-3, CFile::end), 7U);
    EXPECT_EQ(file.Read(buffer, 4), 3U);
    EXPECT_STREQ(buffer, "789");
    EXPECT_EQ(file.GetLength(), 10U);
    EXPECT_EQ(causeOf([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
}

TEST(FileFunctions, CopyMoveDelete) {
    const TemporaryFolder folder;
    folder.write("a", "1");
    const std::wstring a = folder.wide("a");
    const std::wstring b = folder.wide("b");
    EXPECT_TRUE(CopyFileW(a.c_str(), b.c_str(), TRUE));
    EXPECT_FALSE(CopyFileW(a.c_str(), b.c_str(), TRUE));
    EXPECT_EQ(GetLastError(), ERROR_FILE_EXISTS);
    EXPECT_FALSE(MoveFileW(a.c_str(), b.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_ALREADY_EXISTS);
    EXPECT_TRUE(DeleteFileW(b.c_str()));
    EXPECT_FALSE(DeleteFileW(b.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(CopyFileW(nullptr, b.c_str(), FALSE));
    EXPECT_FALSE(MoveFileW(a.c_str(), nullptr));
    EXPECT_FALSE(DeleteFileW(nullptr));
    EXPECT_EQ(causeOf([] { CFile::Remove(nullptr); }), CFileException::fileNotFound);
    EXPECT_TRUE(MoveFileW(a.c_str(), b.c_str()));
    EXPECT_EQ(TemporaryFolder::read(folder.file("b")), "1");
}

TEST(StringTable, ReadsWhatItWrites) {
    std::size_t bad = 0;
    const auto table =
        zuhost::StringTable::parse("# c\n\n 7 = \"a\\n\\\"b\\\"\\\\ 表\"\r\nx = \"y\"\n8 = \"open\n", &bad);
    ASSERT_NE(table.find(7), nullptr);
    EXPECT_EQ(*table.find(7), L"a\n\"b\"\\ 表");
    EXPECT_EQ(table.find(8), nullptr);
    EXPECT_EQ(bad, 4U);
    EXPECT_EQ(zuhost::StringTable::parse(table.format()).texts(), table.texts());
    EXPECT_EQ(zuhost::StringTable::parse("\xEF\xBB\xBF" + table.format(), &bad).texts(), table.texts());
    EXPECT_EQ(bad, 0U);
}

TEST(Language, FollowsTheEnvironment) {
    const std::pair<const char*, LANGID> cases[] = {{"ja_JP.UTF-8", 0x0411},
                                                    {"en_US.UTF-8", 0x0409},
                                                    {"de_DE.UTF-8", 0x0407},
                                                    {"zh_TW.UTF-8", 0x0404},
                                                    {"C", 0},
                                                    {"POSIX", 0},
                                                    {"C.UTF-8", 0},
                                                    {"xx_YY", 0}};
    for (const auto& [locale, id] : cases) {
        setVariable("LC_ALL", locale);
        EXPECT_EQ(GetUserDefaultUILanguage(), id) << locale;
    }
    setVariable("LC_ALL", "C.UTF-8");
}

} // namespace
