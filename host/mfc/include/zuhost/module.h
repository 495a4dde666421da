#pragma once

#include <windows.h>
#include <zuhost/platform/export.h>

namespace zuhost {

/// A module's DllMain.
using ModuleEntry = int (*)(HINSTANCE instance, DWORD reason, void* reserved);

/// Describes a shared library to the host when it is loaded; cmake/ZuModule.cmake generates the code that
/// registers it.
struct ModuleDeclaration {
    const void* anchor = nullptr;  ///< An address within the module, which identifies its file.
    const char* name = nullptr;    ///< The module's name, used when the anchor lies in a program that the
                                   ///< module's objects are linked into.
    ModuleEntry entry = nullptr;   ///< Null when the module has none.
    const char* strings = nullptr; ///< The built-in string table as UTF-8 text; null when it has none.
};

/// Registers the declared module for its lifetime and runs its attach and detach.
class ZUHOST_API ModuleRegistration {
public:
    explicit ModuleRegistration(const ModuleDeclaration& declaration);
    ~ModuleRegistration();
    ModuleRegistration(const ModuleRegistration&) = delete;
    ModuleRegistration& operator=(const ModuleRegistration&) = delete;

private:
    HINSTANCE instance_;
};

} // namespace zuhost
