#include <shlwapi.h>

#include <string>
#include <string_view>

namespace {

constexpr std::wstring_view kSeparators = L"\\/";

bool isSeparator(wchar_t c) {
    return kSeparators.find(c) != std::wstring_view::npos;
}

std::wstring_view orEmpty(const wchar_t* path) {
    return path != nullptr ? std::wstring_view(path) : std::wstring_view();
}

std::size_t driveLength(std::wstring_view path) {
    return path.size() > 1 && path[1] == L':' ? 2 : 0;
}

/// Returns where the last name begins.
std::size_t namePlace(std::wstring_view path) {
    const std::size_t separator = path.find_last_of(kSeparators);
    return separator == std::wstring_view::npos ? driveLength(path) : separator + 1;
}

/// Returns where the extension begins; the path's length when it has none.
std::size_t extensionPlace(std::wstring_view path) {
    const std::size_t point = path.rfind(L'.');
    const bool isInName = point != std::wstring_view::npos && point >= namePlace(path);
    return isInName ? point : path.size();
}

bool isAbsolute(std::wstring_view path) {
    return driveLength(path) > 0 || (!path.empty() && isSeparator(path.front()));
}

bool store(wchar_t* buffer, std::wstring_view path) {
    if (buffer == nullptr || path.size() >= MAX_PATH)
        return false;
    path.copy(buffer, path.size());
    buffer[path.size()] = L'\0';
    return true;
}

std::wstring joined(std::wstring_view folder, std::wstring_view path) {
    std::wstring result(folder);
    if (!result.empty() && !path.empty() && !isSeparator(result.back()))
        result += L'\\';
    return result.append(path);
}

wchar_t* placeIn(const wchar_t* path, std::size_t place) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the interface's way.
    return path != nullptr ? const_cast<wchar_t*>(path) + place : nullptr;
}

} // namespace

BOOL PathFileExistsW(const wchar_t* path) {
    return GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES ? TRUE : FALSE;
}

BOOL PathIsDirectoryW(const wchar_t* path) {
    const DWORD attributes = GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? TRUE
                                                                                                 : FALSE;
}

BOOL PathIsRelativeW(const wchar_t* path) {
    return isAbsolute(orEmpty(path)) ? FALSE : TRUE;
}

wchar_t* PathFindFileNameW(const wchar_t* path) {
    std::wstring_view text = orEmpty(path);
    // A final separator belongs to the last name.
    const bool ends = text.size() > 1 && isSeparator(text.back());
    return placeIn(path, namePlace(ends ? text.substr(0, text.size() - 1) : text));
}

wchar_t* PathFindExtensionW(const wchar_t* path) {
    return placeIn(path, extensionPlace(orEmpty(path)));
}

BOOL PathRemoveFileSpecW(wchar_t* path) {
    const std::wstring_view text = orEmpty(path);
    std::size_t end = namePlace(text);
    const std::size_t root = driveLength(text) + 1;
    if (end > root)
        --end;
    if (end >= text.size())
        return FALSE;
    path[end] = L'\0';
    return TRUE;
}

void PathRemoveExtensionW(wchar_t* path) {
    if (path != nullptr)
        *PathFindExtensionW(path) = L'\0';
}

void PathStripPathW(wchar_t* path) {
    if (path != nullptr)
        store(path, std::wstring(PathFindFileNameW(path)));
}

wchar_t* PathAddBackslashW(wchar_t* path) {
    const std::wstring text(orEmpty(path));
    if (path == nullptr)
        return nullptr;
    if (!text.empty() && isSeparator(text.back()))
        return path + text.size();
    return store(path, text + L'\\') ? path + text.size() + 1 : nullptr;
}

wchar_t* PathRemoveBackslashW(wchar_t* path) {
    const std::wstring_view text = orEmpty(path);
    if (text.empty())
        return path;
    wchar_t* const last = path + text.size() - 1;
    if (isSeparator(*last) && text.size() > driveLength(text) + 1)
        *last = L'\0';
    return last;
}

BOOL PathAppendW(wchar_t* path, const wchar_t* more) {
    std::wstring_view added = orEmpty(more);
    while (!added.empty() && isSeparator(added.front()))
        added.remove_prefix(1);
    return store(path, joined(orEmpty(path), added)) ? TRUE : FALSE;
}

BOOL PathAddExtensionW(wchar_t* path, const wchar_t* extension) {
    const std::wstring_view text = orEmpty(path);
    if (extensionPlace(text) < text.size())
        return FALSE;
    return store(path, std::wstring(text).append(extension != nullptr ? extension : L".exe")) ? TRUE : FALSE;
}

BOOL PathRenameExtensionW(wchar_t* path, const wchar_t* extension) {
    const std::wstring_view text = orEmpty(path);
    return store(path, std::wstring(text.substr(0, extensionPlace(text))).append(orEmpty(extension))) ? TRUE
                                                                                                      : FALSE;
}

wchar_t* PathCombineW(wchar_t* buffer, const wchar_t* folder, const wchar_t* path) {
    const std::wstring_view text = orEmpty(path);
    if (buffer == nullptr)
        return nullptr;
    if ((folder != nullptr || path != nullptr) &&
        store(buffer, isAbsolute(text) ? std::wstring(text) : joined(orEmpty(folder), text)))
        return buffer;
    *buffer = L'\0';
    return nullptr;
}
