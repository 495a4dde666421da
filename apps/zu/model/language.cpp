#include "model/language.h"

#include <zucomn/frame.h>
#include <zuhost/language.h>

#include <string>

namespace zu::app {

namespace {

constexpr LANGID kEnglish = 0x0409;
constexpr LANGID kJapanese = 0x0411;

/// The module of a language, which the library looks for in the folder named by the language id beside
/// itself; null when there is none.
class LanguageModule {
public:
    explicit LanguageModule(LANGID id) {
        std::wstring path(32768, L'\0');
        path.resize(GetModuleFileNameW(ZuComn_GetResource(), path.data(), static_cast<DWORD>(path.size())));
        path.resize(path.rfind(L'\\') + 1);
        module_ = LoadLibraryW((path + std::to_wstring(id) + L"\\ZuComn.dll").c_str());
    }
    ~LanguageModule() {
        if (module_ != nullptr)
            FreeLibrary(module_);
    }
    LanguageModule(const LanguageModule&) = delete;
    LanguageModule& operator=(const LanguageModule&) = delete;

    [[nodiscard]] HMODULE get() const { return module_; }

private:
    HMODULE module_ = nullptr;
};

} // namespace

void chooseLanguage() {
    const LANGID id = GetUserDefaultUILanguage();
    const bool hasTexts = id == kJapanese || (id != 0 && LanguageModule(id).get() != nullptr);
    if (zuhost::environmentNamesLanguage() && !hasTexts)
        zuhost::setUserLanguage(kEnglish);
}

std::wstring programText(unsigned id) {
    CString text;
    if (!zuhost::environmentNamesLanguage()) {
        const LanguageModule english(kEnglish);
        if (english.get() != nullptr && ZuComn_LoadString(english.get(), id, text) > 0)
            return std::wstring(text.view());
    }
    ZuComn_LoadString(ZuComn_GetResource(), id, text);
    return std::wstring(text.view());
}

} // namespace zu::app
