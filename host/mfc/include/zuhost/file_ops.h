#pragma once

#include <zuhost/platform/export.h>
#include <zuhost/platform/files.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace zuhost {

using platform::FileIdentity;

/// The file functions of the platform, which tests intercept: they make the n-th one fail or stop the process
/// at it. Nothing else calls them. Paths are UTF-8 with "/" here; see paths.h for those of users. EILSEQ for
/// a path with NUL, which the system would cut.
namespace file_ops {

enum class Operation {
    open,
    openToWrite,
    openUnnamed,
    read,
    write,
    sync,
    close,
    link,
    lock,
    rename,
    remove,
    copyRights,
    identify
};

/// Called before each operation; a result other than 0 makes it fail with that error without being done.
using Interceptor = std::function<int(Operation operation, const std::string& path)>;

/// Sets the interceptor for the lifetime of the object and restores the previous one.
class ZUHOST_API Interception {
public:
    explicit Interception(Interceptor interceptor);
    ~Interception();
    Interception(const Interception&) = delete;
    Interception& operator=(const Interception&) = delete;

private:
    Interceptor previous_;
};

/// Fails the n-th operation (counted from 1), or from the n-th on, with a full-disk error.
class ZUHOST_API FailAt {
public:
    explicit FailAt(std::uint64_t n, bool fromThenOn = false);
    /// Returns the number of operations so far.
    [[nodiscard]] std::uint64_t count() const;

private:
    std::shared_ptr<std::uint64_t> count_;
    Interception interception_;
};

/// An open file; the destructor closes it. Its functions are those of platform/files.h.
class ZUHOST_API File {
public:
    using Mode = platform::FileMode;

    File() = default;
    ~File();
    File(File&& other) noexcept;
    File& operator=(File&& other) noexcept;
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int open(const std::string& path, Mode mode);
    int openUnnamed(const std::string& folder);
    int link(const std::string& path);
    [[nodiscard]] bool isOpen() const { return handle_ != platform::kNoFile; }
    int read(char* buffer, std::size_t size, std::size_t& done);
    int write(std::string_view bytes);
    int seek(std::int64_t offset, int origin, std::int64_t& position);
    int sync();
    int close();
    int tryLock();
    int identify(FileIdentity& identity);
    int copyRights(const std::string& from);

private:
    int hold(platform::FileHandle handle, const std::string& path);

    platform::FileHandle handle_ = platform::kNoFile;
    std::string path_;
};

ZUHOST_API int rename(const std::string& from, const std::string& to);
ZUHOST_API int remove(const std::string& path);
ZUHOST_API int identify(const std::string& path, FileIdentity& identity);
ZUHOST_API int syncFolder(const std::string& folder);

} // namespace file_ops
} // namespace zuhost
