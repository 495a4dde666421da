#include "system_call.h"

#include <zuhost/platform/environment.h>
#include <zuhost/platform/files.h>
#include <zuhost/platform/libraries.h>
#include <zuhost/platform/streams.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

namespace zuhost::platform {
namespace {

std::string temporaryFolder() {
    std::wstring folder(MAX_PATH + 1, L'\0');
    folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
    return portablePath(folder) + "zu-" + std::to_string(GetCurrentProcessId());
}

std::string contents(const std::string& path) {
    FileHandle file = kNoFile;
    char buffer[64];
    std::size_t done = 0;
    if (openFile(path, FileMode::read, file) != 0)
        return "(no file)";
    readFile(file, buffer, sizeof buffer, done);
    closeFile(file);
    return {buffer, done};
}

void write(const std::string& path, std::string_view bytes) {
    FileHandle file = kNoFile;
    ASSERT_EQ(openFile(path, FileMode::replace, file), 0) << path;
    EXPECT_EQ(writeFile(file, bytes), 0);
    EXPECT_EQ(closeFile(file), 0);
}

/// A folder whose name no code page holds.
class PlatformFiles : public testing::Test {
protected:
    PlatformFiles() { CreateDirectoryW(systemName(folder).c_str(), nullptr); }
    ~PlatformFiles() override {
        for (const std::string& path : made)
            removeFile(path);
        RemoveDirectoryW(systemName(folder).c_str());
    }
    PlatformFiles(const PlatformFiles&) = delete;
    PlatformFiles& operator=(const PlatformFiles&) = delete;

    std::string file(const std::string& name, std::string_view bytes) {
        made.push_back(folder + "/" + name);
        write(made.back(), bytes);
        return made.back();
    }
    /// Opens the file as another program may, which lets others do with it what `sharing` says.
    static HANDLE hold(const std::string& path, DWORD sharing) {
        return CreateFileW(systemName(path).c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0,
                           nullptr);
    }

    std::string folder = temporaryFolder() + "-表é한";
    std::vector<std::string> made;
};

TEST_F(PlatformFiles, RenamingReplacesAFileThatOthersRead) {
    const std::string old = file("図面.dxf", "old");
    const HANDLE reader = hold(old, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    ASSERT_NE(reader, INVALID_HANDLE_VALUE);
    const int error = renameFile(file("new", "new"), old);
    if (error == 0) {
        EXPECT_EQ(contents(old), "new");
    } else {
        EXPECT_TRUE(error == EACCES || error == EBUSY) << error;
        EXPECT_EQ(contents(old), "old") << "a system that cannot";
    }
    CloseHandle(reader);
}

TEST_F(PlatformFiles, RenamingWaitsForAFileThatOthersHold) {
    const std::string old = file("old", "old");
    const std::string changed = file("new", "new");
    const HANDLE holder = hold(old, 0);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    const auto start = std::chrono::steady_clock::now();
    const int error = renameFile(changed, old);
    const auto taken = std::chrono::steady_clock::now() - start;
    EXPECT_TRUE(error == EACCES || error == EBUSY) << error;
    EXPECT_GE(taken, std::chrono::seconds(2));
    EXPECT_LT(taken, std::chrono::seconds(10));
    EXPECT_EQ(contents(changed), "new");
    std::thread release([holder] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        CloseHandle(holder);
    });
    EXPECT_EQ(renameFile(changed, old), 0);
    release.join();
    EXPECT_EQ(contents(old), "new");
    EXPECT_EQ(contents(changed), "(no file)");
}

TEST_F(PlatformFiles, LocksAndIdentitiesAreOfTheFile) {
    const std::string path = file("a", "1");
    FileHandle first = kNoFile;
    FileHandle second = kNoFile;
    ASSERT_EQ(openFile(path, FileMode::update, first), 0);
    ASSERT_EQ(openFile(path, FileMode::update, second), 0);
    EXPECT_EQ(tryLockFile(first), 0);
    EXPECT_EQ(tryLockFile(second), EWOULDBLOCK);
    FileIdentity opened;
    FileIdentity named;
    EXPECT_EQ(identifyFile(first, opened), 0);
    EXPECT_EQ(identifyName(path, named), 0);
    EXPECT_EQ(opened, named);
    EXPECT_EQ(contents(path), "1") << "locks do not hold off readers";
    closeFile(first);
    EXPECT_EQ(tryLockFile(second), 0);
    closeFile(second);
    EXPECT_EQ(openFile(folder, FileMode::read, first), EISDIR);
    EXPECT_EQ(openFile(folder + "/missing/x", FileMode::read, first), ENOENT);
    EXPECT_EQ(openFile(path, FileMode::createNew, first), EEXIST);
}

TEST_F(PlatformFiles, LongPathsNameFiles) {
    std::vector<std::string> folders;
    for (std::string path = folder; path.size() < 400;) {
        path += "/" + std::string(60, 'f');
        ASSERT_TRUE(CreateDirectoryW(systemName(path).c_str(), nullptr)) << path;
        folders.push_back(path);
    }
    const std::string old = folders.back() + "/old.dxf";
    const std::string changed = folders.back() + "/new.dxf";
    write(old, "old");
    write(changed, "new");
    EXPECT_EQ(renameFile(changed, old), 0);
    EXPECT_EQ(contents(old), "new");
    EXPECT_EQ(removeFile(old), 0);
    std::for_each(folders.rbegin(), folders.rend(),
                  [](const std::string& path) { RemoveDirectoryW(systemName(path).c_str()); });
}

TEST(PlatformNames, OfTheSystem) {
    const std::string deep = "/" + std::string(260, 'x');
    const std::wstring wideDeep = L"\\" + std::wstring(260, L'x');
    const std::pair<std::string, std::wstring> cases[] = {
        {"C:/表/a.dxf", L"C:\\表\\a.dxf"},
        {"//server/share/a", L"\\\\server\\share\\a"},
        {"C:" + deep, L"\\\\?\\C:" + wideDeep},
        {"C:/a/../b" + deep, L"\\\\?\\C:\\b" + wideDeep},
        {"//server/share" + deep, L"\\\\?\\UNC\\server\\share" + wideDeep},
        {"//?/C:" + deep, L"\\\\?\\C:" + wideDeep}};
    for (const auto& [path, name] : cases)
        EXPECT_EQ(systemName(path), name) << path;
    EXPECT_EQ(portablePath(L"C:\\表\\𠀋.dxf"), "C:/表/𠀋.dxf");
    EXPECT_EQ(utf8Text(wideText("表é한𠀋")), "表é한𠀋");
}

TEST(PlatformNames, OfModules) {
    EXPECT_EQ(libraryNames("X").at(0), "X.dll");
    EXPECT_EQ(libraryNames("X").at(1), "X.arx");
    EXPECT_EQ(moduleStem("ZuComn.dll"), "ZuComn");
    EXPECT_TRUE(programFile().ends_with("/test_platform.exe")) << programFile();
    EXPECT_EQ(fileOfAddress(reinterpret_cast<const void*>(&temporaryFolder)), programFile());
    EXPECT_EQ(handleOfAddress(nullptr), GetModuleHandleW(nullptr));
    EXPECT_EQ(handleOfAddress(reinterpret_cast<const void*>(&temporaryFolder)), GetModuleHandleW(nullptr));
    void* const library = openLibrary("C:/windows/system32/version.dll");
    ASSERT_NE(library, nullptr);
    EXPECT_EQ(handleOfLibrary(library), GetModuleHandleW(L"version.dll"));
    closeLibrary(library);
    EXPECT_EQ(openLibrary("C:/missing.dll"), nullptr);
}

TEST(PlatformErrors, HaveTheirNumbers) {
    const std::pair<DWORD, int> cases[] = {{ERROR_FILE_NOT_FOUND, ENOENT},
                                           {ERROR_SHARING_VIOLATION, EBUSY},
                                           {ERROR_DISK_FULL, ENOSPC},
                                           {ERROR_ARENA_TRASHED, EIO}};
    for (const auto& [system, number] : cases)
        EXPECT_EQ(errorNumber(system), number);
}

} // namespace
} // namespace zuhost::platform
