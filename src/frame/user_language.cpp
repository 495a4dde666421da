#include "user_language.h"

namespace zu {

namespace {

constexpr LANGID kUsEnglish = 1033;
constexpr LANGID kHongKong = 0x0C04;

LANGID registryLanguage() {
    wchar_t value[64] = {};
    LONG size = sizeof value;
    if (RegQueryValueW(HKEY_CURRENT_USER, L"Default\\Control Panel\\Desktop\\ResourceLocale", value, &size) !=
        0)
        return 0;
    return static_cast<LANGID>(_wtoi(value));
}

struct ResourceLanguages {
    int count = 0;
    LANGID last = 0;
};

BOOL collectLanguage(HMODULE /*module*/, const wchar_t* /*type*/, const wchar_t* /*name*/, WORD language,
                     LPARAM parameter) {
    // The interface passes the caller's pointer as a number.
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    auto& languages = *reinterpret_cast<ResourceLanguages*>(parameter);
    ++languages.count;
    languages.last = language;
    return TRUE;
}

bool isHongKongEdition() {
    const HMODULE library = LoadLibraryW(L"imm32.dll");
    if (library == nullptr)
        return false;
    using Release = BOOL (*)(HWND, void*);
    const auto release =
        reinterpret_cast<Release>(reinterpret_cast<void*>(GetProcAddress(library, "ImmReleaseContext")));
    const bool edition = release != nullptr && release(nullptr, nullptr) != FALSE;
    FreeLibrary(library);
    return edition;
}

/// Returns the language of a system library's resources, which is that of the system's edition.
LANGID systemLibraryLanguage() {
    const HMODULE library = LoadLibraryW(L"ntdll.dll");
    if (library == nullptr)
        return 0;
    ResourceLanguages languages;
    EnumResourceLanguagesW(library, RT_VERSION, L"#1", &collectLanguage,
                           reinterpret_cast<LPARAM>(&languages));
    FreeLibrary(library);
    if (languages.count < 1 || languages.count > 2)
        return 0;
    return languages.last == kUsEnglish && isHongKongEdition() ? kHongKong : languages.last;
}

LANGID platformLanguage(const OSVERSIONINFOW& version) {
    if (version.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS)
        return registryLanguage();
    return version.dwMajorVersion < 5 ? systemLibraryLanguage() : GetUserDefaultUILanguage();
}

} // namespace

LANGID userLanguage() {
    OSVERSIONINFOW version;
    version.dwOSVersionInfoSize = sizeof version;
    const LANGID id = GetVersionExW(&version) ? platformLanguage(version) : LANGID{0};
    return id != 0 ? id : GetUserDefaultLangID();
}

} // namespace zu
