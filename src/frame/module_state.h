#pragma once

#include <windows.h>

namespace zu {

/// Returns the library's own module; null before it is attached.
[[nodiscard]] HINSTANCE moduleInstance();

/// Frees the language module, if any; texts then come from the library itself.
void freeLanguageModule();

/// Sets the framework's resource handle to ZuComn_GetResource() and restores it at the end of a scope.
class ResourceScope {
public:
    ResourceScope();
    ~ResourceScope();
    ResourceScope(const ResourceScope&) = delete;
    ResourceScope& operator=(const ResourceScope&) = delete;

private:
    HINSTANCE previous_;
};

} // namespace zu
