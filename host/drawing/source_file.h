#pragma once

#include "zuhost/file_ops.h"

#include <string>

namespace zuhost {

/// The file that a drawing was read from or last saved to, as it was then.
struct SourceFile {
    std::string path;   ///< As it was given, absolute.
    std::string target; ///< With links followed.
    FileIdentity identity;
    bool mayReplaceChanged = false; ///< Saves replace the file whatever it is now.

    /// Of a path of the system.
    static SourceFile at(const std::string& path, const FileIdentity& identity);

    /// Whether a save would go to this file by its name or through links.
    [[nodiscard]] bool isNamedBy(const std::string& savedPath, const std::string& savedTarget) const;
    /// Whether the path is another name of the very file (a hard link).
    [[nodiscard]] bool isLinkedAt(const std::string& savedTarget) const;
};

} // namespace zuhost
