#pragma once

#include "platform/mfc/object.h"
#include "platform/win/base/windows_types.h"

/// State of an extension library, filled by AfxInitExtensionModule. Zero it before that.
struct AFX_EXTENSION_MODULE {
  BOOL bInitialized = FALSE;
  HMODULE hModule = nullptr;
  HMODULE hResource = nullptr;
};

/// Links an extension library into the process's resource chain for as long as it exists. Created
/// with new after AfxInitExtensionModule; AfxTermExtensionModule deletes it.
class CDynLinkLibrary : public CObject {
 public:
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state);
  ~CDynLinkLibrary() override;
  CDynLinkLibrary(const CDynLinkLibrary&) = delete;
  CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

  HMODULE m_hModule;
  HMODULE m_hResource;
};

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
/// Deletes what the library linked into the chain.
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

/// The module in which dialogs and strings are looked for first.
HINSTANCE AfxGetResourceHandle();
void AfxSetResourceHandle(HINSTANCE module);
/// The module of the resource chain that has the resource: the current handle, then the extension
/// libraries, the newest first; the current handle if none has it. `type` is one of the RT_
/// numbers.
HINSTANCE AfxFindResourceHandle(LPCWSTR name, UINT type);

/// The same for a string of the string tables.
HINSTANCE AfxFindStringHandle(UINT id);

/// The string of the first module of the chain that has it, into a buffer as LoadStringW.
int AfxLoadString(UINT id, LPWSTR buffer, UINT capacity = 256);
