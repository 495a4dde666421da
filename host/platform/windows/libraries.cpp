#include "zuhost/platform/libraries.h"

#include "system_call.h"

namespace zuhost::platform {

namespace {

std::string fileOfModule(HMODULE module) {
    std::wstring name(MAX_PATH, L'\0');
    while (true) {
        const DWORD length = GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            return portablePath(name);
        }
        name.resize(name.size() * 2);
    }
}

} // namespace

void* openLibrary(const std::string& path) {
    return LoadLibraryExW(systemName(path).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

void closeLibrary(void* library) {
    FreeLibrary(static_cast<HMODULE>(library));
}

void* findSymbol(void* library, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

std::vector<std::string> libraryNames(const std::string& stem) {
    return {stem + ".dll", stem + ".arx", "lib" + stem + ".dll"};
}

std::string moduleStem(const std::string& file) {
    const std::string stem = file.substr(0, file.rfind('.'));
    return stem.starts_with("lib") ? stem.substr(3) : stem;
}

std::string fileOfAddress(const void* address) {
    const auto module = static_cast<HMODULE>(handleOfAddress(address));
    return module != nullptr ? fileOfModule(module) : std::string();
}

void* handleOfLibrary(void* library) {
    return library;
}

void* handleOfAddress(const void* address) {
    if (address == nullptr)
        return GetModuleHandleW(nullptr);
    constexpr DWORD kByAddress =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE module = nullptr;
    return GetModuleHandleExW(kByAddress, static_cast<const wchar_t*>(address), &module) != FALSE ? module
                                                                                                  : nullptr;
}

std::string programFile() {
    return fileOfModule(nullptr);
}

} // namespace zuhost::platform
