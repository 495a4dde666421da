#include "module_state.h"

#include <zucomn/export.h>

#include <acui.h>
#include <afxdllx.h>
#include <rxdlinkr.h>

namespace {

HINSTANCE instance = nullptr;
AFX_EXTENSION_MODULE extension;

void attach(HINSTANCE module) {
    instance = module;
    if (extension.bInitialized || !AfxInitExtensionModule(extension, module))
        return;
    // Owned by the resource chain.
    new CDynLinkLibrary(extension);
    InitAcUiDLL();
}

void detach() {
    if (!extension.bInitialized)
        return;
    AfxTermExtensionModule(extension);
    extension.bInitialized = FALSE;
}

} // namespace

HINSTANCE zu::moduleInstance() {
    return instance;
}

extern "C" int DllMain(HINSTANCE module, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH)
        attach(module);
    else if (reason == DLL_PROCESS_DETACH)
        detach();
    return TRUE;
}

extern "C" ZUCOMN_API AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    if (message == AcRx::kInitAppMsg) {
        acrxDynamicLinker->unlockApplication(packet);
        acrxDynamicLinker->registerAppMDIAware(packet);
    } else if (message == AcRx::kUnloadAppMsg) {
        zu::freeLanguageModule();
    }
    return AcRx::kRetOK;
}
