#include "platform/mfc/frame.h"

#include "platform/mfc/extension_module.h"
#include "platform/win/resources/icons.h"
#include "platform/win/resources/resources.h"

HICON CWinApp::LoadIcon(UINT id) const {
  const LPCWSTR name = MAKEINTRESOURCEW(id);
  const auto type = static_cast<UINT>(kovra::win::ResourceType::groupIcon);
  return ::LoadIconW(AfxFindResourceHandle(name, type), name);
}

CWinApp* AfxGetApp() {
  static CWinApp program;
  return &program;
}
