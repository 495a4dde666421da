#include "acutads.h"
#include "rxdlinkr.h"
#include "zuhost/search_folders.h"

#include <windows.h>

#include <algorithm>
#include <list>
#include <string>
#include <vector>

ACRX_CONS_DEFINE_MEMBERS(AcRxDynamicLinker, AcRxObject)

namespace {

using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void*);

struct Application {
    std::wstring name;
    HMODULE module = nullptr;
    EntryPoint entry = nullptr;
    bool locked = true;
    bool mdiAware = false;
};

std::list<Application>& applications() {
    // Never destroyed: modules may use it during process exit.
    static auto* const list = new std::list<Application>;
    return *list;
}

std::wstring_view fileName(std::wstring_view path) {
    const std::size_t separator = path.find_last_of(L"\\/");
    return separator == std::wstring_view::npos ? path : path.substr(separator + 1);
}

/// Returns the name that identifies a module: "DIR\\libX.so" -> "x".
std::wstring moduleName(std::wstring_view path) {
    std::wstring_view name = fileName(path);
    name = name.substr(0, name.rfind(L'.'));
    if (name.starts_with(L"lib"))
        name.remove_prefix(3);
    std::wstring folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(),
                   [](wchar_t c) { return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 32) : c; });
    return folded;
}

Application* findByName(const ACHAR* path) {
    const std::wstring name = moduleName(path != nullptr ? path : L"");
    const auto found = std::find_if(applications().begin(), applications().end(),
                                    [&](const Application& a) { return a.name == name; });
    return found == applications().end() ? nullptr : &*found;
}

Application* findByPacket(const void* packet) {
    const auto found = std::find_if(applications().begin(), applications().end(),
                                    [packet](const Application& a) { return &a == packet; });
    return found == applications().end() ? nullptr : &*found;
}

void removeApplication(const Application& application) {
    applications().remove_if([&](const Application& a) { return &a == &application; });
}

HMODULE loadLibrary(const std::wstring& path) {
    std::vector<std::wstring> candidates{path};
    if (fileName(path) == path) {
        candidates = zuhost::searchFolders();
        for (std::wstring& candidate : candidates)
            candidate += path;
    }
    for (const std::wstring& candidate : candidates)
        if (const HMODULE module = LoadLibraryW(candidate.c_str()))
            return module;
    return nullptr;
}

bool start(Application& application) {
    application.entry = reinterpret_cast<EntryPoint>(
        reinterpret_cast<void*>(GetProcAddress(application.module, "acrxEntryPoint")));
    return application.entry != nullptr &&
           application.entry(AcRx::kInitAppMsg, &application) != AcRx::kRetError;
}

bool fail(const ACHAR* file, bool print, const wchar_t* reason) {
    if (print)
        acutPrintf(L"%s: %s\n", file != nullptr ? file : L"", reason);
    return false;
}

bool setFlag(const void* packet, bool Application::*flag, bool value) {
    Application* const application = findByPacket(packet);
    if (application != nullptr)
        application->*flag = value;
    return application != nullptr;
}

} // namespace

AcRxDynamicLinker& zuhost::dynamicLinker() {
    static auto* const linker = new AcRxDynamicLinker;
    return *linker;
}

bool AcRxDynamicLinker::loadModule(const ACHAR* file, bool print, bool /*asCommand*/) {
    if (findByName(file) != nullptr)
        return true;
    const HMODULE module = file != nullptr ? loadLibrary(file) : nullptr;
    if (module == nullptr)
        return fail(file, print, L"the module was not found or could not be loaded");
    Application& application = applications().emplace_back();
    application.name = moduleName(file);
    application.module = module;
    if (start(application))
        return true;
    const bool isApplication = application.entry != nullptr;
    removeApplication(application);
    FreeLibrary(module);
    return fail(file, print,
                isApplication ? L"the module's entry point returned an error"
                              : L"not an application module: no entry point");
}

bool AcRxDynamicLinker::unloadModule(const ACHAR* file, bool /*asCommand*/) {
    Application* const application = findByName(file);
    if (application == nullptr || application->locked)
        return false;
    application->entry(AcRx::kUnloadAppMsg, application);
    const HMODULE module = application->module;
    removeApplication(*application);
    FreeLibrary(module);
    return true;
}

bool AcRxDynamicLinker::unlockApplication(void* application) const {
    return setFlag(application, &Application::locked, false);
}

bool AcRxDynamicLinker::lockApplication(void* application) const {
    return setFlag(application, &Application::locked, true);
}

bool AcRxDynamicLinker::isApplicationLocked(const ACHAR* name) const {
    const Application* const application = findByName(name);
    return application != nullptr && application->locked;
}

bool AcRxDynamicLinker::registerAppMDIAware(void* application) const {
    return setFlag(application, &Application::mdiAware, true);
}

bool AcRxDynamicLinker::registerAppNotMDIAware(void* application) const {
    return setFlag(application, &Application::mdiAware, false);
}

bool AcRxDynamicLinker::isAppMDIAware(const ACHAR* name) const {
    const Application* const application = findByName(name);
    return application != nullptr && application->mdiAware;
}

bool acrxAppIsLoaded(const ACHAR* file) {
    return findByName(file) != nullptr;
}
