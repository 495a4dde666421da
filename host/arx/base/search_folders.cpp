#include "zuhost/search_folders.h"

#include <windows.h>
#include <zuhost/paths.h>
#include <zuhost/platform/libraries.h>
#include <zuhost/platform/paths.h>

#include <filesystem>

namespace zuhost {

namespace {

std::wstring folderOfProgram() {
    std::wstring path(MAX_PATH * 16, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

std::wstring folderOfHost() {
    const std::string file = platform::fileOfAddress(reinterpret_cast<const void*>(&searchFolders));
    std::error_code error;
    const auto folder = std::filesystem::absolute(platform::pathOf(file), error).parent_path();
    return file.empty() || error ? std::wstring() : hostPath(platform::textOf(folder)) + L"\\";
}

} // namespace

std::vector<std::wstring> searchFolders() {
    return {L".\\", folderOfProgram(), folderOfHost()};
}

} // namespace zuhost
