#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace zuhost {

/// The only code that calls the system's file functions. Tests can intercept every call, to make the n-th one
/// fail or to end the process at it. Paths are UTF-8 with "/"; paths.h converts the paths of the interface.
/// Functions return 0 on success, otherwise the system's error number.
namespace file_ops {

enum class Operation { open, openToWrite, read, write, sync, close, rename, remove, copyMode, makeFolder };

/// Called before each operation; a result other than 0 makes the operation fail with that error.
using Interceptor = std::function<int(Operation operation, const std::string& path)>;

/// Sets the interceptor for the lifetime of the object and restores the previous one.
class Interception {
public:
    explicit Interception(Interceptor interceptor);
    ~Interception();
    Interception(const Interception&) = delete;
    Interception& operator=(const Interception&) = delete;

private:
    Interceptor previous_;
};

/// Fails the n-th operation (counted from 1), or from the n-th on, with a full-disk error.
class FailAt {
public:
    explicit FailAt(std::uint64_t n, bool fromThenOn = false);
    /// Returns the number of operations so far.
    [[nodiscard]] std::uint64_t count() const;

private:
    std::shared_ptr<std::uint64_t> count_;
    Interception interception_;
};

/// An open file, closed by its destructor.
class File {
public:
    enum class Mode {
        read,      ///< Also for pipes; a pipe without a writer reads as empty.
        createNew, ///< Fails when the file exists.
        replace,   ///< Creates the file or truncates an existing one.
        append,
        update ///< Reads and writes; the file must exist.
    };

    File() = default;
    ~File();
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int open(const std::string& path, Mode mode);
    [[nodiscard]] bool isOpen() const { return handle_ >= 0; }
    /// Reads up to `size` bytes and stores their number in `done` (0 at the end).
    int read(char* buffer, std::size_t size, std::size_t& done);
    /// Writes all bytes, or fails.
    int write(std::string_view bytes);
    int seek(std::int64_t offset, int origin, std::int64_t& position);
    int sync();
    int close();

private:
    int handle_ = -1;
    std::string path_;
};

int rename(const std::string& from, const std::string& to);
int remove(const std::string& path);
/// Copies the permissions of `from` to `to`.
int copyMode(const std::string& from, const std::string& to);
/// Syncs a folder, so that renames in it survive a power failure.
int syncFolder(const std::string& folder);

} // namespace file_ops
} // namespace zuhost
