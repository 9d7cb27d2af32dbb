#pragma once

#include "platform/mfc/cstring.h"
#include "platform/mfc/object.h"
#include "platform/mfc/rectangles.h"
#include "platform/win/resources/loader.h"
#include "platform/win/windows/window_api.h"

/// Marks handlers in class declarations.
#define afx_msg

/// Declares a class's message map (message_map.h has the rows).
#define DECLARE_MESSAGE_MAP()                   \
 protected:                                     \
  static const AFX_MSGMAP* GetThisMessageMap(); \
  const AFX_MSGMAP* GetMessageMap() const override;

class CCmdTarget;
class CDataExchange;
class CWnd;

/// A message as its handler in a message map gets it.
struct AFX_MESSAGE {
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  UINT id;       ///< of a command or notification
  bool handled;  ///< a handler clears it to let the message go on
};

using AFX_HANDLER = LRESULT (*)(CCmdTarget* target, AFX_MESSAGE& message);

/// A row of a message map: what it takes, and the function that unpacks it for the handler.
struct AFX_MSGMAP_ENTRY {
  UINT nMessage;
  UINT nCode;
  UINT nID;
  UINT nLastID;
  AFX_HANDLER handler;  ///< null ends the map
};

struct AFX_MSGMAP {
  const AFX_MSGMAP* (*baseMap)();
  const AFX_MSGMAP_ENTRY* entries;
};

/// Something with a message map.
class CCmdTarget : public CObject {
  DECLARE_DYNAMIC(CCmdTarget)
 public:
  /// Looks a command or notification up in the map; false when nobody handled it.
  virtual BOOL OnCmdMsg(UINT id, int code, AFX_MESSAGE& message);

 protected:
  static const AFX_MSGMAP* GetThisMessageMap();
  virtual const AFX_MSGMAP* GetMessageMap() const { return GetThisMessageMap(); }
  /// Runs the handler of the first row that fits, from the class's own map down to its bases'.
  bool dispatchFromMap(UINT code, AFX_MESSAGE& message, LRESULT& result);
};

/// A window of the platform's classes. The object and the window are tied by Attach, Create or
/// SubclassWindow; the window's end unties them and calls PostNcDestroy, where objects made with
/// new delete themselves.
class CWnd : public CCmdTarget {
  DECLARE_DYNAMIC(CWnd)
 public:
  CWnd() = default;
  ~CWnd() override;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  HWND m_hWnd = nullptr;
  HWND GetSafeHwnd() const { return m_hWnd; }
  operator HWND() const { return m_hWnd; }

  // Ties between objects and windows.
  /// The object of a window; one for the time being when it has none of its own. Null for null.
  static CWnd* FromHandle(HWND window);
  static CWnd* FromHandlePermanent(HWND window);
  BOOL Attach(HWND window);
  HWND Detach();
  BOOL SubclassWindow(HWND window);
  BOOL SubclassDlgItem(UINT id, CWnd* parent);
  HWND UnsubclassWindow();

  virtual BOOL Create(LPCWSTR className, LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent,
                      UINT id, void* context = nullptr);
  BOOL CreateEx(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, const RECT& rect,
                CWnd* parent, UINT id, LPVOID parameter = nullptr);
  virtual BOOL DestroyWindow();

  // Messages.
  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return ::SendMessageW(m_hWnd, message, wParam, lParam);
  }
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return ::PostMessageW(m_hWnd, message, wParam, lParam);
  }
  virtual BOOL PreTranslateMessage(MSG* message);
  static const MSG* GetCurrentMessage();

  // Text, state, place.
  void SetWindowText(LPCWSTR text) { ::SetWindowTextW(m_hWnd, text); }
  void GetWindowText(CString& text) const;
  int GetWindowText(LPWSTR buffer, int capacity) const {
    return ::GetWindowTextW(m_hWnd, buffer, capacity);
  }
  int GetWindowTextLength() const { return ::GetWindowTextLengthW(m_hWnd); }
  BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
  BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
  BOOL ShowWindow(int command) { return ::ShowWindow(m_hWnd, command); }
  BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
  BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
  DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }
  DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)); }
  BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);
  void GetWindowRect(LPRECT rect) const { ::GetWindowRect(m_hWnd, rect); }
  void GetClientRect(LPRECT rect) const { ::GetClientRect(m_hWnd, rect); }
  void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE) {
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
  }
  void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
  BOOL SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags) {
    return ::SetWindowPos(m_hWnd, after != nullptr ? after->m_hWnd : nullptr, x, y, width, height,
                          flags);
  }
  /// In the middle of its owner, as far as the screen allows.
  void CenterWindow();
  void ScreenToClient(LPPOINT point) const { ::ScreenToClient(m_hWnd, point); }
  void ScreenToClient(LPRECT rect) const;
  void ClientToScreen(LPPOINT point) const { ::ClientToScreen(m_hWnd, point); }
  void ClientToScreen(LPRECT rect) const;
  void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, erase); }
  void InvalidateRect(LPCRECT rect, BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, rect, erase); }
  void UpdateWindow() { ::UpdateWindow(m_hWnd); }
  BOOL RedrawWindow(LPCRECT rect = nullptr, HANDLE region = nullptr, UINT flags = 0) {
    return ::RedrawWindow(m_hWnd, rect, region, flags);
  }
  HFONT GetFont() const { return reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)); }
  void SetFont(HFONT font) { SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font)); }

  // Relations.
  CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
  CWnd* GetWindow(UINT relation) const { return FromHandle(::GetWindow(m_hWnd, relation)); }
  CWnd* GetNextWindow(UINT relation = GW_HWNDNEXT) const { return GetWindow(relation); }
  CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }
  int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
  BOOL IsChild(const CWnd* window) const {
    return window != nullptr ? ::IsChild(m_hWnd, window->m_hWnd) : FALSE;
  }
  CWnd* GetNextDlgTabItem(CWnd* control, BOOL previous = FALSE) const;

  // Focus.
  CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
  static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
  CWnd* SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
  static CWnd* GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
  CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }

  // Controls by their id.
  void SetDlgItemText(int id, LPCWSTR text) { ::SetDlgItemTextW(m_hWnd, id, text); }
  int GetDlgItemText(int id, CString& text) const;
  int GetDlgItemText(int id, LPWSTR buffer, int capacity) const {
    return static_cast<int>(::GetDlgItemTextW(m_hWnd, id, buffer, capacity));
  }
  void SetDlgItemInt(int id, UINT value, BOOL isSigned = TRUE) {
    ::SetDlgItemInt(m_hWnd, id, value, isSigned);
  }
  UINT GetDlgItemInt(int id, BOOL* translated = nullptr, BOOL isSigned = TRUE) const {
    return ::GetDlgItemInt(m_hWnd, id, translated, isSigned);
  }
  void CheckDlgButton(int id, UINT state) { ::CheckDlgButton(m_hWnd, id, state); }
  UINT IsDlgButtonChecked(int id) const { return ::IsDlgButtonChecked(m_hWnd, id); }
  void CheckRadioButton(int first, int last, int checked) {
    ::CheckRadioButton(m_hWnd, first, last, checked);
  }
  LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return ::SendDlgItemMessageW(m_hWnd, id, message, wParam, lParam);
  }

  int MessageBox(LPCWSTR text, LPCWSTR caption = nullptr, UINT style = MB_OK) const;

  /// Moves the data between the controls and the fields that DoDataExchange binds; false when an
  /// entry was refused.
  BOOL UpdateData(BOOL saveAndValidate = TRUE);

 protected:
  friend LRESULT AfxCallWndProc(CWnd* window, HWND handle, UINT message, WPARAM wParam,
                                LPARAM lParam);
  static const AFX_MSGMAP* GetThisMessageMap();
  const AFX_MSGMAP* GetMessageMap() const override { return GetThisMessageMap(); }

  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
  virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  virtual void PreSubclassWindow() {}
  virtual void PostNcDestroy() {}
  virtual void DoDataExchange(CDataExchange* /*exchange*/) {}
  /// The message being handled, in the way of the window's class.
  LRESULT Default();

  // Handlers of window messages; a class's own handler calls them for the usual treatment.
  int OnCreate(LPCREATESTRUCT /*create*/) { return static_cast<int>(Default()); }
  void OnDestroy() { Default(); }
  void OnClose() { Default(); }
  void OnMove(int /*x*/, int /*y*/) { Default(); }
  void OnSize(UINT /*type*/, int /*width*/, int /*height*/) { Default(); }
  void OnShowWindow(BOOL /*show*/, UINT /*status*/) { Default(); }
  void OnEnable(BOOL /*enable*/) { Default(); }
  void OnActivate(UINT /*state*/, CWnd* /*other*/, BOOL /*minimized*/) { Default(); }
  void OnSetFocus(CWnd* /*old*/) { Default(); }
  void OnKillFocus(CWnd* /*next*/) { Default(); }
  void OnPaint() { Default(); }
  void OnSysCommand(UINT /*command*/, LPARAM /*lParam*/) { Default(); }
  void OnGetMinMaxInfo(MINMAXINFO* /*limits*/) { Default(); }
  LRESULT OnNcHitTest(CPoint /*point*/) { return Default(); }
  void OnMouseMove(UINT /*flags*/, CPoint /*point*/) { Default(); }
  void OnLButtonDown(UINT /*flags*/, CPoint /*point*/) { Default(); }
  void OnLButtonUp(UINT /*flags*/, CPoint /*point*/) { Default(); }
  void OnLButtonDblClk(UINT /*flags*/, CPoint /*point*/) { Default(); }
  void OnMouseHover(UINT /*flags*/, CPoint /*point*/) { Default(); }
  void OnMouseLeave() { Default(); }
  void OnKeyDown(UINT /*key*/, UINT /*repeats*/, UINT /*flags*/) { Default(); }
  void OnChar(UINT /*character*/, UINT /*repeats*/, UINT /*flags*/) { Default(); }
  void OnTimer(UINT_PTR /*id*/) { Default(); }
  /// Passes the drawing of a control on to its object.
  void OnDrawItem(int id, LPDRAWITEMSTRUCT item);

 private:
  bool tie(HWND window);
  void untie();
  LRESULT lastMessage(WPARAM wParam, LPARAM lParam);

  WNDPROC superProcedure_ = nullptr;
  bool temporary_ = false;
  kovra::win::ModuleUse moduleUse_;

  friend class CDialog;
  friend struct WndTies;
};

/// The program's main window.
CWnd* AfxGetMainWnd();
