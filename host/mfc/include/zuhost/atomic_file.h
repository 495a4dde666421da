#pragma once

#include "file_ops.h"

#include <string>
#include <string_view>
#include <variant>

namespace zuhost {

/// Returns the whole contents of a file, or the system's error number: EFBIG for a device or pipe that has no
/// end within 128 MB, ENOMEM when memory is short.
[[nodiscard]] std::variant<std::string, int> readWholeFile(const std::string& path);

/// Replaces a file atomically: writes go to a temporary file in the same folder, which `commit` renames to
/// the target after everything was written, synced and closed without error. Whatever fails, and whenever the
/// process ends, the path names the complete old or new file. Follows symbolic links and preserves the old
/// file's permissions; rejects devices and pipes (EPERM). Without `commit` the temporary file is
/// removed.
class AtomicFile {
public:
    /// A new file gets the permissions of `model`, or the process's default ones when it is empty.
    explicit AtomicFile(const std::string& path, const std::string& model = {});
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Appends bytes, buffering small pieces. `commit` reports errors.
    void write(std::string_view bytes);

    /// Returns the first error so far; 0 when there is none.
    [[nodiscard]] int error() const { return error_; }

    /// Makes `commit` fail with an error of the caller, unless there was one before.
    void setError(int error) { error_ = error_ != 0 ? error_ : error; }

    /// Returns 0 when the new file is in place; otherwise the first error (the system's number), and the old
    /// file is untouched.
    int commit();

private:
    void open(const std::string& rightsOf);
    void flush();
    void discard();

    std::string target_;
    std::string temporary_;
    file_ops::File file_;
    std::string buffer_;
    int error_ = 0;
    bool done_ = false;
};

/// Replaces a file's contents; returns 0 or the system's error number. `model` as above.
int replaceFile(const std::string& path, std::string_view bytes, const std::string& model = {});

} // namespace zuhost
