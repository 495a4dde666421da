#include "zuhost/file_ops.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <utility>
#include <vector>

namespace zuhost::file_ops {

namespace {

constexpr mode_t kNewFile = 0666;
constexpr const char* kAccessList = "system.posix_acl_access";

/// Some file systems refuse larger transfers.
constexpr std::size_t kLargestTransfer = std::size_t{1} << 30U;

Interceptor& interceptor() {
    static Interceptor current;
    return current;
}

/// Returns the error with which an operation fails before it begins, or 0.
int intercepted(Operation operation, const std::string& path) {
    if (path.find('\0') != std::string::npos)
        return EILSEQ;
    return interceptor() ? interceptor()(operation, path) : 0;
}

int result(int returned) {
    return returned < 0 ? errno : 0;
}

int openFlags(File::Mode mode) {
    switch (mode) {
    case File::Mode::read:
        return O_RDONLY | O_NONBLOCK;
    case File::Mode::createNew:
        return O_WRONLY | O_CREAT | O_EXCL;
    case File::Mode::replace:
        return O_RDWR | O_CREAT | O_TRUNC;
    case File::Mode::append:
        return O_WRONLY | O_CREAT | O_APPEND;
    case File::Mode::update:
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

Interception::Interception(Interceptor wanted) : previous_(std::exchange(interceptor(), std::move(wanted))) {}

Interception::~Interception() {
    interceptor() = std::move(previous_);
}

FailAt::FailAt(std::uint64_t n, bool fromThenOn)
    : count_(std::make_shared<std::uint64_t>(0)),
      interception_([count = count_, n, fromThenOn](Operation, const std::string&) {
          ++*count;
          return *count == n || (fromThenOn && *count > n) ? ENOSPC : 0;
      }) {}

std::uint64_t FailAt::count() const {
    return *count_;
}

File::~File() {
    if (isOpen())
        ::close(handle_);
}

File::File(File&& other) noexcept
    : handle_(std::exchange(other.handle_, -1)), path_(std::move(other.path_)) {}

File& File::operator=(File&& other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(path_, other.path_);
    return *this;
}

int File::open(const std::string& path, Mode mode) {
    if (const int error = intercepted(mode == Mode::read ? Operation::open : Operation::openToWrite, path))
        return error;
    const int handle = ::open(path.c_str(), openFlags(mode) | O_CLOEXEC, kNewFile);
    if (handle < 0)
        return errno;
    if (mode == Mode::read)
        fcntl(handle, F_SETFL, fcntl(handle, F_GETFL) & ~O_NONBLOCK);
    if (isFolder(handle)) {
        ::close(handle);
        return EISDIR;
    }
    *this = File();
    handle_ = handle;
    path_ = path;
    return 0;
}

int File::openUnnamed(const std::string& folder) {
    if (const int error = intercepted(Operation::openUnnamed, folder))
        return error;
    const int handle = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kNewFile);
    if (handle < 0) {
        // Systems without the flag treat this as opening the folder for writing.
        const bool unknown = errno == EISDIR || errno == EINVAL || errno == ENOSYS;
        return unknown ? EOPNOTSUPP : errno;
    }
    *this = File();
    handle_ = handle;
    path_ = folder;
    if (::access(shownAt(handle).c_str(), F_OK) == 0)
        return 0;
    *this = File();
    return EOPNOTSUPP;
}

int File::link(const std::string& path) {
    if (const int error = intercepted(Operation::link, path))
        return error;
    return result(::linkat(AT_FDCWD, shownAt(handle_).c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW));
}

int File::read(char* buffer, std::size_t size, std::size_t& done) {
    done = 0;
    if (const int error = intercepted(Operation::read, path_))
        return error;
    while (done < size) {
        const ssize_t count = ::read(handle_, buffer + done, std::min(size - done, kLargestTransfer));
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

int File::write(std::string_view bytes) {
    if (const int error = intercepted(Operation::write, path_))
        return error;
    const FileSizeSignalHeld held;
    while (!bytes.empty()) {
        const ssize_t count = ::write(handle_, bytes.data(), std::min(bytes.size(), kLargestTransfer));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
}

int File::seek(std::int64_t offset, int origin, std::int64_t& position) {
    position = ::lseek(handle_, offset, origin);
    return position < 0 ? errno : 0;
}

int File::sync() {
    if (const int error = intercepted(Operation::sync, path_))
        return error;
    // Pipes and devices cannot be synced and need not be.
    const int error = result(::fsync(handle_));
    return error == EINVAL || error == EROFS ? 0 : error;
}

int File::close() {
    if (!isOpen())
        return 0;
    const int error = intercepted(Operation::close, path_);
    const int closed = result(::close(std::exchange(handle_, -1)));
    return error != 0 ? error : closed;
}

int File::tryLock() {
    if (const int error = intercepted(Operation::lock, path_))
        return error;
    const int error = result(::flock(handle_, LOCK_EX | LOCK_NB));
    const bool lacksLocks = error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS || error == EINVAL;
    return lacksLocks ? 0 : error;
}

int File::identify(FileIdentity& identity) {
    if (const int error = intercepted(Operation::identify, path_))
        return error;
    return identityOf(handle_, "", identity);
}

int File::copyRights(const std::string& from) {
    if (const int error = intercepted(Operation::copyRights, from))
        return error;
    struct stat wanted {};
    struct stat own {};
    if (::stat(from.c_str(), &wanted) != 0 || ::fstat(handle_, &own) != 0)
        return errno;
    constexpr auto kSameOwner = static_cast<uid_t>(-1);
    constexpr auto kSameGroup = static_cast<gid_t>(-1);
    const bool hasGroup = own.st_gid == wanted.st_gid || ::fchown(handle_, kSameOwner, wanted.st_gid) == 0;
    const bool hasOwner = own.st_uid == wanted.st_uid || ::fchown(handle_, wanted.st_uid, kSameGroup) == 0;
    mode_t mode = wanted.st_mode & 07777U;
    if (!hasOwner)
        mode &= ~static_cast<mode_t>(S_ISUID);
    if (!hasGroup)
        mode = withoutGroup(mode);
    // After the owner, which clears bits of the mode.
    if (::fchmod(handle_, mode) != 0)
        return errno;
    return hasGroup ? copyAccessList(from, handle_) : 0;
}

int rename(const std::string& from, const std::string& to) {
    if (const int error = intercepted(Operation::rename, to))
        return error;
    return result(::rename(from.c_str(), to.c_str()));
}

int remove(const std::string& path) {
    if (const int error = intercepted(Operation::remove, path))
        return error;
    return result(::unlink(path.c_str()));
}

int identify(const std::string& path, FileIdentity& identity) {
    if (const int error = intercepted(Operation::identify, path))
        return error;
    return path.empty() ? ENOENT : identityOf(AT_FDCWD, path.c_str(), identity);
}

int syncFolder(const std::string& folder) {
    if (const int error = intercepted(Operation::sync, folder))
        return error;
    const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return errno;
    const int error = result(::fsync(handle));
    ::close(handle);
    return error == EINVAL || error == EROFS ? 0 : error;
}

} // namespace zuhost::file_ops
