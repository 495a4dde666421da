#include "source_file.h"

#include "zuhost/atomic_file.h"

#include <zuhost/platform/paths.h>

#include <filesystem>

namespace zuhost {

namespace {

/// Returns the path unchanged when the current folder is unknown.
std::string absolutePath(const std::string& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(zuhost::platform::pathOf(path), error);
    return error ? path : zuhost::platform::textOf(absolute);
}

} // namespace

SourceFile SourceFile::at(const std::string& path, const FileIdentity& identity) {
    SourceFile source;
    source.path = absolutePath(path);
    const auto target = followLinks(source.path);
    source.target = std::holds_alternative<int>(target) ? source.path : std::get<std::string>(target);
    source.identity = identity;
    return source;
}

bool SourceFile::isNamedBy(const std::string& savedPath, const std::string& savedTarget) const {
    return absolutePath(savedPath) == path || absolutePath(savedTarget) == target;
}

bool SourceFile::isLinkedAt(const std::string& savedTarget) const {
    FileIdentity saved;
    return file_ops::identify(savedTarget, saved) == 0 && saved.isSameFile(identity);
}

} // namespace zuhost
