#include "tchar.h"

#include "zuhost/file_ops.h"
#include "zuhost/paths.h"
#include "zuhost/system_error.h"

#include <zuhost/platform/paths.h>

#include <cerrno>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

constexpr fs::perms kWriters = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

std::string systemPath(const wchar_t* path) {
    return zuhost::systemPath(path != nullptr ? path : L"");
}

BOOL resultOf(int systemError) {
    if (systemError == 0)
        return TRUE;
    SetLastError(zuhost::lastErrorOf(systemError));
    return FALSE;
}

BOOL resultOf(const std::error_code& error) {
    return resultOf(error.value());
}

/// The reason why no file can have the path; 0 when there is none.
int pathError(const std::string& path) {
    if (path.empty())
        return ENOENT;
    return path.front() == '\0' ? EINVAL : 0;
}

DWORD copyPath(const std::wstring& path, DWORD size, wchar_t* buffer) {
    if (buffer == nullptr || path.size() >= size)
        return static_cast<DWORD>(path.size() + 1);
    path.copy(buffer, path.size());
    buffer[path.size()] = L'\0';
    return static_cast<DWORD>(path.size());
}

/// Creates the first file of the form "FOLDER\\PRENNNN.tmp" that does not exist; 0 when that fails.
UINT createUnique(const std::wstring& stem, std::wstring& path) {
    constexpr UINT kLast = 0xFFFF;
    for (UINT number = 1; number <= kLast; ++number) {
        wchar_t digits[8];
        path = stem + _itow(static_cast<int>(number), digits, 16) + L".tmp";
        zuhost::file_ops::File file;
        const int error = file.open(zuhost::systemPath(path), zuhost::file_ops::File::Mode::createNew);
        if (error == 0)
            return number;
        if (error != EEXIST) {
            SetLastError(zuhost::lastErrorOf(error));
            return 0;
        }
    }
    SetLastError(ERROR_FILE_EXISTS);
    return 0;
}

} // namespace

BOOL MoveFileExW(const wchar_t* from, const wchar_t* to, DWORD flags) {
    if ((flags & MOVEFILE_REPLACE_EXISTING) == 0)
        return MoveFileW(from, to);
    return resultOf(zuhost::file_ops::rename(systemPath(from), systemPath(to)));
}

BOOL CreateDirectoryW(const wchar_t* path, LPSECURITY_ATTRIBUTES /*attributes*/) {
    const std::string name = systemPath(path);
    if (const int error = pathError(name))
        return resultOf(error);
    const fs::path folder = zuhost::platform::pathOf(name);
    std::error_code error;
    if (fs::create_directory(folder, error))
        return TRUE;
    if (error && error.value() != EEXIST)
        return resultOf(error.value() == ENOENT ? ENOTDIR : error.value());
    SetLastError(ERROR_ALREADY_EXISTS);
    return FALSE;
}

BOOL RemoveDirectoryW(const wchar_t* path) {
    const std::string name = systemPath(path);
    if (const int error = pathError(name))
        return resultOf(error);
    const fs::path folder = zuhost::platform::pathOf(name);
    std::error_code error;
    if (!fs::is_directory(fs::symlink_status(folder, error)))
        return resultOf(error ? error.value() : ENOTDIR);
    fs::remove(folder, error);
    return resultOf(error.value() == ENOTEMPTY || error.value() == EEXIST ? EBUSY : error.value());
}

DWORD GetFileAttributesW(const wchar_t* path) {
    const std::string file = systemPath(path);
    if (const int error = pathError(file)) {
        resultOf(error);
        return INVALID_FILE_ATTRIBUTES;
    }
    const fs::path named = zuhost::platform::pathOf(file);
    std::error_code error;
    const fs::file_status status = fs::status(named, error);
    if (!fs::exists(status)) {
        resultOf(zuhost::missingFileError(file));
        return INVALID_FILE_ATTRIBUTES;
    }
    DWORD attributes = 0;
    if (fs::is_directory(status))
        attributes |= FILE_ATTRIBUTE_DIRECTORY;
    else if ((status.permissions() & kWriters) == fs::perms::none)
        attributes |= FILE_ATTRIBUTE_READONLY;
    const std::string name = zuhost::platform::textOf(named.filename());
    if (name.size() > 1 && name.front() == '.' && name != "..")
        attributes |= FILE_ATTRIBUTE_HIDDEN;
    return attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL;
}

BOOL SetFileAttributesW(const wchar_t* path, DWORD attributes) {
    const DWORD before = GetFileAttributesW(path);
    if (before == INVALID_FILE_ATTRIBUTES)
        return FALSE;
    if ((before & FILE_ATTRIBUTE_DIRECTORY) != 0 || ((before ^ attributes) & FILE_ATTRIBUTE_READONLY) == 0)
        return TRUE;
    const bool isReadOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    std::error_code error;
    fs::permissions(zuhost::platform::pathOf(systemPath(path)),
                    isReadOnly ? kWriters : fs::perms::owner_write,
                    isReadOnly ? fs::perm_options::remove : fs::perm_options::add, error);
    return resultOf(error);
}

DWORD GetTempPathW(DWORD size, wchar_t* buffer) {
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error);
    if (resultOf(error) == FALSE)
        return 0;
    std::wstring path = zuhost::hostPath(zuhost::platform::textOf(folder));
    if (path.back() != L'\\')
        path += L'\\';
    return copyPath(path, size, buffer);
}

UINT GetTempFileNameW(const wchar_t* folder, const wchar_t* prefix, UINT unique, wchar_t* buffer) {
    if (folder == nullptr || buffer == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    std::wstring stem(folder);
    if (!stem.empty() && stem.back() != L'\\' && stem.back() != L'/')
        stem += L'\\';
    stem += std::wstring(prefix != nullptr ? prefix : L"").substr(0, 3);
    std::wstring path;
    UINT number = unique & 0xFFFFU;
    if (number == 0) {
        number = createUnique(stem, path);
    } else {
        wchar_t digits[8];
        path = stem + _itow(static_cast<int>(number), digits, 16) + L".tmp";
    }
    return number != 0 && copyPath(path, static_cast<DWORD>(MAX_PATH), buffer) == path.size() ? number : 0;
}

DWORD GetCurrentDirectoryW(DWORD size, wchar_t* buffer) {
    std::error_code error;
    const fs::path folder = fs::current_path(error);
    return resultOf(error) != FALSE
               ? copyPath(zuhost::hostPath(zuhost::platform::textOf(folder)), size, buffer)
               : 0;
}

BOOL SetCurrentDirectoryW(const wchar_t* path) {
    const std::string name = systemPath(path);
    if (const int error = pathError(name))
        return resultOf(error);
    const fs::path folder = zuhost::platform::pathOf(name);
    std::error_code error;
    fs::current_path(folder, error);
    return resultOf(error);
}

DWORD GetFullPathNameW(const wchar_t* path, DWORD size, wchar_t* buffer, wchar_t** name) {
    if (name != nullptr)
        *name = nullptr;
    const std::string given = systemPath(path);
    if (const int error = pathError(given)) {
        resultOf(error);
        return 0;
    }
    std::error_code error;
    const fs::path full = fs::absolute(zuhost::platform::pathOf(given), error).lexically_normal();
    if (resultOf(error) == FALSE)
        return 0;
    const std::wstring text = zuhost::hostPath(zuhost::platform::textOf(full));
    const DWORD length = copyPath(text, size, buffer);
    const std::size_t start = text.rfind(L'\\') + 1;
    if (name != nullptr && length == text.size() && start < text.size())
        *name = buffer + start;
    return length;
}
