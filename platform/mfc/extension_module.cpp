#include "platform/mfc/extension_module.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "platform/win/resources/resources.h"

namespace {

HINSTANCE resourceHandle = nullptr;

/// The linked extension libraries, the newest first.
std::vector<CDynLinkLibrary*>& chain() {
  static std::vector<CDynLinkLibrary*> libraries;
  return libraries;
}

HINSTANCE firstWith(const std::function<bool(HINSTANCE)>& has) {
  if (has(resourceHandle)) return resourceHandle;
  for (const CDynLinkLibrary* library : chain()) {
    if (has(library->m_hResource)) return library->m_hResource;
  }
  return resourceHandle;
}

}  // namespace

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state)
    : m_hModule(state.hModule), m_hResource(state.hResource) {
  chain().insert(chain().begin(), this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
  std::erase(chain(), this);
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module) {
  if (state.bInitialized) return TRUE;
  state.bInitialized = TRUE;
  state.hModule = module;
  state.hResource = module;
  return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL /*all*/) {
  if (!state.bInitialized) return;
  const std::vector<CDynLinkLibrary*> linked = chain();
  for (CDynLinkLibrary* library : linked) {
    if (library->m_hModule == state.hModule) delete library;
  }
}

HINSTANCE AfxGetResourceHandle() {
  return resourceHandle;
}
void AfxSetResourceHandle(HINSTANCE module) {
  resourceHandle = module;
}

HINSTANCE AfxFindResourceHandle(LPCWSTR name, UINT type) {
  const auto id = static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(name));
  return firstWith([=](HINSTANCE module) {
    return !kovra::win::findResource(module, static_cast<kovra::win::ResourceType>(type), id)
                .empty();
  });
}

HINSTANCE AfxFindStringHandle(UINT id) {
  std::wstring text;
  return firstWith([&](HINSTANCE module) { return kovra::win::findString(module, id, text); });
}

int AfxLoadString(UINT id, LPWSTR buffer, UINT capacity) {
  return LoadStringW(AfxFindStringHandle(id), id, buffer, static_cast<int>(capacity));
}
