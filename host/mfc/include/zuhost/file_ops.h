#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace zuhost {

/// The only place that calls the system's file functions. Every call is counted, so that tests can make the
/// n-th one fail or stop the process at it. Paths are UTF-8 with "/" here; see paths.h for those of users.
/// Results: 0 on success, otherwise the system's error number.
namespace file_ops {

enum class Operation { open, openToWrite, read, write, sync, close, rename, remove, copyMode, makeFolder };

/// Asked before each operation; a number other than 0 makes it fail with that error without being done.
using Interceptor = std::function<int(Operation operation, const std::string& path)>;

/// Sets the interceptor for the life of the object and restores the one before.
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
    /// Operations seen so far.
    [[nodiscard]] std::uint64_t count() const;

private:
    std::shared_ptr<std::uint64_t> count_;
    Interception interception_;
};

/// An open file; closed when it goes, at the latest.
class File {
public:
    enum class Mode {
        read,      ///< Of a pipe too; one that nothing has opened for writing is empty.
        createNew, ///< Fails when the file is there.
        replace,   ///< Created, or emptied when it is there.
        append,
        update ///< Read and write; the file has to be there.
    };

    File() = default;
    ~File();
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int open(const std::string& path, Mode mode);
    [[nodiscard]] bool isOpen() const { return handle_ >= 0; }
    /// Reads up to `size` bytes; `done` receives how many (0 at the end).
    int read(char* buffer, std::size_t size, std::size_t& done);
    /// Writes all of it, or fails.
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
/// Gives `to` the access rights of `from`.
int copyMode(const std::string& from, const std::string& to);
/// Makes what was renamed in the folder last through a power cut.
int syncFolder(const std::string& folder);

} // namespace file_ops
} // namespace zuhost
