#pragma once

#include "file_ops.h"

#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace zuhost {

class TemporaryFile;

/// Returns the whole contents of a file, or the system's error number: EFBIG for a device or pipe that has no
/// end within 128 MB, ENOMEM when memory is short. `identity` receives what the file was before it was read.
[[nodiscard]] std::variant<std::string, int> readWholeFile(const std::string& path,
                                                           FileIdentity* identity = nullptr);

/// Follows the links that the last part of a path and its folders are, also to a file that is yet to be
/// made. Returns the file's canonical path; ELOOP for a loop of links, or another error number of the system.
[[nodiscard]] std::variant<std::string, int> followLinks(const std::string& path);

/// Replaces a file as a whole: what is written goes into a temporary file in the same folder, and only
/// `commit`, after everything was written and synced without error, puts it in the place of the old one.
/// Whatever fails, and wherever the process ends, the name holds the old file or the new one. A link is
/// followed, and owner, group and access rights of the old file are kept as far as the system allows; devices
/// and pipes are refused (EPERM). Without `commit` nothing is left.
class AtomicFile {
public:
    /// A file that is not there yet gets owner and rights of `model`, or with none the process's own.
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

    /// 0 when the new file is in place, otherwise the first error (the system's number) and the old file
    /// untouched: ESTALE when `expected` is given and the file is no longer that, EBUSY when another program
    /// holds a lock on the old file for longer than a save takes. Savers of one file lock it in turn, so that
    /// no other can replace it between the comparison and the replacement.
    int commit(const FileIdentity* expected = nullptr);

    /// The file that is replaced, with links followed.
    [[nodiscard]] const std::string& target() const { return target_; }
    /// What the new file is, after `commit`.
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
int replaceFile(const std::string& path, std::string_view bytes, const std::string& model = {});

} // namespace zuhost
