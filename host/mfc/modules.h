#pragma once

#include "afxdllx.h"
#include "zuhost/string_table.h"

#include <string>

/// A loaded module; an HINSTANCE points to it.
struct HINSTANCE__ {
    std::string path;        ///< The file's path in the system's form.
    std::string name;        ///< File name in the platform's form: "ZuComn.dll".
    void* library = nullptr; ///< From openLibrary; null for the program and for modules of texts only.
    int (*entry)(HINSTANCE, DWORD, void*) = nullptr;
    zuhost::StringTable strings;
    int loads = 0;         ///< Calls of LoadLibraryW without a FreeLibrary.
    bool declared = false; ///< Registered by ModuleRegistration.
    AFX_MODULE_STATE state;
};
