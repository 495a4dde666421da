// A test module, which prints each event of its life on the command line.
#include <accmd.h>
#include <acutads.h>
#include <rxregsvc.h>
#include <windows.h>

extern "C" int DllMain(HINSTANCE, DWORD reason, void*);
extern "C" __attribute__((visibility("default"))) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*);

int DllMain(HINSTANCE /*instance*/, DWORD reason, void* /*reserved*/) {
    acutPrintf(reason == DLL_PROCESS_ATTACH ? L"attach " : L"detach ");
    return 1;
}

namespace {

void command() {
    acutPrintf(L"command ");
}

} // namespace

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    if (message == AcRx::kInitAppMsg) {
        acutPrintf(L"init ");
#ifdef ZU_MODULE_REFUSES
        return AcRx::kRetError;
#endif
#ifndef ZU_MODULE_STAYS_LOCKED
        acrxDynamicLinker->unlockApplication(packet);
#endif
        acrxDynamicLinker->registerAppMDIAware(packet);
        acedRegCmds->addCommand(L"TEST", L"ZU_TEST", L"ZU_試験", ACRX_CMD_MODAL, command);
    }
    if (message == AcRx::kUnloadAppMsg) {
        acutPrintf(L"unload ");
        acedRegCmds->removeGroup(L"TEST");
    }
    return AcRx::kRetOK;
}
