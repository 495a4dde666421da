#include "zuhost/platform/files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace zuhost::platform {

namespace {

constexpr mode_t kNewFile = 0666;
constexpr const char* kAccessList = "system.posix_acl_access";

/// Some file systems refuse larger transfers.
constexpr std::size_t kLargestTransfer = std::size_t{1} << 30U;

int result(int returned) {
    return returned < 0 ? errno : 0;
}

int descriptor(FileHandle file) {
    return static_cast<int>(file);
}

int openFlags(FileMode mode) {
    switch (mode) {
    case FileMode::read:
        return O_RDONLY | O_NONBLOCK;
    case FileMode::createNew:
        return O_WRONLY | O_CREAT | O_EXCL;
    case FileMode::replace:
        return O_RDWR | O_CREAT | O_TRUNC;
    case FileMode::append:
        return O_WRONLY | O_CREAT | O_APPEND;
    case FileMode::update:
        return O_RDWR;
    }
    return O_RDONLY;
}

bool isFolder(int handle) {
    struct stat status {};
    return fstat(handle, &status) == 0 && S_ISDIR(status.st_mode);
}

/// A write beyond the limit of file sizes fails with EFBIG; the signal that comes with it would end the
/// process. Holds it back from this thread and takes it off.
class FileSizeSignalHeld {
public:
    FileSizeSignalHeld() {
        sigemptyset(&signal_);
        sigaddset(&signal_, SIGXFSZ);
        pthread_sigmask(SIG_BLOCK, &signal_, &before_);
    }
    ~FileSizeSignalHeld() {
        const int error = errno;
        constexpr timespec kAtOnce{};
        if (sigismember(&before_, SIGXFSZ) == 0)
            sigtimedwait(&signal_, nullptr, &kAtOnce);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
        errno = error;
    }
    FileSizeSignalHeld(const FileSizeSignalHeld&) = delete;
    FileSizeSignalHeld& operator=(const FileSizeSignalHeld&) = delete;

private:
    sigset_t signal_{};
    sigset_t before_{};
};

std::int64_t nanoseconds(const statx_timestamp& time) {
    constexpr std::int64_t kSecond = 1'000'000'000;
    return time.tv_sec * kSecond + time.tv_nsec;
}

/// Identifies the path, or the open file if the path is empty.
int identityOf(int handle, const char* path, FileIdentity& identity) {
    struct statx status {};
    if (::statx(handle, path, AT_EMPTY_PATH | AT_SYMLINK_NOFOLLOW, STATX_BASIC_STATS | STATX_BTIME,
                &status) != 0)
        return errno;
    identity = {std::uint64_t{status.stx_dev_major} << 32U | status.stx_dev_minor, status.stx_ino,
                (status.stx_mask & STATX_BTIME) != 0 ? nanoseconds(status.stx_btime) : 0,
                nanoseconds(status.stx_mtime), status.stx_size};
    return 0;
}

/// Returns the path under which the system exposes an open file: the only way to refer to an unnamed one.
std::string shownAt(int handle) {
    return "/proc/self/fd/" + std::to_string(handle);
}

/// The old group's rights become those of all others, and no program runs as the new group.
mode_t withoutGroup(mode_t mode) {
    return (mode & ~static_cast<mode_t>(S_ISGID | S_IRWXG)) | ((mode & S_IRWXO) << 3U);
}

int copyAccessList(const std::string& from, int to) {
    const ssize_t size = ::getxattr(from.c_str(), kAccessList, nullptr, 0);
    if (size <= 0)
        return 0;
    std::vector<char> list(static_cast<std::size_t>(size));
    const ssize_t read = ::getxattr(from.c_str(), kAccessList, list.data(), list.size());
    return read < 0 ? errno
                    : result(::fsetxattr(to, kAccessList, list.data(), static_cast<std::size_t>(read), 0));
}

} // namespace

int openFile(const std::string& path, FileMode mode, FileHandle& file) {
    const int opened = ::open(path.c_str(), openFlags(mode) | O_CLOEXEC, kNewFile);
    if (opened < 0)
        return errno;
    if (mode == FileMode::read)
        fcntl(opened, F_SETFL, fcntl(opened, F_GETFL) & ~O_NONBLOCK);
    if (isFolder(opened)) {
        ::close(opened);
        return EISDIR;
    }
    file = opened;
    return 0;
}

int openUnnamedFile(const std::string& folder, FileHandle& file) {
    const int opened = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kNewFile);
    if (opened < 0) {
        // Systems without the flag treat this as opening the folder for writing.
        const bool unknown = errno == EISDIR || errno == EINVAL || errno == ENOSYS;
        return unknown ? EOPNOTSUPP : errno;
    }
    if (::access(shownAt(opened).c_str(), F_OK) != 0) {
        ::close(opened);
        return EOPNOTSUPP;
    }
    file = opened;
    return 0;
}

int linkFile(FileHandle file, const std::string& path) {
    return result(
        ::linkat(AT_FDCWD, shownAt(descriptor(file)).c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW));
}

int openTemporaryFile(FileHandle& file, std::string& path) {
    const char* const folder = std::getenv("TMPDIR");
    std::string name = folder != nullptr && *folder != '\0' ? folder : "/tmp";
    name += "/zu.XXXXXX";
    const int opened = ::mkostemp(name.data(), O_CLOEXEC);
    if (opened < 0)
        return errno;
    file = opened;
    path = name;
    return 0;
}

int readFile(FileHandle file, char* buffer, std::size_t size, std::size_t& done) {
    done = 0;
    while (done < size) {
        const ssize_t count =
            ::read(descriptor(file), buffer + done, std::min(size - done, kLargestTransfer));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return 0;
}

int writeFile(FileHandle file, std::string_view bytes) {
    const FileSizeSignalHeld held;
    while (!bytes.empty()) {
        const ssize_t count =
            ::write(descriptor(file), bytes.data(), std::min(bytes.size(), kLargestTransfer));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
}

int seekFile(FileHandle file, std::int64_t offset, int origin, std::int64_t& position) {
    position = ::lseek(descriptor(file), offset, origin);
    return position < 0 ? errno : 0;
}

int syncFile(FileHandle file) {
    const int error = result(::fsync(descriptor(file)));
    return error == EINVAL || error == EROFS ? 0 : error;
}

int closeFile(FileHandle file) {
    return result(::close(descriptor(file)));
}

int tryLockFile(FileHandle file) {
    const int error = result(::flock(descriptor(file), LOCK_EX | LOCK_NB));
    const bool lacksLocks = error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
    return lacksLocks ? 0 : error;
}

int identifyFile(FileHandle file, FileIdentity& identity) {
    return identityOf(descriptor(file), "", identity);
}

int identifyName(const std::string& path, FileIdentity& identity) {
    return path.empty() ? ENOENT : identityOf(AT_FDCWD, path.c_str(), identity);
}

std::string storedName(const std::string& path) {
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) == 0 ? path.substr(path.rfind('/') + 1) : std::string();
}

int copyRights(const std::string& from, FileHandle to) {
    const int target = descriptor(to);
    struct stat wanted {};
    struct stat own {};
    if (::stat(from.c_str(), &wanted) != 0 || ::fstat(target, &own) != 0)
        return errno;
    constexpr auto kSameOwner = static_cast<uid_t>(-1);
    constexpr auto kSameGroup = static_cast<gid_t>(-1);
    const bool hasGroup = own.st_gid == wanted.st_gid || ::fchown(target, kSameOwner, wanted.st_gid) == 0;
    const bool hasOwner = own.st_uid == wanted.st_uid || ::fchown(target, wanted.st_uid, kSameGroup) == 0;
    mode_t mode = wanted.st_mode & 07777U;
    if (!hasOwner)
        mode &= ~static_cast<mode_t>(S_ISUID);
    if (!hasGroup)
        mode = withoutGroup(mode);
    // After the owner, which clears bits of the mode.
    if (::fchmod(target, mode) != 0)
        return errno;
    return hasGroup ? copyAccessList(from, target) : 0;
}

int renameFile(const std::string& from, const std::string& to) {
    return result(::rename(from.c_str(), to.c_str()));
}

int removeFile(const std::string& path) {
    return result(::unlink(path.c_str()));
}

int syncFolder(const std::string& folder) {
    const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (opened < 0)
        return errno;
    const int error = syncFile(opened);
    ::close(opened);
    return error;
}

} // namespace zuhost::platform
