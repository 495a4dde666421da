#pragma once

#include "zuhost/file_ops.h"

#include <functional>
#include <string>
#include <string_view>

namespace zuhost {

/// A file that is to take another one's place. It has no name until then where the system has such files,
/// so that nothing is left of a killed process. Elsewhere, and between naming and renaming, its name is the
/// first free one of a fixed series; it is locked as long as its process lives, and an unlocked file of the
/// series is the leftover of a dead process, which the next saver in the folder removes.
class TemporaryFile {
public:
    TemporaryFile() = default;
    ~TemporaryFile() { discard(); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Results here: 0 or the system's error number; EBUSY when all names of the series are in use.
    int create(const std::string& folder);
    [[nodiscard]] file_ops::File& file() { return file_; }
    /// Puts the file in the place of `target` in the same folder, replacing what is there.
    int renameTo(const std::string& target);

private:
    int takeName(const std::function<int(const std::string&)>& make);
    int createNamed(const std::string& name);
    void discard();

    std::string folder_;
    std::string name_; ///< Empty for a file without one.
    file_ops::File file_;
};

/// Returns whether the name still refers to the open file.
[[nodiscard]] bool isAt(file_ops::File& file, const std::string& name);

} // namespace zuhost
