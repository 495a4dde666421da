#pragma once

#include "rxdlinkr.h"

// Shorthands for the dynamic linker's members.

inline bool acrxLoadModule(const ACHAR* file, bool print, bool asCommand = false) {
    return acrxDynamicLinker->loadModule(file, print, asCommand);
}
inline bool acrxUnloadModule(const ACHAR* file, bool asCommand = false) {
    return acrxDynamicLinker->unloadModule(file, asCommand);
}
inline bool acrxUnlockApplication(void* application) {
    return acrxDynamicLinker->unlockApplication(application);
}
inline bool acrxRegisterAppMDIAware(void* application) {
    return acrxDynamicLinker->registerAppMDIAware(application);
}
