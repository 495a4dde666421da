#include "zuhost/paths.h"

#include "zuhost/character.h"
#include "zuhost/text_codec.h"

#include <zuhost/platform/file_rules.h>
#include <zuhost/platform/files.h>
#include <zuhost/platform/paths.h>
#include <zuhost/platform/system_rules.h>

#include <algorithm>
#include <filesystem>

namespace zuhost {

namespace {

namespace fs = std::filesystem;

bool entryExists(const fs::path& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() != fs::file_type::not_found;
}

bool equalIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](wchar_t x, wchar_t y) { return toLower(x) == toLower(y); });
}

/// Returns the folder's entry whose name differs from `name` in case only; `name` itself when there is none.
std::string nameInFolder(const fs::path& folder, const std::string& name) {
    if (std::string stored = platform::storedName(platform::textOf(folder / platform::pathOf(name)));
        !stored.empty())
        return stored;
    const std::wstring wanted = fromUtf8(name);
    std::string best;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string candidate = platform::textOf(entry->path().filename());
        if (equalIgnoringCase(fromUtf8(candidate), wanted) && (best.empty() || candidate < best))
            best = candidate;
    }
    return best.empty() ? name : best;
}

bool isSpecial(const std::string& name) {
    return name.empty() || name == "." || name == "..";
}

std::string withSlashes(std::wstring_view path) {
    const bool drive =
        path.size() > 2 && path[1] == L':' && toUpper(path[0]) >= L'A' && toUpper(path[0]) <= L'Z';
    std::string slashed = toUtf8(drive && !platform::kPathsHaveDrives ? path.substr(2) : path);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    return slashed;
}

/// Neither NUL nor halves of surrogate pairs, which would become the name of another file.
bool canBeName(std::wstring_view path) {
    constexpr char32_t kFirstSurrogate = 0xD800;
    const auto isBelow = [](wchar_t c) { return c != L'\0' && static_cast<char32_t>(c) < kFirstSurrogate; };
    // Fast path: nearly all paths need no encoding for this check.
    if (std::all_of(path.begin(), path.end(), isBelow))
        return true;
    return path.find(L'\0') == std::wstring_view::npos && TextCodec().encode(path).has_value();
}

/// Removes trailing spaces and dots, which the platform does not store in names.
std::string withoutTrailingDots(const std::string& path) {
    const std::size_t length = path.find_last_not_of(" .") + 1;
    return length == 0 || path[length - 1] == '/' ? path : path.substr(0, length);
}

} // namespace

std::string systemPath(std::wstring_view path) {
    std::string slashed = withSlashes(path);
    if (!canBeName(path))
        return '\0' + slashed;
    // Where several names lead to a file, the stored one identifies it.
    if (slashed.empty() || (!platform::kNamesIgnoreCase && entryExists(platform::pathOf(slashed))))
        return slashed;
    fs::path found;
    for (const fs::path& component : platform::pathOf(withoutTrailingDots(slashed))) {
        const std::string name = platform::textOf(component);
        found /=
            platform::pathOf(component.has_root_path() || isSpecial(name) ? name : nameInFolder(found, name));
    }
    return platform::textOf(found);
}

std::wstring hostPath(std::string_view systemPath) {
    std::wstring path = fromUtf8(systemPath);
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}

} // namespace zuhost
