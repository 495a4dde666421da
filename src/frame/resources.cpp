#include "zucomn/frame.h"

#include "layer_names.h"
#include "module_state.h"
#include "user_language.h"

#include <acutads.h>
#include <afxdllx.h>

namespace {

constexpr LANGID kJapanese = 0x0411;

HINSTANCE languageModule = nullptr; ///< Null: the library's own texts.
LANGID language = 0;

CString languageModulePath(LANGID id) {
    wchar_t path[MAX_PATH];
    wchar_t drive[MAX_PATH];
    wchar_t folder[MAX_PATH];
    wchar_t name[MAX_PATH];
    GetModuleFileNameW(zu::moduleInstance(), path, MAX_PATH);
    _wsplitpath(path, drive, folder, name, nullptr);
    CString modulePath;
    modulePath.Format(L"%s%s%d\\%s.dll", drive, folder, static_cast<int>(id), name);
    return modulePath;
}

void loadLanguageModule() {
    zu::freeLanguageModule();
    if (language == 0 || language == kJapanese)
        return;
    const CString path = languageModulePath(language);
    languageModule = LoadLibraryW(path);
    if (languageModule == nullptr)
        acutPrintf(L"Resource dll load failed.\n path = %s\n", path);
}

} // namespace

void zu::freeLanguageModule() {
    if (languageModule != nullptr)
        FreeLibrary(languageModule);
    languageModule = nullptr;
}

zu::ResourceScope::ResourceScope() : previous_(AfxGetResourceHandle()) {
    AfxSetResourceHandle(ZuComn_GetResource());
}

zu::ResourceScope::~ResourceScope() {
    AfxSetResourceHandle(previous_);
}

HINSTANCE ZuComn_GetResource() {
    return languageModule != nullptr ? languageModule : zu::moduleInstance();
}

void ZuComn_SetResource() {
    language = zu::userLanguage();
    loadLanguageModule();
    zu::reloadLayerNames();
}

int ZuComn_LoadString(HINSTANCE module, UINT id, CString& text) {
    text.Empty();
    const zu::ResourceScope scope;
    const HINSTANCE own = zu::moduleInstance();
    if (text.LoadString(module != nullptr ? module : own, id))
        return 1;
    // A text that a language module lacks is there in the built-in language.
    return module != nullptr && module == languageModule && text.LoadString(own, id) ? 1 : 0;
}

int ZuComn_LoadString(HINSTANCE module, UINT id, wchar_t* buffer, int length) {
    if (buffer == nullptr || length <= 0)
        return 0;
    buffer[0] = L'\0';
    const zu::ResourceScope scope;
    return LoadStringW(module, id, buffer, length);
}
