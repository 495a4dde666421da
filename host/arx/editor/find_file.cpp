#include "acedads.h"

#include <afx.h>
#include <zuhost/paths.h>
#include <zuhost/platform/paths.h>
#include <zuhost/search_folders.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace {

bool isFile(const std::wstring& path) {
    CFile file;
    return file.Open(path.c_str(), CFile::modeRead | CFile::shareDenyNone) != 0;
}

std::vector<std::wstring> candidates(const std::wstring& name) {
    const bool hasFolder = name.find_first_of(L"\\/:") != std::wstring::npos;
    if (hasFolder)
        return {name};
    std::vector<std::wstring> paths = zuhost::searchFolders();
    for (std::wstring& path : paths)
        path += name;
    return paths;
}

std::wstring fullPath(const std::wstring& path) {
    std::error_code error;
    const auto full = std::filesystem::absolute(zuhost::platform::pathOf(zuhost::systemPath(path)), error)
                          .lexically_normal();
    return error ? path : zuhost::hostPath(zuhost::platform::textOf(full));
}

std::optional<std::wstring> find(const std::wstring& name) {
    for (const std::wstring& path : candidates(name))
        if (isFile(path))
            return fullPath(path);
    return std::nullopt;
}

} // namespace

int acedFindFile(const ACHAR* name, ACHAR* result, std::size_t size) {
    if (name == nullptr || *name == L'\0' || result == nullptr)
        return RTERROR;
    const auto path = find(name);
    const bool fits = path && path->size() < size;
    return fits && zuhost::copyToBuffer(*path, result, size) ? RTNORM : RTERROR;
}
