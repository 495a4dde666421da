#include "zuhost/platform/libraries.h"

#include <dlfcn.h>

#include <filesystem>

namespace zuhost::platform {

void* openLibrary(const std::string& path) {
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void closeLibrary(void* library) {
    dlclose(library);
}

void* findSymbol(void* library, const char* name) {
    return dlsym(library, name);
}

std::vector<std::string> libraryNames(const std::string& stem) {
    return {stem + ".so", "lib" + stem + ".so"};
}

std::string moduleStem(const std::string& file) {
    const std::string stem = file.substr(0, file.find(".so"));
    return stem.starts_with("lib") ? stem.substr(3) : stem;
}

std::string fileOfAddress(const void* address) {
    Dl_info info{};
    return dladdr(address, &info) != 0 && info.dli_fname != nullptr ? info.dli_fname : std::string();
}

void* handleOfLibrary(void* /*library*/) {
    return nullptr;
}

void* handleOfAddress(const void* /*address*/) {
    return nullptr;
}

std::string programFile() {
    std::error_code unknown;
    return std::filesystem::read_symlink("/proc/self/exe", unknown).string();
}

} // namespace zuhost::platform
