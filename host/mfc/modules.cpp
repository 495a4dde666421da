#include "modules.h"

#include "zuhost/atomic_file.h"
#include "zuhost/module.h"
#include "zuhost/paths.h"
#include "zuhost/text_codec.h"

#include <zuhost/platform/libraries.h>
#include <zuhost/platform/paths.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <list>

namespace {

namespace fs = std::filesystem;
namespace platform = zuhost::platform;

using zuhost::Module;

std::list<Module>& modules() {
    // Never destroyed: modules may be unloaded, and removed from the list, after the host's static
    // destructors.
    static auto* const list = new std::list<Module>;
    return *list;
}

template <typename Predicate>
Module* find(Predicate predicate) {
    const auto found = std::find_if(modules().begin(), modules().end(), predicate);
    return found != modules().end() ? &*found : nullptr;
}

Module* findByPath(const std::string& path) {
    return find([&](const Module& module) { return module.path == path; });
}

void removeModule(HINSTANCE handle) {
    modules().remove_if([handle](const Module& module) { return module.handle == handle; });
}

std::string canonical(const std::string& path) {
    std::error_code error;
    const fs::path real = fs::canonical(platform::pathOf(path), error);
    return error ? path : platform::textOf(real);
}

std::string nameOf(const fs::path& path) {
    return platform::textOf(path.filename());
}

/// Returns "ZuComn.dll" for "libZuComn.so.1.0.0" and "ZuComn.strings".
std::string hostName(const std::string& file) {
    std::string stem = platform::moduleStem(file);
    if (const std::size_t texts = stem.rfind(".strings"); texts != std::string::npos)
        stem.resize(texts);
    return stem + ".dll";
}

/// Records a module with the system's handle; null where the system has none for it.
Module* add(const std::string& path, void* systemHandle) {
    Module& module = modules().emplace_back();
    module.handle = static_cast<HINSTANCE>(systemHandle != nullptr ? systemHandle : &module);
    module.path = path;
    module.name = hostName(nameOf(platform::pathOf(path)));
    return &module;
}

/// Returns the file of a module by its path in the platform's form; empty when there is none.
std::string moduleFile(const std::wstring& path) {
    const fs::path given = platform::pathOf(zuhost::systemPath(path));
    const std::string stem = platform::textOf(given.stem());
    std::vector<std::string> names = platform::libraryNames(stem);
    names.insert(names.begin(), nameOf(given));
    names.push_back(stem + ".strings");
    for (const std::string& name : names) {
        const std::string candidate = zuhost::systemPath(
            zuhost::hostPath(platform::textOf(given.parent_path() / platform::pathOf(name))));
        std::error_code error;
        if (fs::is_regular_file(platform::pathOf(candidate), error))
            return canonical(candidate);
    }
    return {};
}

Module* loadTexts(const std::string& path) {
    const auto bytes = zuhost::readWholeFile(path);
    if (std::holds_alternative<int>(bytes))
        return nullptr;
    Module* const module = add(path, nullptr);
    module->strings = zuhost::StringTable::parse(std::get<std::string>(bytes));
    return module;
}

Module* loadLibrary(const std::string& path) {
    void* library = platform::openLibrary(path);
    if (library == nullptr)
        return nullptr;
    Module* module = findByPath(path);
    if (module == nullptr)
        module = add(path, platform::handleOfLibrary(library));
    module->library = library;
    return module;
}

Module* load(const std::string& path) {
    if (Module* const known = findByPath(path);
        known != nullptr && known->library == nullptr && !known->declared)
        return known;
    return path.ends_with(".strings") ? loadTexts(path) : loadLibrary(path);
}

Module* program() {
    static Module* const module = [] {
        const std::string path = canonical(platform::programFile());
        Module* const added = add(path, platform::handleOfAddress(nullptr));
        added->name = nameOf(platform::pathOf(path)) + (path.ends_with(".exe") ? "" : ".exe");
        return added;
    }();
    return module;
}

} // namespace

namespace zuhost {

Module* moduleOf(HINSTANCE handle) {
    return find([handle](const Module& module) { return module.handle == handle; });
}

AFX_MODULE_STATE* moduleStateAt(const void* address) {
    Module* const found = findByPath(canonical(platform::fileOfAddress(address)));
    Module* const module = found != nullptr ? found : program();
    module->state = {module->handle, module->handle};
    return &module->state;
}

ModuleRegistration::ModuleRegistration(const ModuleDeclaration& declaration) {
    const std::string path = canonical(platform::fileOfAddress(declaration.anchor));
    // Module objects that are linked into the program form a module with its own name in the program's file.
    const bool inProgram = path == canonical(platform::programFile());
    Module* module = inProgram ? nullptr : findByPath(path);
    if (module == nullptr)
        module = add(path, inProgram ? nullptr : platform::handleOfAddress(declaration.anchor));
    instance_ = module->handle;
    module->declared = true;
    module->entry = declaration.entry;
    if (inProgram && declaration.name != nullptr)
        module->name = std::string(declaration.name) + ".dll";
    if (declaration.strings != nullptr)
        module->strings = StringTable::parse(declaration.strings);
    if (module->entry != nullptr)
        module->entry(instance_, DLL_PROCESS_ATTACH, nullptr);
}

ModuleRegistration::~ModuleRegistration() {
    const Module* const module = moduleOf(instance_);
    if (module != nullptr && module->entry != nullptr)
        module->entry(instance_, DLL_PROCESS_DETACH, nullptr);
    removeModule(instance_);
}

} // namespace zuhost

HMODULE LoadLibraryW(const wchar_t* path) {
    const std::string file = moduleFile(path != nullptr ? path : L"");
    Module* const module = file.empty() ? nullptr : load(file);
    if (module == nullptr) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    ++module->loads;
    return module->handle;
}

BOOL FreeLibrary(HMODULE module) {
    Module* const known = zuhost::moduleOf(module);
    if (known == nullptr || known->loads == 0) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    --known->loads;
    // The library's last use destroys its ModuleRegistration, which removes the module from the list.
    const bool remove = known->loads == 0 && !known->declared;
    if (known->library != nullptr)
        platform::closeLibrary(known->library);
    if (remove)
        removeModule(module);
    return TRUE;
}

// The address of a function on one system, of an object on another.
auto GetProcAddress(HMODULE module, const char* name) -> decltype(GetProcAddress(module, name)) {
    const Module* const known = zuhost::moduleOf(module);
    void* const library = known != nullptr ? known->library : nullptr;
    void* const found = library != nullptr ? platform::findSymbol(library, name) : nullptr;
    return reinterpret_cast<decltype(GetProcAddress(module, name))>(found);
}

HMODULE GetModuleHandleW(const wchar_t* name) {
    if (name == nullptr)
        return program()->handle;
    const std::string path = moduleFile(name);
    const std::wstring file = std::wstring(name).substr(std::wstring_view(name).find_last_of(L"\\/") + 1);
    const std::wstring full = file.find(L'.') == std::wstring::npos ? file + L".dll" : file;
    const Module* const known = find([&](const Module& module) {
        return (!path.empty() && module.path == path) ||
               (file == name && _wcsicmp(zuhost::fromUtf8(module.name).c_str(), full.c_str()) == 0);
    });
    if (known == nullptr)
        SetLastError(ERROR_MOD_NOT_FOUND);
    return known != nullptr ? known->handle : nullptr;
}

DWORD GetModuleFileNameW(HMODULE module, wchar_t* buffer, DWORD size) {
    if (size == 0)
        return 0;
    const Module* const known = module != nullptr ? zuhost::moduleOf(module) : program();
    if (known == nullptr) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return 0;
    }
    const std::wstring path = zuhost::hostPath(
        platform::textOf(platform::pathOf(known->path).parent_path() / platform::pathOf(known->name)));
    const std::size_t count = std::min<std::size_t>(path.size(), size - 1);
    std::copy_n(path.begin(), count, buffer);
    buffer[count] = L'\0';
    return static_cast<DWORD>(path.size() < size ? count : size);
}

int LoadStringW(HINSTANCE instance, UINT id, wchar_t* buffer, int size) {
    if (size <= 0)
        return 0;
    buffer[0] = L'\0';
    const Module* const module = instance != nullptr ? zuhost::moduleOf(instance) : program();
    const std::wstring* const text = module != nullptr ? module->strings.find(id) : nullptr;
    if (text == nullptr)
        return 0;
    const std::size_t count = std::min(text->size(), static_cast<std::size_t>(size) - 1);
    std::copy_n(text->begin(), count, buffer);
    buffer[count] = L'\0';
    return static_cast<int>(count);
}
