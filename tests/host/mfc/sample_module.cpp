// A module that records its attach and detach in the environment.
#include <afxdllx.h>

#include <cstdlib>
#include <string>

namespace {

AFX_EXTENSION_MODULE extension;
/// Must be constructed before attach and destroyed after detach.
const std::string kGreeting = "a text too long for the small buffer of a string";

} // namespace

extern "C" __attribute__((visibility("hidden"))) int DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        AfxInitExtensionModule(extension, instance);
        new CDynLinkLibrary(extension); // owned by the chain
        setenv("ZU_SAMPLE_MODULE", kGreeting.c_str(), 1);
    } else {
        AfxTermExtensionModule(extension);
        unsetenv("ZU_SAMPLE_MODULE");
    }
    return TRUE;
}

extern "C" __attribute__((visibility("default"))) int sampleAnswer() {
    return 42;
}
