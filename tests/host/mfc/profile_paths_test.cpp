#include "recorded_cases.h"
#include "temporary_folder.h"

#include <windows.h>
#include <zuhost/paths.h>
#include <zuhost/platform/paths.h>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

/// Changes the current folder for a scope.
class CurrentFolder {
public:
    explicit CurrentFolder(const fs::path& folder) { fs::current_path(folder); }
    ~CurrentFolder() { fs::current_path(before_); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    fs::path before_ = fs::current_path();
};

/// Cases that differ on this host, which has no system folder, no default profile and no devices named like
/// files; names that are too long for the file system already fail to be written. Where there are drives, X:
/// is none.
bool differsHere(const std::string& name) {
    return name == "null" || name == "device" || name == "longer than 260" ||
           (name == "drive relative" && zuhost::platform::kPathsHaveDrives);
}

/// Returns the path of a case with drive X: replaced by the folder.
std::wstring movedInto(const TemporaryFolder& folder, const std::string& given) {
    std::wstring path = zuhost::fromUtf8(given);
    const std::size_t drive = path.find(L"X:");
    if (drive != std::wstring::npos && (path[drive + 2] == L'\\' || path[drive + 2] == L'/'))
        path.replace(drive, 2, zuhost::hostPath(folder.path().string()));
    return path;
}

fs::path onlyFile(const fs::path& folder) {
    fs::path found;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            found = found.empty() ? entry.path() : "several";
    return found;
}

TEST(ProfilePaths, NameFilesAsRecorded) {
    const json all = recordedCases("misc.json");
    for (const json& recorded : all["profile_paths"]) {
        const std::string name = recorded[0];
        if (differsHere(name))
            continue;
        if (name == "leading backslash") { // tests do not write to the root folder
            EXPECT_EQ(zuhost::systemPath(zuhost::fromUtf8(recorded[1].get<std::string>())), "/PfBare5.ini");
            continue;
        }
        const TemporaryFolder folder;
        fs::create_directories(folder.file("up/mid/dir"));
        fs::create_directory(folder.file("dir"));
        if (name == "other case")
            folder.write("dir/PfBare9.ini", "");
        const CurrentFolder current(folder.path());
        const std::wstring file = movedInto(folder, recorded[1]);
        EXPECT_EQ(WritePrivateProfileStringW(L"A", L"k", L"v", file.c_str()), recorded[2].get<BOOL>())
            << name;
        EXPECT_EQ(GetLastError(), recorded[3].get<DWORD>()) << name;
        wchar_t value[8] = {};
        GetPrivateProfileStringW(L"A", L"k", L"error", value, 8, file.c_str());
        EXPECT_EQ(zuhost::toUtf8(value), recorded[4].get<std::string>()) << name;
        EXPECT_EQ(GetLastError(), recorded[5].get<DWORD>()) << name;
        const fs::path found = onlyFile(folder.path());
        if (recorded[6].empty()) {
            EXPECT_EQ(found, "") << name;
            continue;
        }
        // "where: name". Files in the platform's system folder are in the current folder here.
        const std::string place = recorded[6][0];
        EXPECT_EQ(found.filename(), zuhost::platform::pathOf(place.substr(place.find(": ") + 2))) << name;
        EXPECT_EQ(found.parent_path().filename() == "dir", place.starts_with("where the path says")) << name;
    }
}

} // namespace
