#include "model/language.h"

#include <zucomn/frame.h>
#include <zuhost/language.h>

#include <string>

namespace zu::app {

namespace {

constexpr LANGID kEnglish = 0x0409;
constexpr LANGID kJapanese = 0x0411;

/// The library looks for the module of a language in the folder named by the language id beside itself.
bool hasModule(LANGID id) {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(ZuComn_GetResource(), path.data(), static_cast<DWORD>(path.size())));
    path.resize(path.rfind(L'\\') + 1);
    const HMODULE module = LoadLibraryW((path + std::to_wstring(id) + L"\\ZuComn.dll").c_str());
    if (module == nullptr)
        return false;
    FreeLibrary(module);
    return true;
}

} // namespace

void chooseLanguage() {
    const LANGID id = GetUserDefaultUILanguage();
    const bool hasTexts = id == kJapanese || (id != 0 && hasModule(id));
    if (zuhost::environmentNamesLanguage() && !hasTexts)
        zuhost::setUserLanguage(kEnglish);
}

} // namespace zu::app
