#include "afxdllx.h"

#include "modules.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

struct ResourceState {
    HINSTANCE current = nullptr;
    std::vector<CDynLinkLibrary*> chain; ///< Searched from the last one added.
};

ResourceState& state() {
    static ResourceState resources;
    return resources;
}

/// Returns null when the text is missing or empty.
const std::wstring* textOf(HINSTANCE instance, UINT id) {
    const zuhost::Module* const module = zuhost::moduleOf(instance);
    const std::wstring* const text = module != nullptr ? module->strings.find(id) : nullptr;
    return text != nullptr && !text->empty() ? text : nullptr;
}

} // namespace

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& extension, HMODULE module) {
    if (module == nullptr)
        return FALSE;
    extension = {TRUE, module, module};
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& extension, BOOL /*all*/) {
    const std::vector<CDynLinkLibrary*> chain = state().chain;
    for (CDynLinkLibrary* library : chain)
        if (library->m_hModule == extension.hModule)
            std::unique_ptr<CDynLinkLibrary>(library).reset();
    if (state().current == extension.hResource)
        state().current = nullptr;
    extension = {};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& extension)
    : m_hModule(extension.hModule), m_hResource(extension.hResource) {
    state().chain.push_back(this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
    std::erase(state().chain, this);
}

HINSTANCE AfxGetResourceHandle() {
    return state().current;
}

void AfxSetResourceHandle(HINSTANCE instance) {
    state().current = instance;
}

HINSTANCE AfxGetInstanceHandle() {
    return nullptr;
}

HINSTANCE AfxFindStringResourceHandle(UINT id) {
    const ResourceState& resources = state();
    if (textOf(resources.current, id) != nullptr)
        return resources.current;
    const auto found =
        std::find_if(resources.chain.rbegin(), resources.chain.rend(), [id](const CDynLinkLibrary* library) {
            return textOf(library->m_hResource, id) != nullptr;
        });
    return found != resources.chain.rend() ? (*found)->m_hResource : resources.current;
}

BOOL CString::LoadString(UINT id) {
    return LoadString(AfxFindStringResourceHandle(id), id);
}

BOOL CString::LoadString(HINSTANCE instance, UINT id) {
    const std::wstring* text = textOf(instance, id);
    if (text == nullptr)
        return FALSE;
    text_ = zuhost::SharedText(*text);
    return TRUE;
}
