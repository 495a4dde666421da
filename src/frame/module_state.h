#pragma once

#include <windows.h>

namespace zu {

/// The library's own module, known from its attach on.
[[nodiscard]] HINSTANCE moduleInstance();

/// Frees the language module when there is one; texts then come from the library itself.
void freeLanguageModule();

/// Makes the module that texts come from the framework's current one for a scope.
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
