#pragma once

#include "rxclass.h"
#include "zuhost/service.h"

/// Loads application modules and keeps track of them.
///
/// A module is a shared library with an `acrxEntryPoint`. Loading runs its attach, then its entry point with
/// kInitAppMsg; unloading sends kUnloadAppMsg and runs its detach. The packet that comes with both messages
/// names the application to the members below.
class AcRxDynamicLinker : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);

    /// Loads a module. "X.arx" and "X.dll" stand for X.arx, X.so or libX.so in the folder given; a bare name
    /// is also looked for beside the program and beside the host. True when it is loaded already. False when
    /// there is no such module, it has no entry point, or its entry point returned kRetError; with `print`
    /// the reason is told on the command line.
    virtual bool loadModule(const ACHAR* file, bool print, bool asCommand = false);
    /// False for a module that is not loaded or that is locked.
    virtual bool unloadModule(const ACHAR* file, bool asCommand = false);

    /// An application is locked until it unlocks itself in its kInitAppMsg. False for an unknown application.
    virtual bool unlockApplication(void* application) const;
    virtual bool lockApplication(void* application) const;
    [[nodiscard]] virtual bool isApplicationLocked(const ACHAR* name) const;

    /// An application that works with several open drawings says so in its kInitAppMsg.
    virtual bool registerAppMDIAware(void* application) const;
    virtual bool registerAppNotMDIAware(void* application) const;
    [[nodiscard]] virtual bool isAppMDIAware(const ACHAR* name) const;

    /// True when the module of that name (folder and ending don't count) is loaded.
    [[nodiscard]] bool isModuleLoaded(const ACHAR* file) const;
};

namespace zuhost {
AcRxDynamicLinker& dynamicLinker();
}

inline constexpr zuhost::Service<AcRxDynamicLinker, zuhost::dynamicLinker> acrxDynamicLinker;
