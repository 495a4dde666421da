#pragma once

#include "windows.h"
#include "zuhost/string_table.h"

#include <string>

/// A loaded module: what an HINSTANCE points to.
struct HINSTANCE__ {
    std::string path;        ///< Of the file, as the system knows it.
    std::string name;        ///< Host-shaped: "ZuComn.dll".
    void* library = nullptr; ///< Of dlopen; null for the program and for modules of texts only.
    int (*entry)(HINSTANCE, DWORD, void*) = nullptr;
    zuhost::StringTable strings;
    int loads = 0;         ///< How often LoadLibraryW gave it out.
    bool declared = false; ///< Told us of itself when it was loaded.
};
