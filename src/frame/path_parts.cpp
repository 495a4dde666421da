#include <zucomn/strings.h>

#include "text_view.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::size_t kNone = std::wstring_view::npos;

struct PathParts {
    std::wstring_view directory;
    std::wstring_view name;
    std::wstring_view title;
    std::wstring_view extension;
};

std::wstring_view leadingComponents(std::wstring_view path, int level) {
    std::size_t end = 0;
    std::size_t separator = kNone;
    for (int passes = 0; passes <= level; ++passes) {
        separator = path.find(L'\\', end);
        if (separator == kNone)
            break;
        end = separator + 1;
    }
    return path.substr(0, end == 0 ? 0 : end - 1);
}

PathParts splitPath(std::wstring_view path, int level) {
    PathParts parts;
    const std::size_t separator = path.rfind(L'\\');
    const std::size_t point = path.rfind(L'.');
    parts.directory = leadingComponents(path, level);
    if (separator != kNone)
        parts.name = path.substr(separator + 1);
    if (separator != kNone && point != kNone && point > separator)
        parts.title = path.substr(separator + 1, point - separator - 1);
    if (point != kNone && point > 0)
        parts.extension = path.substr(point + 1);
    return parts;
}

void copyTo(std::wstring_view text, wchar_t* buffer) {
    if (buffer == nullptr)
        return;
    const std::size_t count = std::min<std::size_t>(text.size(), MAX_PATH - 1);
    std::copy_n(text.begin(), count, buffer);
    buffer[count] = L'\0';
}

} // namespace

void ZuComn_ExtractFileName(wchar_t* directory, wchar_t* name, wchar_t* title, wchar_t* extension,
                            const wchar_t* path, int level) {
    // Copied because an output may be the buffer of the path.
    const CString whole(path);
    const PathParts parts = splitPath(zu::view(whole), level);
    copyTo(parts.directory, directory);
    copyTo(parts.name, name);
    copyTo(parts.title, title);
    copyTo(parts.extension, extension);
}
