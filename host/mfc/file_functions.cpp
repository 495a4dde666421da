#include <windows.h>

#include "zuhost/atomic_file.h"
#include "zuhost/paths.h"
#include "zuhost/system_error.h"

#include <zuhost/platform/paths.h>

#include <cerrno>
#include <filesystem>

namespace {

std::string systemPath(const wchar_t* path) {
    return zuhost::systemPath(path != nullptr ? path : L"");
}

bool exists(const std::string& path) {
    std::error_code error;
    return std::filesystem::exists(zuhost::platform::pathOf(path), error);
}

BOOL resultOf(int systemError) {
    if (systemError == 0)
        return TRUE;
    SetLastError(zuhost::lastErrorOf(systemError));
    return FALSE;
}

int copy(const std::string& from, const std::string& to, bool failIfExists) {
    if (failIfExists && exists(to))
        return EEXIST;
    const auto bytes = zuhost::readWholeFile(from);
    if (const int* error = std::get_if<int>(&bytes))
        return *error;
    return zuhost::replaceFile(to, std::get<std::string>(bytes), from);
}

} // namespace

BOOL CopyFileW(const wchar_t* from, const wchar_t* to, BOOL failIfExists) {
    return resultOf(copy(systemPath(from), systemPath(to), failIfExists != FALSE));
}

BOOL MoveFileW(const wchar_t* from, const wchar_t* to) {
    const std::string target = systemPath(to);
    if (exists(target)) {
        SetLastError(ERROR_ALREADY_EXISTS);
        return FALSE;
    }
    return resultOf(zuhost::file_ops::rename(systemPath(from), target));
}

BOOL DeleteFileW(const wchar_t* path) {
    return resultOf(zuhost::file_ops::remove(systemPath(path)));
}
