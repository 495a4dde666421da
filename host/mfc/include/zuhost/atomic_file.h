#pragma once

#include "file_ops.h"

#include <string>
#include <string_view>
#include <variant>

namespace zuhost {

/// Returns the whole contents of a file, or the system's error number: EFBIG for a device or pipe that has no
/// end within 128 MB, ENOMEM when memory is short.
[[nodiscard]] std::variant<std::string, int> readWholeFile(const std::string& path);

/// Replaces a file as a whole: what is written goes into a temporary file in the same folder, and only
/// `commit`, after everything was written, synced and closed without error, puts it in the place of the old
/// one. Whatever fails, and wherever the process ends, the name holds the old file or the new one. A link is
/// followed, and the old file's access rights are kept; devices and pipes are refused (EPERM). Without
/// `commit` the temporary file is removed again.
class AtomicFile {
public:
    /// A file that is not there yet gets the access rights of `model`, or with none the process's own.
    explicit AtomicFile(const std::string& path, const std::string& model = {});
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Appends; small pieces are gathered. Errors are remembered and told by `commit`.
    void write(std::string_view bytes);

    /// The first error so far; 0 when there is none.
    [[nodiscard]] int error() const { return error_; }

    /// Makes `commit` fail with the error, for a reason of the caller's own.
    void giveUp(int error) { error_ = error_ != 0 ? error_ : error; }

    /// 0 when the new file is in place, otherwise the first error (the system's number) and the old file
    /// untouched.
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

/// Replaces a file by the bytes; 0 or the system's error number. `model` as above.
int replaceFile(const std::string& path, std::string_view bytes, const std::string& model = {});

} // namespace zuhost
