#include "zuhost/file_ops.h"

#include <cerrno>
#include <utility>

namespace zuhost::file_ops {

namespace {

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

/// Returns the result of the call unless an interceptor makes it fail.
template <typename Call>
int checked(Operation operation, const std::string& path, Call call) {
    const int error = intercepted(operation, path);
    return error != 0 ? error : call();
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
        platform::closeFile(handle_);
}

File::File(File&& other) noexcept
    : handle_(std::exchange(other.handle_, platform::kNoFile)), path_(std::move(other.path_)) {}

File& File::operator=(File&& other) noexcept {
    std::swap(handle_, other.handle_);
    std::swap(path_, other.path_);
    return *this;
}

int File::open(const std::string& path, Mode mode) {
    const Operation operation = mode == Mode::read ? Operation::open : Operation::openToWrite;
    return checked(operation, path, [&] {
        platform::FileHandle handle = platform::kNoFile;
        const int error = platform::openFile(path, mode, handle);
        return error != 0 ? error : hold(handle, path);
    });
}

int File::openUnnamed(const std::string& folder) {
    return checked(Operation::openUnnamed, folder, [&] {
        platform::FileHandle handle = platform::kNoFile;
        const int error = platform::openUnnamedFile(folder, handle);
        return error != 0 ? error : hold(handle, folder);
    });
}

int File::hold(platform::FileHandle handle, const std::string& path) {
    *this = File();
    handle_ = handle;
    path_ = path;
    return 0;
}

int File::link(const std::string& path) {
    return checked(Operation::link, path, [&] { return platform::linkFile(handle_, path); });
}

int File::read(char* buffer, std::size_t size, std::size_t& done) {
    done = 0;
    return checked(Operation::read, path_, [&] { return platform::readFile(handle_, buffer, size, done); });
}

int File::write(std::string_view bytes) {
    return checked(Operation::write, path_, [&] { return platform::writeFile(handle_, bytes); });
}

int File::seek(std::int64_t offset, int origin, std::int64_t& position) {
    return platform::seekFile(handle_, offset, origin, position);
}

int File::sync() {
    return checked(Operation::sync, path_, [&] { return platform::syncFile(handle_); });
}

int File::close() {
    if (!isOpen())
        return 0;
    const int error = intercepted(Operation::close, path_);
    const int closed = platform::closeFile(std::exchange(handle_, platform::kNoFile));
    return error != 0 ? error : closed;
}

int File::tryLock() {
    return checked(Operation::lock, path_, [&] { return platform::tryLockFile(handle_); });
}

int File::identify(FileIdentity& identity) {
    return checked(Operation::identify, path_, [&] { return platform::identifyFile(handle_, identity); });
}

int File::copyRights(const std::string& from) {
    return checked(Operation::copyRights, from, [&] { return platform::copyRights(from, handle_); });
}

int rename(const std::string& from, const std::string& to) {
    return checked(Operation::rename, to, [&] { return platform::renameFile(from, to); });
}

int remove(const std::string& path) {
    return checked(Operation::remove, path, [&] { return platform::removeFile(path); });
}

int identify(const std::string& path, FileIdentity& identity) {
    return checked(Operation::identify, path, [&] { return platform::identifyName(path, identity); });
}

int syncFolder(const std::string& folder) {
    return checked(Operation::sync, folder, [&] { return platform::syncFolder(folder); });
}

} // namespace zuhost::file_ops
