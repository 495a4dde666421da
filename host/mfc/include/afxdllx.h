#pragma once

#include "afx.h"

#include <zuhost/platform/export.h>

/// State of a shared library that extends the framework.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized = FALSE;
    HMODULE hModule = nullptr;
    HMODULE hResource = nullptr;
};

/// Initialises the state for a module; returns FALSE for a null module.
ZUHOST_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
/// Removes the module from the resource chain and resets the state.
ZUHOST_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

/// A module in the chain that is searched for resources. Owned by the chain: deleted by
/// AfxTermExtensionModule, or at the end of the host.
class ZUHOST_API CDynLinkLibrary {
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state);
    ~CDynLinkLibrary();
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

    HMODULE m_hModule;
    HMODULE m_hResource;
};

/// Returns the module whose resources are loaded by default; null for the program.
ZUHOST_API HINSTANCE AfxGetResourceHandle();
ZUHOST_API void AfxSetResourceHandle(HINSTANCE instance);
/// Returns the program.
ZUHOST_API HINSTANCE AfxGetInstanceHandle();
/// Returns the first module with the text: the current resource handle, then the chain; the current resource
/// handle when none has it.
ZUHOST_API HINSTANCE AfxFindStringResourceHandle(UINT id);

/// What the framework keeps for a module.
struct AFX_MODULE_STATE {
    HINSTANCE m_hCurrentInstanceHandle = nullptr;
    HINSTANCE m_hCurrentResourceHandle = nullptr;
};

namespace zuhost {

/// Returns the state of the module that contains the address; the program's when none does.
ZUHOST_API AFX_MODULE_STATE* moduleStateAt(const void* address);

/// Makes a module's resources the current ones for its lifetime.
class ResourceScope {
public:
    explicit ResourceScope(const AFX_MODULE_STATE* state) : previous_(AfxGetResourceHandle()) {
        if (state != nullptr)
            AfxSetResourceHandle(state->m_hCurrentResourceHandle);
    }
    ~ResourceScope() { AfxSetResourceHandle(previous_); }
    ResourceScope(const ResourceScope&) = delete;
    ResourceScope& operator=(const ResourceScope&) = delete;

private:
    HINSTANCE previous_;
};

} // namespace zuhost

/// Returns the state of the module that calls it.
[[maybe_unused]] static inline AFX_MODULE_STATE* AfxGetStaticModuleState() {
    static const char anchor = 0;
    return zuhost::moduleStateAt(&anchor);
}

/// Makes a module's resources the current ones up to the end of the block.
#define AFX_MANAGE_STATE(state) const zuhost::ResourceScope zuResources(state);
