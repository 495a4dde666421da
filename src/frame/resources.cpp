#include <zucomn/frame.h>

#include "layer_names.h"
#include "library_text.h"
#include "module_state.h"
#include "state/library_state.h"
#include "user_language.h"

#include <acutads.h>
#include <afxdllx.h>

#include <algorithm>
#include <string>

namespace {

constexpr LANGID kJapanese = 0x0411;

/// Grows the buffer as needed: paths may exceed MAX_PATH.
std::wstring ownPath() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(zu::moduleInstance(), path.data(),
                                        static_cast<DWORD>(path.size()))) == path.size())
        path.resize(path.size() * 2);
    path.resize(length);
    return path;
}

CString languageModulePath(LANGID id) {
    const std::wstring own = ownPath();
    const std::size_t nameAt = own.rfind(L'\\') + 1;
    const std::wstring folder = own.substr(0, nameAt);
    std::wstring name = own.substr(nameAt);
    name.resize(std::min(name.rfind(L'.'), name.size()));
    CString path;
    path.Format(L"%s%d\\%s.dll", folder.c_str(), static_cast<int>(id), name.c_str());
    return path;
}

void loadLanguageModule() {
    zu::freeLanguageModule();
    if (zu::state().language == 0 || zu::state().language == kJapanese)
        return;
    const CString path = languageModulePath(zu::state().language);
    zu::state().languageModule = LoadLibraryW(path);
    if (zu::state().languageModule == nullptr)
        acutPrintf(L"Resource dll load failed.\n path = %s\n", path);
}

} // namespace

void zu::freeLanguageModule() {
    if (zu::state().languageModule != nullptr)
        FreeLibrary(zu::state().languageModule);
    zu::state().languageModule = nullptr;
}

zu::ResourceScope::ResourceScope() : previous_(AfxGetResourceHandle()) {
    AfxSetResourceHandle(ZuComn_GetResource());
}

zu::ResourceScope::~ResourceScope() {
    AfxSetResourceHandle(previous_);
}

CString zu::libraryText(unsigned id) {
    CString text;
    if (ZuComn_LoadString(ZuComn_GetResource(), id, text) == 0)
        ZuComn_LoadString(nullptr, id, text);
    return text;
}

HINSTANCE ZuComn_GetResource() {
    return zu::state().languageModule != nullptr ? zu::state().languageModule : zu::moduleInstance();
}

LANGID ZuComn_GetResourceLanguage() {
    return zu::state().language;
}

void ZuComn_SetResource() {
    zu::state().language = zu::userLanguage();
    loadLanguageModule();
    zu::reloadLayerNames();
}

int ZuComn_LoadString(HINSTANCE module, UINT id, CString& text) {
    text.Empty();
    const zu::ResourceScope scope;
    return text.LoadString(module != nullptr ? module : zu::moduleInstance(), id) ? 1 : 0;
}

int ZuComn_LoadString(HINSTANCE module, UINT id, wchar_t* buffer, int length) {
    if (buffer == nullptr || length <= 0)
        return 0;
    buffer[0] = L'\0';
    const zu::ResourceScope scope;
    return LoadStringW(module, id, buffer, length);
}
