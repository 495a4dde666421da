#include "model/language.h"

#include <zucomn/frame.h>
#include <zuhost/language.h>
#include <zuhost/texts.h>

#include <string>

namespace zu::app {

/// The library looks for the module of a language in the folder named by the language id beside itself.
LanguageModule::LanguageModule(LANGID id) {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(ZuComn_GetResource(), path.data(), static_cast<DWORD>(path.size())));
    path.resize(path.rfind(L'\\') + 1);
    module_ = LoadLibraryW((path + std::to_wstring(id) + L"\\ZuComn.dll").c_str());
}

LanguageModule::~LanguageModule() {
    if (module_ != nullptr)
        FreeLibrary(module_);
}

void chooseLanguage() {
    const LANGID id = GetUserDefaultUILanguage();
    const bool hasTexts = id == kJapanese || (id != 0 && LanguageModule(id).get() != nullptr);
    if (!zuhost::environmentNamesLanguage() || !hasTexts)
        zuhost::setUserLanguage(kEnglish);
}

std::wstring programText(unsigned id) {
    CString text;
    if (ZuComn_LoadString(ZuComn_GetResource(), id, text) == 0)
        ZuComn_LoadString(nullptr, id, text); // a language module may lack texts
    return std::wstring(zuhost::viewOf(text));
}

} // namespace zu::app
