#pragma once

#include "file_ops.h"

#include <zuhost/platform/export.h>

#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace zuhost {

class TemporaryFile;

/// Returns the whole contents of a file, or the system's error number: EFBIG for a device or pipe that has no
/// end within 128 MB, ENOMEM when memory is short. `identity` receives what the file was before it was read.
[[nodiscard]] ZUHOST_API std::variant<std::string, int> readWholeFile(const std::string& path,
                                                                      FileIdentity* identity = nullptr);

/// Follows the links that the last part of a path and its folders are, also to a file that is yet to be
/// made. Returns the file's canonical path; ELOOP for a loop of links, or another error number of the system.
[[nodiscard]] ZUHOST_API std::variant<std::string, int> followLinks(const std::string& path);

/// Replaces a file as a whole: writes to a temporary file in the same folder, which `commit` renames to the
/// old one once everything is written and synced without error. After any failure, and whenever the process
/// ends, the name refers to the complete old or new file. Follows links; keeps owner, group and access rights
/// of the old file as far as the system allows; rejects devices and pipes (EPERM). Without `commit` no file
/// is left.
class ZUHOST_API AtomicFile {
public:
    /// A new file gets owner and rights of `model`, or of the process if that is empty.
    explicit AtomicFile(const std::string& path, const std::string& model = {});
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Appends; small pieces are gathered. Errors are remembered and returned by `commit`.
    void write(std::string_view bytes);

    /// Returns the first error so far; 0 when there is none.
    [[nodiscard]] int error() const { return error_; }

    /// Makes `commit` fail with an error of the caller, unless there was one before.
    void setError(int error) { error_ = error_ != 0 ? error_ : error; }

    /// Returns 0 when the new file is in place, otherwise the first error (the system's number), with the old
    /// file untouched: ESTALE when `expected` is given and the file no longer equals it, EBUSY when another
    /// program holds a lock on the old file for longer than a save takes. Savers lock the file, so that it
    /// can't be replaced between the comparison and the replacement.
    int commit(const FileIdentity* expected = nullptr);

    /// The file that is replaced, with links followed.
    [[nodiscard]] const std::string& target() const { return target_; }
    /// The identity of the new file, after `commit`.
    [[nodiscard]] const FileIdentity& identity() const { return identity_; }

private:
    void open(const std::string& model);
    void flush();
    int replace(const FileIdentity* expected);

    std::string target_;
    std::unique_ptr<TemporaryFile> temporary_; ///< Null once it is in place or given up.
    std::string buffer_;
    FileIdentity identity_;
    int error_ = 0;
};

/// Replaces a file's contents; returns 0 or the system's error number. `model` as above.
ZUHOST_API int replaceFile(const std::string& path, std::string_view bytes, const std::string& model = {});

} // namespace zuhost
