#pragma once

#include "afx.h"

/// State of a shared library that extends the framework.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized = FALSE;
    HMODULE hModule = nullptr;
    HMODULE hResource = nullptr;
};

/// Fills the state for a module; FALSE for a null module.
BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
/// Takes the module out of the resource chain and marks the state uninitialised.
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

/// A module in the chain in which resources are looked up. The chain owns it: it is deleted with
/// AfxTermExtensionModule, or when the host ends.
class CDynLinkLibrary {
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state);
    ~CDynLinkLibrary();
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

    [[nodiscard]] HMODULE resource() const { return resource_; }
    [[nodiscard]] HMODULE module() const { return module_; }

private:
    HMODULE module_;
    HMODULE resource_;
};

/// The module whose resources are loaded when none is named; null is the program.
HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE instance);
/// The program.
HINSTANCE AfxGetInstanceHandle();
/// The module of the chain, from the current resource handle on, that has the text; the current one when none
/// has.
HINSTANCE AfxFindStringResourceHandle(UINT id);
