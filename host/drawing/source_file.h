#pragma once

#include "zuhost/file_ops.h"

#include <string>

namespace zuhost {

/// The file that a drawing was read from or last saved to, with its identity at that time.
struct SourceFile {
    std::string path;   ///< As it was given, absolute.
    std::string target; ///< With links followed.
    FileIdentity identity;
    bool mayReplaceChanged = false; ///< Saves replace the file even if it has changed.

    /// Creates the value for a path in the system's encoding.
    static SourceFile at(const std::string& path, const FileIdentity& identity);

    /// Returns whether a save to the path would replace this file, by its name or through links.
    [[nodiscard]] bool isNamedBy(const std::string& savedPath, const std::string& savedTarget) const;
    /// Returns whether the path is another name of this file (a hard link).
    [[nodiscard]] bool isLinkedAt(const std::string& savedTarget) const;
};

} // namespace zuhost
