#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace zuhost {

/// Identifies a file and the state of its contents.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t created = 0; ///< Nanoseconds, 0 if unknown. Systems reuse inodes.
    std::int64_t changed = 0; ///< Nanoseconds: the last change of the contents.
    std::uint64_t size = 0;

    bool operator==(const FileIdentity&) const = default;
    [[nodiscard]] bool isSameFile(const FileIdentity& other) const {
        return device == other.device && inode == other.inode && created == other.created;
    }
};

/// The only place that calls the system's file functions. Tests intercept them: they make the n-th one fail
/// or stop the process at it. Paths are UTF-8 with "/" here; see paths.h for those of users. Results: 0 on
/// success, otherwise the system's error number; EILSEQ for a path with NUL, which the system would cut.
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

/// An open file; the destructor closes it.
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
    /// Creates a file without a name, which the system deletes when the process ends unless `link` has named
    /// it. EOPNOTSUPP when the system or the folder's file system has no such files.
    int openUnnamed(const std::string& folder);
    /// Names a file of `openUnnamed`. EEXIST when the name is taken.
    int link(const std::string& path);
    [[nodiscard]] bool isOpen() const { return handle_ >= 0; }
    /// Reads up to `size` bytes and stores their number in `done` (0 at the end).
    int read(char* buffer, std::size_t size, std::size_t& done);
    /// Writes all bytes, or fails.
    int write(std::string_view bytes);
    int seek(std::int64_t offset, int origin, std::int64_t& position);
    int sync();
    int close();
    /// Locks the file against other openings, of this process too, until it is closed or the process ends.
    /// Doesn't wait: EWOULDBLOCK when another holds the lock. Without effect on file systems without locks.
    int tryLock();
    int identify(FileIdentity& identity);
    /// Gives the file the owner, group, access rights and access list of another as far as the system allows.
    /// Never adds access: if the group can't be kept, the new group gets the rights of all others, and bits
    /// that run a program as its owner or group are dropped.
    int copyRights(const std::string& from);

private:
    int handle_ = -1;
    std::string path_;
};

int rename(const std::string& from, const std::string& to);
int remove(const std::string& path);
/// Identifies the name itself: links are not followed.
int identify(const std::string& path, FileIdentity& identity);
/// Makes what was renamed in the folder last through a power cut.
int syncFolder(const std::string& folder);

} // namespace file_ops
} // namespace zuhost
