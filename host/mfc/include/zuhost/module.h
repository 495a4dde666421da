#pragma once

#include "../windows.h"

namespace zuhost {

/// A module's DllMain.
using ModuleEntry = int (*)(HINSTANCE instance, DWORD reason, void* reserved);

/// What a shared library tells the host of itself when it is loaded; see cmake/ZuModule.cmake, which writes
/// the call.
struct ModuleDeclaration {
    const void* anchor = nullptr; ///< An address within the module, by which the host knows it.
    const char* name = nullptr;  ///< The module's name, used when the anchor lies in a program that holds the
                                 ///< module's objects.
    ModuleEntry entry = nullptr; ///< Null when the module has none.
    const char* strings = nullptr; ///< The built-in string table as UTF-8 text; null when it has none.
};

/// Makes the declared module known for its life and runs its attach and detach.
class ModuleRegistration {
public:
    explicit ModuleRegistration(const ModuleDeclaration& declaration);
    ~ModuleRegistration();
    ModuleRegistration(const ModuleRegistration&) = delete;
    ModuleRegistration& operator=(const ModuleRegistration&) = delete;

private:
    HINSTANCE instance_;
};

} // namespace zuhost
