#include "zuhost/file_ops.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace zuhost::file_ops {

namespace {

/// Limits the bytes of one system call; some file systems reject larger ones.
constexpr std::size_t kLargestTransfer = std::size_t{1} << 30U;

Interceptor& interceptor() {
    static Interceptor current;
    return current;
}

int intercepted(Operation operation, const std::string& path) {
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
    const int handle = ::open(path.c_str(), openFlags(mode) | O_CLOEXEC, 0666);
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

int copyMode(const std::string& from, const std::string& to) {
    if (const int error = intercepted(Operation::copyMode, to))
        return error;
    struct stat status {};
    if (::stat(from.c_str(), &status) != 0)
        return errno;
    return result(::chmod(to.c_str(), status.st_mode & 07777U));
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
