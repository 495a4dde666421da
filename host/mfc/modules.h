#pragma once

#include "afxdllx.h"
#include "zuhost/string_table.h"

#include <string>

namespace zuhost {

/// What the host keeps of a loaded module.
struct Module {
    HINSTANCE handle = nullptr; ///< The system's handle of the library; else the address of this record.
    std::string path;           ///< The file's path in the system's form.
    std::string name;           ///< File name in the platform's form: "ZuComn.dll".
    void* library = nullptr;    ///< From openLibrary; null for the program and for modules of texts only.
    int (*entry)(HINSTANCE, DWORD, void*) = nullptr;
    StringTable strings;
    int loads = 0;         ///< Calls of LoadLibraryW without a FreeLibrary.
    bool declared = false; ///< Registered by ModuleRegistration.
    AFX_MODULE_STATE state;
};

/// Returns the module with the handle; null when none has it.
Module* moduleOf(HINSTANCE handle);

} // namespace zuhost
