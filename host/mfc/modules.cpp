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

std::list<HINSTANCE__>& modules() {
    // Never destroyed: modules may be unloaded, and removed from the list, after the host's static
    // destructors.
    static auto* const list = new std::list<HINSTANCE__>;
    return *list;
}

HINSTANCE findByPath(const std::string& path) {
    for (HINSTANCE__& module : modules())
        if (module.path == path)
            return &module;
    return nullptr;
}

void removeModule(HINSTANCE module) {
    modules().remove_if([module](const HINSTANCE__& m) { return &m == module; });
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

HINSTANCE add(const std::string& path) {
    HINSTANCE__& module = modules().emplace_back();
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

HINSTANCE loadTexts(const std::string& path) {
    const auto bytes = zuhost::readWholeFile(path);
    if (std::holds_alternative<int>(bytes))
        return nullptr;
    const HINSTANCE module = add(path);
    module->strings = zuhost::StringTable::parse(std::get<std::string>(bytes));
    return module;
}

HINSTANCE loadLibrary(const std::string& path) {
    void* library = platform::openLibrary(path);
    if (library == nullptr)
        return nullptr;
    HINSTANCE module = findByPath(path);
    if (module == nullptr)
        module = add(path);
    module->library = library;
    return module;
}

HINSTANCE load(const std::string& path) {
    if (const HINSTANCE known = findByPath(path);
        known != nullptr && known->library == nullptr && !known->declared)
        return known;
    return path.ends_with(".strings") ? loadTexts(path) : loadLibrary(path);
}

HINSTANCE program() {
    static const HINSTANCE module = [] {
        const std::string path = canonical(platform::programFile());
        const HINSTANCE added = add(path);
        added->name = nameOf(platform::pathOf(path)) + (path.ends_with(".exe") ? "" : ".exe");
        return added;
    }();
    return module;
}

} // namespace

namespace zuhost {

AFX_MODULE_STATE* moduleStateAt(const void* address) {
    const HINSTANCE found = findByPath(canonical(platform::fileOfAddress(address)));
    const HINSTANCE module = found != nullptr ? found : program();
    module->state = {module, module};
    return &module->state;
}

ModuleRegistration::ModuleRegistration(const ModuleDeclaration& declaration) {
    const std::string path = canonical(platform::fileOfAddress(declaration.anchor));
    // Module objects that are linked into the program form a module with its own name in the program's file.
    const bool inProgram = path == canonical(platform::programFile());
    const HINSTANCE known = inProgram ? nullptr : findByPath(path);
    instance_ = known != nullptr ? known : add(path);
    instance_->declared = true;
    instance_->entry = declaration.entry;
    if (inProgram && declaration.name != nullptr)
        instance_->name = std::string(declaration.name) + ".dll";
    if (declaration.strings != nullptr)
        instance_->strings = StringTable::parse(declaration.strings);
    if (instance_->entry != nullptr)
        instance_->entry(instance_, DLL_PROCESS_ATTACH, nullptr);
}

ModuleRegistration::~ModuleRegistration() {
    if (instance_->entry != nullptr)
        instance_->entry(instance_, DLL_PROCESS_DETACH, nullptr);
    removeModule(instance_);
}

} // namespace zuhost

HMODULE LoadLibraryW(const wchar_t* path) {
    const std::string file = moduleFile(path != nullptr ? path : L"");
    const HINSTANCE module = file.empty() ? nullptr : load(file);
    if (module == nullptr) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    ++module->loads;
    return module;
}

BOOL FreeLibrary(HMODULE module) {
    const auto known = std::find_if(modules().begin(), modules().end(),
                                    [module](const HINSTANCE__& m) { return &m == module && m.loads > 0; });
    if (known == modules().end()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    --known->loads;
    void* const library = known->library;
    if (library == nullptr && known->loads == 0)
        removeModule(module);
    else if (library != nullptr)
        // The last one destroys the ModuleRegistration, which removes the module from the list.
        zuhost::platform::closeLibrary(library);
    return TRUE;
}

void* GetProcAddress(HMODULE module, const char* name) {
    void* const library = module != nullptr ? module->library : nullptr;
    return library != nullptr ? zuhost::platform::findSymbol(library, name) : nullptr;
}

HMODULE GetModuleHandleW(const wchar_t* name) {
    if (name == nullptr)
        return program();
    const std::string path = moduleFile(name);
    const std::wstring file = std::wstring(name).substr(std::wstring_view(name).find_last_of(L"\\/") + 1);
    const std::wstring full = file.find(L'.') == std::wstring::npos ? file + L".dll" : file;
    for (HINSTANCE__& module : modules())
        if ((!path.empty() && module.path == path) ||
            (file == name && _wcsicmp(zuhost::fromUtf8(module.name).c_str(), full.c_str()) == 0))
            return &module;
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
}

DWORD GetModuleFileNameW(HMODULE module, wchar_t* buffer, DWORD size) {
    if (size == 0)
        return 0;
    if (module == nullptr)
        module = program();
    const std::wstring path = zuhost::hostPath(
        platform::textOf(platform::pathOf(module->path).parent_path() / platform::pathOf(module->name)));
    const std::size_t count = std::min<std::size_t>(path.size(), size - 1);
    std::copy_n(path.begin(), count, buffer);
    buffer[count] = L'\0';
    return static_cast<DWORD>(path.size() < size ? count : size);
}

int LoadStringW(HINSTANCE instance, UINT id, wchar_t* buffer, int size) {
    if (size <= 0)
        return 0;
    buffer[0] = L'\0';
    const std::wstring* text = (instance != nullptr ? instance : program())->strings.find(id);
    if (text == nullptr)
        return 0;
    const std::size_t count = std::min(text->size(), static_cast<std::size_t>(size) - 1);
    std::copy_n(text->begin(), count, buffer);
    buffer[count] = L'\0';
    return static_cast<int>(count);
}
