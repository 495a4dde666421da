#include <windows.h>

#include "zuhost/atomic_file.h"
#include "zuhost/paths.h"
#include "zuhost/profile.h"
#include "zuhost/system_error.h"

#include <algorithm>
#include <cerrno>

using zuhost::Profile;

namespace {

std::wstring_view orEmpty(const wchar_t* text) {
    return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

std::wstring_view withoutQuotes(std::wstring_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == L'"' || value.front() == L'\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

DWORD copyText(std::wstring_view text, wchar_t* buffer, DWORD size) {
    if (buffer == nullptr || size == 0)
        return 0;
    const std::size_t count = std::min<std::size_t>(text.size(), size - 1);
    std::copy_n(text.begin(), count, buffer);
    buffer[count] = L'\0';
    return static_cast<DWORD>(count);
}

DWORD copyFallback(const wchar_t* fallback, wchar_t* buffer, DWORD size) {
    std::wstring_view text = orEmpty(fallback);
    while (text.size() > 1 && text.back() == L' ')
        text.remove_suffix(1);
    return copyText(withoutQuotes(text), buffer, size);
}

/// Copies names separated by NUL, with another NUL at the end. Truncates what does not fit, with two final
/// NULs.
DWORD copyNames(const std::vector<std::wstring>& names, wchar_t* buffer, DWORD size) {
    if (buffer == nullptr || size < 2)
        return copyText({}, buffer, size);
    std::wstring all;
    for (const std::wstring& name : names)
        all.append(name).push_back(L'\0');
    const std::size_t count = std::min<std::size_t>(all.size(), all.size() + 1 > size ? size - 2 : size - 1);
    std::copy_n(all.begin(), count, buffer);
    std::fill_n(buffer + count, count + 1 < size && count < all.size() ? 2 : 1, L'\0');
    return static_cast<DWORD>(count);
}

/// Returns the reason why no profile can have the name; 0 when there is none.
int nameError(const wchar_t* file) {
    if (orEmpty(file).empty())
        return EACCES;
    return orEmpty(file).find_first_of(L"\"*<>?|") == std::wstring_view::npos ? 0 : EINVAL;
}

int readProfile(const std::string& path, Profile& profile) {
    const auto bytes = zuhost::readWholeFile(path);
    if (const int* error = std::get_if<int>(&bytes))
        return *error;
    profile = Profile(std::get<std::string>(bytes));
    return 0;
}

} // namespace

DWORD GetPrivateProfileStringW(const wchar_t* section, const wchar_t* key, const wchar_t* fallback,
                               wchar_t* buffer, DWORD size, const wchar_t* file) {
    Profile profile;
    const std::string path = zuhost::systemPath(orEmpty(file));
    int error = nameError(file);
    if (error == 0)
        error = readProfile(path, profile);
    SetLastError(zuhost::lastErrorOf(error == ENOENT ? zuhost::missingFileError(path) : error));
    if (section == nullptr)
        return copyNames(profile.sections(), buffer, size);
    if (key == nullptr) {
        const std::vector<std::wstring> names = profile.keys(section);
        return names.empty() || size <= 2 ? copyFallback(fallback, buffer, size)
                                          : copyNames(names, buffer, size);
    }
    const auto value = profile.value(section, key);
    return value ? copyText(withoutQuotes(*value), buffer, size) : copyFallback(fallback, buffer, size);
}

UINT GetPrivateProfileIntW(const wchar_t* section, const wchar_t* key, int fallback, const wchar_t* file) {
    wchar_t buffer[64];
    if (GetPrivateProfileStringW(section, key, L"", buffer, 64, file) == 0)
        return static_cast<UINT>(fallback);
    std::wstring_view text(buffer);
    const std::size_t first = text.find_first_not_of(L" \t");
    text.remove_prefix(std::min(first, text.size()));
    const bool negative = text.starts_with(L'-');
    if (negative || text.starts_with(L'+'))
        text.remove_prefix(1);
    const bool hexadecimal = text.starts_with(L"0x") || text.starts_with(L"0X");
    if (hexadecimal)
        text.remove_prefix(2);
    UINT value = 0;
    for (const wchar_t c : text) {
        UINT digit = 16;
        if (c >= L'0' && c <= L'9')
            digit = static_cast<UINT>(c - L'0');
        else if (hexadecimal && c >= L'a' && c <= L'f')
            digit = static_cast<UINT>(c - L'a') + 10;
        else if (hexadecimal && c >= L'A' && c <= L'F')
            digit = static_cast<UINT>(c - L'A') + 10;
        if (digit >= (hexadecimal ? 16U : 10U))
            break;
        value = value * (hexadecimal ? 16U : 10U) + digit;
    }
    return negative ? 0U - value : value;
}

DWORD GetPrivateProfileSectionNamesW(wchar_t* buffer, DWORD size, const wchar_t* file) {
    return GetPrivateProfileStringW(nullptr, nullptr, nullptr, buffer, size, file);
}

BOOL WritePrivateProfileStringW(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                                const wchar_t* file) {
    const std::string path = zuhost::systemPath(orEmpty(file));
    Profile profile;
    int error = nameError(file);
    if (error == 0)
        error = readProfile(path, profile);
    const bool isNew = error == ENOENT;
    if (isNew)
        error = zuhost::missingFileError(path) == ENOENT ? 0 : ENOTDIR;
    const bool removes = key == nullptr || value == nullptr;
    if (error == 0 && section == nullptr)
        error = removes && isNew ? 0 : ENOENT;
    if (error == 0 && key == nullptr)
        profile.removeSection(orEmpty(section));
    else if (error == 0 && value == nullptr)
        profile.remove(section, key);
    else if (error == 0 && !profile.set(section, key, value))
        error = EILSEQ;
    if (error == 0 && !(removes && isNew))
        error = zuhost::replaceFile(path, profile.bytes());
    SetLastError(zuhost::lastErrorOf(error));
    return error == 0 ? TRUE : FALSE;
}
