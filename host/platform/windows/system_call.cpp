#include "system_call.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace zuhost::platform {

namespace {

struct Translation {
    DWORD system;
    int number;
};

constexpr std::array<Translation, 29> kTranslations{{
    {ERROR_FILE_NOT_FOUND, ENOENT},
    {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_INVALID_DRIVE, ENOENT},
    {ERROR_BAD_NETPATH, ENOENT},
    {ERROR_BAD_NET_NAME, ENOENT},
    {ERROR_INVALID_NAME, EINVAL},
    {ERROR_BAD_PATHNAME, EINVAL},
    {ERROR_INVALID_PARAMETER, EINVAL},
    {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
    {ERROR_ACCESS_DENIED, EACCES},
    {ERROR_WRITE_PROTECT, EROFS},
    {ERROR_PRIVILEGE_NOT_HELD, EPERM},
    {ERROR_SHARING_VIOLATION, EBUSY},
    {ERROR_LOCK_VIOLATION, EWOULDBLOCK},
    {ERROR_IO_PENDING, EWOULDBLOCK},
    {ERROR_USER_MAPPED_FILE, EBUSY},
    {ERROR_INVALID_HANDLE, EBADF},
    {ERROR_FILE_EXISTS, EEXIST},
    {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_DISK_FULL, ENOSPC},
    {ERROR_HANDLE_DISK_FULL, ENOSPC},
    {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_OUTOFMEMORY, ENOMEM},
    {ERROR_BROKEN_PIPE, EPIPE},
    {ERROR_NO_DATA, EPIPE},
    {ERROR_NOT_SUPPORTED, EOPNOTSUPP},
    {ERROR_INVALID_FUNCTION, EOPNOTSUPP},
    {ERROR_CANT_RESOLVE_FILENAME, ELOOP},
}};

} // namespace

int errorNumber(DWORD error) {
    const auto* const found = std::find_if(kTranslations.begin(), kTranslations.end(),
                                           [error](const Translation& t) { return t.system == error; });
    return found != kTranslations.end() ? found->number : EIO;
}

int lastErrorNumber() {
    return errorNumber(GetLastError());
}

std::wstring wideText(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    std::wstring text(utf8.size(), L'\0');
    text.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), size)));
    return text;
}

std::string utf8Text(std::wstring_view text) {
    constexpr std::size_t kMostBytes = 3;
    const int size = static_cast<int>(text.size());
    std::string utf8(text.size() * kMostBytes, '\0');
    utf8.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_UTF8, 0, text.data(), size, utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr)));
    return utf8;
}

std::wstring systemName(const std::string& path) {
    constexpr std::wstring_view kUnlimited = LR"(\\?\)";
    constexpr std::wstring_view kUnlimitedServer = LR"(\\?\UNC\)";
    // Folders are made with room for a short name.
    constexpr std::size_t kRoom = 12;
    std::wstring name = wideText(path);
    std::replace(name.begin(), name.end(), L'/', L'\\');
    if (name.size() < MAX_PATH - kRoom || name.starts_with(kUnlimited))
        return name;
    std::wstring full(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(name.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    if (full.starts_with(LR"(\\)"))
        return std::wstring(kUnlimitedServer) + full.substr(2);
    return std::wstring(kUnlimited) + full;
}

std::string portablePath(std::wstring_view name) {
    std::string path = utf8Text(name);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

} // namespace zuhost::platform
