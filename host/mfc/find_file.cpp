#include <windows.h>

#include "zuhost/character.h"
#include "zuhost/file_times.h"
#include "zuhost/paths.h"
#include "zuhost/system_error.h"
#include "zuhost/text_codec.h"

#include <zuhost/platform/paths.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace zuhost {

FILETIME fileTimeOf(std::filesystem::file_time_type time) {
    using Units = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
    constexpr std::int64_t kUnitsTo1970 = 116'444'736'000'000'000;
    const auto moment = std::chrono::file_clock::to_sys(time);
    const auto units = static_cast<std::uint64_t>(
        std::chrono::duration_cast<Units>(moment.time_since_epoch()).count() + kUnitsTo1970);
    return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32U)};
}

} // namespace zuhost

namespace {

namespace fs = std::filesystem;

/// The files of a search that are not yet returned.
struct Search {
    std::wstring folder; ///< In the platform's form, with the final separator; may be empty.
    std::vector<std::wstring> names;
    std::size_t at = 0;
};

/// "*" stands for any characters, "?" for one; ignores the case of ASCII letters. Goes back to the last "*"
/// only, so the time is limited by the product of the lengths.
bool matches(std::wstring_view name, std::wstring_view mask) {
    std::size_t n = 0;
    std::size_t m = 0;
    std::size_t star = std::wstring_view::npos;
    std::size_t resume = 0;
    while (n < name.size()) {
        if (m < mask.size() && mask[m] == L'*') {
            star = m++;
            resume = n;
        } else if (m < mask.size() &&
                   (mask[m] == L'?' || zuhost::toLower(mask[m]) == zuhost::toLower(name[n]))) {
            ++m;
            ++n;
        } else if (star != std::wstring_view::npos) {
            m = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    return mask.find_first_not_of(L'*', m) == std::wstring_view::npos;
}

std::vector<std::wstring> namesIn(const std::string& folder, std::wstring_view mask, std::error_code& error) {
    std::vector<std::wstring> names;
    for (fs::directory_iterator entry(zuhost::platform::pathOf(folder), error), end; !error && entry != end;
         entry.increment(error))
        names.push_back(zuhost::fromUtf8(zuhost::platform::textOf(entry->path().filename())));
    std::sort(names.begin(), names.end());
    names.insert(names.begin(), {L".", L".."});
    std::erase_if(
        names, [mask](const std::wstring& name) { return name.size() >= MAX_PATH || !matches(name, mask); });
    return names;
}

WIN32_FIND_DATAW dataOf(const Search& search, const std::wstring& name) {
    WIN32_FIND_DATAW data{};
    const std::wstring path = search.folder + name;
    const fs::path file = zuhost::platform::pathOf(zuhost::systemPath(path));
    std::error_code error;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    // A link whose file is missing is a file of its own.
    data.dwFileAttributes = attributes != INVALID_FILE_ATTRIBUTES ? attributes : FILE_ATTRIBUTE_NORMAL;
    if (const std::uintmax_t size = fs::file_size(file, error); !error) {
        data.nFileSizeLow = static_cast<DWORD>(size);
        data.nFileSizeHigh = static_cast<DWORD>(size >> 32U);
    }
    if (const fs::file_time_type time = fs::last_write_time(file, error); !error)
        data.ftCreationTime = data.ftLastAccessTime = data.ftLastWriteTime = zuhost::fileTimeOf(time);
    name.copy(data.cFileName, MAX_PATH - 1);
    return data;
}

/// The searches that are not closed: handles of others are refused.
class OpenSearches {
public:
    static OpenSearches& instance() {
        static OpenSearches searches;
        return searches;
    }
    HANDLE add(std::unique_ptr<Search> search) {
        const std::lock_guard lock(mutex_);
        Search* const key = search.get();
        searches_.emplace(key, std::move(search));
        return key;
    }
    /// Null when there is no such search.
    Search* find(HANDLE handle) {
        const std::lock_guard lock(mutex_);
        const auto found = searches_.find(handle);
        return found != searches_.end() ? found->second.get() : nullptr;
    }
    bool close(HANDLE handle) {
        const std::lock_guard lock(mutex_);
        return searches_.erase(handle) != 0;
    }

private:
    std::mutex mutex_;
    std::unordered_map<HANDLE, std::unique_ptr<Search>> searches_;
};

HANDLE failed(int systemError) {
    SetLastError(zuhost::lastErrorOf(systemError));
    return INVALID_HANDLE_VALUE;
}

} // namespace

HANDLE FindFirstFileW(const wchar_t* path, WIN32_FIND_DATAW* found) {
    if (path == nullptr || found == nullptr)
        return failed(EINVAL);
    const std::wstring_view text(path);
    const std::size_t nameStart = text.find_last_of(L"\\/") + 1;
    std::wstring_view mask = text.substr(nameStart);
    if (mask.empty())
        return failed(ENOENT);
    if (mask == L"*.*")
        mask = L"*";
    auto search = std::make_unique<Search>();
    search->folder = text.substr(0, nameStart);
    const std::string folder = zuhost::systemPath(search->folder);
    if (!folder.empty() && folder.front() == '\0')
        return failed(EINVAL);
    std::error_code error;
    search->names = namesIn(folder.empty() ? "." : folder, mask, error);
    if (error)
        return failed(error.value() == ENOENT ? ENOTDIR : error.value());
    if (search->names.empty())
        return failed(ENOENT);
    *found = dataOf(*search, search->names[search->at++]);
    return OpenSearches::instance().add(std::move(search));
}

BOOL FindNextFileW(HANDLE handle, WIN32_FIND_DATAW* found) {
    Search* const search = OpenSearches::instance().find(handle);
    if (search == nullptr || found == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (search->at == search->names.size()) {
        SetLastError(ERROR_NO_MORE_FILES);
        return FALSE;
    }
    *found = dataOf(*search, search->names[search->at++]);
    return TRUE;
}

BOOL FindClose(HANDLE handle) {
    if (OpenSearches::instance().close(handle))
        return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}

LONG CompareFileTime(const FILETIME* left, const FILETIME* right) {
    const auto units = [](const FILETIME& time) {
        return std::uint64_t{time.dwHighDateTime} << 32U | time.dwLowDateTime;
    };
    const std::uint64_t a = units(*left);
    const std::uint64_t b = units(*right);
    return a < b ? -1 : (a > b ? 1 : 0);
}
