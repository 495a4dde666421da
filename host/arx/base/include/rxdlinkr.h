#pragma once

#include "rxclass.h"
#include "zuhost/service.h"

#include <zuhost/platform/export.h>

/// Loads and unloads application modules.
///
/// A module is a shared library with an `acrxEntryPoint`. Loading runs its attach function, then its entry
/// point with kInitAppMsg; unloading sends kUnloadAppMsg, then runs its detach function. Both messages carry
/// a packet that identifies the application to the members below.
class ZUHOST_API AcRxDynamicLinker : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);

    /// Loads a module; does nothing when it is loaded already. "X.arx" and "X.dll" also stand for X.so and
    /// libX.so; a name without a folder is searched for in the current folder, the program's and the host's.
    /// False when there is no such module, it has no entry point, or its entry point returned kRetError; with
    /// `print` the reason is printed on the command line.
    virtual bool loadModule(const ACHAR* file, bool print, bool asCommand = false);
    /// False for a module that is not loaded or is locked.
    virtual bool unloadModule(const ACHAR* file, bool asCommand = false);

    /// An application is locked, and can't be unloaded, until it unlocks itself, usually on kInitAppMsg.
    /// False for an unknown application.
    virtual bool unlockApplication(void* application) const;
    virtual bool lockApplication(void* application) const;
    [[nodiscard]] virtual bool isApplicationLocked(const ACHAR* name) const;

    /// An application that supports several open drawings registers on kInitAppMsg. False for an unknown
    /// application.
    virtual bool registerAppMDIAware(void* application) const;
    virtual bool registerAppNotMDIAware(void* application) const;
    [[nodiscard]] virtual bool isAppMDIAware(const ACHAR* name) const;
};

/// Returns true when the module is loaded; ignores the name's folder and extension.
[[nodiscard]] ZUHOST_API bool acrxAppIsLoaded(const ACHAR* file);

namespace zuhost {
ZUHOST_API AcRxDynamicLinker& dynamicLinker();
}

inline constexpr zuhost::Service<AcRxDynamicLinker, zuhost::dynamicLinker> acrxDynamicLinker;
