#pragma once

#include "platform/mfc/wnd.h"

/// The main window's classes.
class CFrameWnd : public CWnd {};
class CMDIFrameWnd : public CFrameWnd {};
class CView : public CWnd {};

/// The running program.
class CWinApp {
 public:
  /// An icon of the resource chain; null if there is none.
  HICON LoadIcon(UINT id) const;
};
CWinApp* AfxGetApp();
