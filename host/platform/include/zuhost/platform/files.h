#pragma once

#include <zuhost/platform/export.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// What the host needs of the operating system. One folder implements it for each system; nothing else calls
/// the system.
///
/// Paths are UTF-8 with "/". Results are 0 on success, otherwise the error number of the C library (ENOENT
/// ...).
namespace zuhost::platform {

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

enum class FileMode {
    read,      ///< Also for pipes; a pipe without a writer reads as empty.
    createNew, ///< Fails when the file exists.
    replace,   ///< Creates the file or truncates an existing one.
    append,
    update ///< Reads and writes; the file must exist.
};

using FileHandle = std::intptr_t;
inline constexpr FileHandle kNoFile = -1;

/// EISDIR for folders. Child processes do not inherit the handle; others may rename or remove the open file.
ZUHOST_API int openFile(const std::string& path, FileMode mode, FileHandle& file);
/// Creates a file without a name, which the system deletes when the process ends unless `linkFile` has named
/// it. EOPNOTSUPP when the system or the folder's file system has no such files.
ZUHOST_API int openUnnamedFile(const std::string& folder, FileHandle& file);
/// Names a file of `openUnnamedFile`. EEXIST when the name is taken.
ZUHOST_API int linkFile(FileHandle file, const std::string& path);
/// Creates a file with a new name in the folder for temporary files, which only the user may read. The caller
/// removes it.
ZUHOST_API int openTemporaryFile(FileHandle& file, std::string& path);
/// Reads up to `size` bytes and stores their number in `done` (0 at the end).
ZUHOST_API int readFile(FileHandle file, char* buffer, std::size_t size, std::size_t& done);
/// Writes all bytes, or fails.
ZUHOST_API int writeFile(FileHandle file, std::string_view bytes);
/// `origin` is SEEK_SET, SEEK_CUR or SEEK_END.
ZUHOST_API int seekFile(FileHandle file, std::int64_t offset, int origin, std::int64_t& position);
/// Makes the contents last through a power cut. Without effect on pipes and devices.
ZUHOST_API int syncFile(FileHandle file);
ZUHOST_API int closeFile(FileHandle file);
/// Locks the file against other openings, of this process too, until it is closed or the process ends.
/// Doesn't wait: EWOULDBLOCK when another holds the lock. Without effect on file systems without locks.
ZUHOST_API int tryLockFile(FileHandle file);
ZUHOST_API int identifyFile(FileHandle file, FileIdentity& identity);
/// Identifies the name itself: links are not followed.
ZUHOST_API int identifyName(const std::string& path, FileIdentity& identity);
/// Returns the name of the file or folder as the system stores it, which can differ in case; empty when there
/// is none. Links are not followed.
ZUHOST_API std::string storedName(const std::string& path);
/// Gives the file the owner, group, access rights and access list of another as far as the system allows.
/// Never adds access: if the group can't be kept, the new group gets the rights of all others, and bits that
/// run a program as its owner or group are dropped.
ZUHOST_API int copyRights(const std::string& from, FileHandle to);
/// Replaces a file of the name `to`, which others may have open.
ZUHOST_API int renameFile(const std::string& from, const std::string& to);
ZUHOST_API int removeFile(const std::string& path);
/// Makes what was renamed in the folder last through a power cut.
ZUHOST_API int syncFolder(const std::string& folder);

} // namespace zuhost::platform
