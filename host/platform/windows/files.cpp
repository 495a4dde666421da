#include "zuhost/platform/files.h"

#include "system_call.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <new>
#include <thread>
#include <vector>

namespace zuhost::platform {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t kLargestTransfer = std::size_t{1} << 30U;
/// Locks hold off readers of the locked bytes; no file has this one.
constexpr DWORD kLockedByteHigh = 0x40000000;
/// Virus scanners and indexers hold new files open for a moment.
constexpr std::chrono::seconds kPatience{2};
constexpr std::chrono::milliseconds kPause{20};

HANDLE handleOf(FileHandle file) {
    return reinterpret_cast<HANDLE>(file); // NOLINT(performance-no-int-to-ptr): the system's handles.
}

int result(BOOL succeeded) {
    return succeeded != FALSE ? 0 : lastErrorNumber();
}

class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (isValid())
            CloseHandle(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    [[nodiscard]] bool isValid() const { return handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

struct Opening {
    DWORD access;
    DWORD creation;
};

Opening openingOf(FileMode mode) {
    // The right to pass on the access list of the file that is replaced.
    constexpr DWORD kWrite = GENERIC_WRITE | WRITE_DAC;
    switch (mode) {
    case FileMode::read:
        return {GENERIC_READ, OPEN_EXISTING};
    case FileMode::createNew:
        return {kWrite, CREATE_NEW};
    case FileMode::replace:
        return {GENERIC_READ | GENERIC_WRITE, CREATE_ALWAYS};
    case FileMode::append:
        return {FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS};
    case FileMode::update:
        return {GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING};
    }
    return {GENERIC_READ, OPEN_EXISTING};
}

std::int64_t nanoseconds(const FILETIME& time) {
    constexpr std::int64_t kTick = 100;
    return (static_cast<std::int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime) * kTick;
}

std::uint64_t whole(DWORD high, DWORD low) {
    return std::uint64_t{high} << 32U | low;
}

int identityOf(HANDLE handle, FileIdentity& identity) {
    BY_HANDLE_FILE_INFORMATION facts{};
    if (GetFileInformationByHandle(handle, &facts) == FALSE)
        return lastErrorNumber();
    identity = {facts.dwVolumeSerialNumber, whole(facts.nFileIndexHigh, facts.nFileIndexLow),
                nanoseconds(facts.ftCreationTime), nanoseconds(facts.ftLastWriteTime),
                whole(facts.nFileSizeHigh, facts.nFileSizeLow)};
    return 0;
}

/// Renames as other systems do: what others have open under the name stays open without one.
bool renameOver(const std::wstring& from, const std::wstring& to) {
    constexpr auto kRenameInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);
    constexpr DWORD kReplace = 1;
    constexpr DWORD kKeepOpen = 2;
    const Handle file(CreateFileW(from.c_str(), DELETE | SYNCHRONIZE, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.isValid())
        return false;
    const std::size_t bytes = to.size() * sizeof(wchar_t);
    std::vector<std::byte> memory(sizeof(FILE_RENAME_INFO) + bytes);
    auto* const info = new (memory.data()) FILE_RENAME_INFO{};
    // The first member is a flag in older systems and the flags in later ones.
    constexpr DWORD kFlags = kReplace | kKeepOpen;
    std::copy_n(reinterpret_cast<const std::byte*>(&kFlags), sizeof kFlags, memory.data());
    info->FileNameLength = static_cast<DWORD>(bytes);
    std::copy(to.begin(), to.end(), info->FileName);
    return SetFileInformationByHandle(file.get(), kRenameInfoEx, info, static_cast<DWORD>(memory.size())) !=
           FALSE;
}

bool isHeldOpen(DWORD error) {
    return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED || error == ERROR_LOCK_VIOLATION;
}

std::wstring fullName(const std::wstring& name) {
    std::wstring full(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(name.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

} // namespace

int openFile(const std::string& path, FileMode mode, FileHandle& file) {
    const std::wstring name = systemName(path);
    const auto [access, creation] = openingOf(mode);
    const HANDLE opened =
        CreateFileW(name.c_str(), access, kShareAll, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (opened == INVALID_HANDLE_VALUE) {
        const int error = lastErrorNumber();
        const DWORD attributes = GetFileAttributesW(name.c_str());
        const bool isFolder =
            attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        return isFolder && error == EACCES ? EISDIR : error;
    }
    file = reinterpret_cast<FileHandle>(opened);
    return 0;
}

int openUnnamedFile(const std::string& /*folder*/, FileHandle& /*file*/) {
    return EOPNOTSUPP;
}

int linkFile(FileHandle /*file*/, const std::string& /*path*/) {
    return EOPNOTSUPP;
}

/// The folder is the user's own, whose access list new files inherit.
int openTemporaryFile(FileHandle& file, std::string& path) {
    std::wstring folder(MAX_PATH + 1, L'\0');
    folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
    std::wstring name(folder.size() + MAX_PATH, L'\0');
    if (GetTempFileNameW(folder.c_str(), L"zu", 0, name.data()) == 0)
        return lastErrorNumber();
    name.resize(name.find(L'\0'));
    path = portablePath(name);
    return openFile(path, FileMode::replace, file);
}

int readFile(FileHandle file, char* buffer, std::size_t size, std::size_t& done) {
    done = 0;
    while (done < size) {
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min(size - done, kLargestTransfer));
        if (ReadFile(handleOf(file), buffer + done, wanted, &count, nullptr) == FALSE) {
            const DWORD error = GetLastError();
            return error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF ? 0 : errorNumber(error);
        }
        if (count == 0)
            break;
        done += count;
    }
    return 0;
}

int writeFile(FileHandle file, std::string_view bytes) {
    while (!bytes.empty()) {
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kLargestTransfer));
        if (WriteFile(handleOf(file), bytes.data(), wanted, &count, nullptr) == FALSE)
            return lastErrorNumber();
        bytes.remove_prefix(count);
    }
    return 0;
}

int seekFile(FileHandle file, std::int64_t offset, int origin, std::int64_t& position) {
    static_assert(SEEK_SET == FILE_BEGIN && SEEK_CUR == FILE_CURRENT && SEEK_END == FILE_END);
    LARGE_INTEGER distance{};
    LARGE_INTEGER reached{};
    distance.QuadPart = offset;
    const int error =
        result(SetFilePointerEx(handleOf(file), distance, &reached, static_cast<DWORD>(origin)));
    position = error == 0 ? reached.QuadPart : -1;
    return error;
}

int syncFile(FileHandle file) {
    if (FlushFileBuffers(handleOf(file)) != FALSE)
        return 0;
    const DWORD error = GetLastError();
    return error == ERROR_INVALID_HANDLE || error == ERROR_INVALID_FUNCTION || error == ERROR_WRITE_PROTECT
               ? 0
               : errorNumber(error);
}

int closeFile(FileHandle file) {
    return result(CloseHandle(handleOf(file)));
}

int tryLockFile(FileHandle file) {
    OVERLAPPED place{};
    place.OffsetHigh = kLockedByteHigh;
    if (LockFileEx(handleOf(file), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) !=
        FALSE)
        return 0;
    const int error = lastErrorNumber();
    return error == EOPNOTSUPP ? 0 : error;
}

int identifyFile(FileHandle file, FileIdentity& identity) {
    return identityOf(handleOf(file), identity);
}

int identifyName(const std::string& path, FileIdentity& identity) {
    if (path.empty())
        return ENOENT;
    const Handle file(CreateFileW(systemName(path).c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS,
                                  nullptr));
    return file.isValid() ? identityOf(file.get(), identity) : lastErrorNumber();
}

std::string storedName(const std::string& path) {
    const std::wstring name = systemName(path);
    constexpr std::wstring_view kPrefix = LR"(\\?\)";
    const bool isPrefixed = name.starts_with(kPrefix);
    if (name.find_first_of(L"*?", isPrefixed ? kPrefix.size() : 0) != std::wstring::npos)
        return {};
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(name.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return {};
    FindClose(search);
    return utf8Text(found.cFileName);
}

/// The list that grants access; owners stay as the system sets them for new files.
int copyRights(const std::string& from, FileHandle to) {
    const std::wstring name = systemName(from);
    DWORD size = 0;
    GetFileSecurityW(name.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    if (size == 0)
        return lastErrorNumber();
    std::vector<std::byte> list(size);
    if (GetFileSecurityW(name.c_str(), DACL_SECURITY_INFORMATION, list.data(), size, &size) == FALSE)
        return lastErrorNumber();
    return result(SetKernelObjectSecurity(handleOf(to), DACL_SECURITY_INFORMATION, list.data()));
}

/// Where the system cannot replace a file that others hold open, it is tried again for two seconds.
int renameFile(const std::string& from, const std::string& to) {
    const std::wstring source = systemName(from);
    const std::wstring target = fullName(systemName(to));
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (true) {
        if (renameOver(source, target) ||
            MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) !=
                FALSE)
            return 0;
        const DWORD error = GetLastError();
        if (!isHeldOpen(error) || std::chrono::steady_clock::now() > end)
            return errorNumber(error);
        std::this_thread::sleep_for(kPause);
    }
}

int removeFile(const std::string& path) {
    return result(DeleteFileW(systemName(path).c_str()));
}

/// The system's journal keeps names.
int syncFolder(const std::string& /*folder*/) {
    return 0;
}

} // namespace zuhost::platform
