#include "module/frame/attach.h"

#include "module/frame/companions/string_res_lib.h"

namespace kovra {

HMODULE ResourceModule = nullptr;

namespace {

HMODULE ownModule = nullptr;
AFX_EXTENSION_MODULE extensionModule = {};

void attach(HINSTANCE instance) {
  ownModule = instance;
  ResourceModule = GetResourceModule();
  if (!extensionModule.bInitialized && AfxInitExtensionModule(extensionModule, instance)) {
    // The resource chain of the process owns it; AfxTermExtensionModule deletes it.
    new CDynLinkLibrary(extensionModule);
  }
  InitAcUiDLL();
}

void detach() {
  if (!extensionModule.bInitialized) return;
  AfxTermExtensionModule(extensionModule);
  extensionModule.bInitialized = FALSE;
}

}  // namespace

HMODULE OwnModule() {
  return ownModule;
}

}  // namespace kovra

extern "C" BOOL APIENTRY DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) kovra::attach(instance);
  if (reason == DLL_PROCESS_DETACH) kovra::detach();
  return TRUE;
}
