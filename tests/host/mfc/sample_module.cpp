// A module that records its attach and detach in the environment.
#include "environment.h"

#include <afxdllx.h>

#include <string>

namespace {

AFX_EXTENSION_MODULE extension;
/// Must be constructed before attach and destroyed after detach.
const std::string kGreeting = "a text too long for the small buffer of a string";

} // namespace

extern "C" int DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        AfxInitExtensionModule(extension, instance);
        new CDynLinkLibrary(extension); // owned by the chain
        setVariable("ZU_SAMPLE_MODULE", kGreeting.c_str());
    } else {
        AfxTermExtensionModule(extension);
        setVariable("ZU_SAMPLE_MODULE", nullptr);
    }
    return TRUE;
}

extern "C" AFX_EXT_API int sampleAnswer() {
    return 42;
}
