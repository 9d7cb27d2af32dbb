#include "platform/mfc/wnd.h"

#include <utility>

#include "platform/mfc/data_exchange.h"
#include "platform/mfc/message_map.h"
#include "platform/mfc/wnd_ties.h"
#include "platform/win/dialogs/message_box.h"
#include "platform/win/windows/window.h"

namespace {

/// The message that is being handled, for Default().
MSG& currentMessage() {
  static MSG message{};
  return message;
}

/// Keeps the message in progress for the time of a scope.
class MessageScope {
 public:
  explicit MessageScope(const MSG& message) : outer_(std::exchange(currentMessage(), message)) {}
  ~MessageScope() { currentMessage() = outer_; }
  MessageScope(const MessageScope&) = delete;
  MessageScope& operator=(const MessageScope&) = delete;

 private:
  MSG outer_;
};

}  // namespace

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)
IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

LRESULT AfxCallWndProc(CWnd* window, HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  const MessageScope scope(MSG{handle, message, wParam, lParam, 0, {}});
  if (message == WM_NCDESTROY) return window->lastMessage(wParam, lParam);
  return window->WindowProc(message, wParam, lParam);
}

LRESULT AfxWndProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  CWnd* window = WndTies::permanent(handle);
  return window != nullptr ? AfxCallWndProc(window, handle, message, wParam, lParam)
                           : ::DefWindowProcW(handle, message, wParam, lParam);
}

CWnd::~CWnd() {
  if (m_hWnd == nullptr || temporary_) return;
  if (::IsWindow(m_hWnd)) ::DestroyWindow(m_hWnd);
  if (m_hWnd != nullptr) untie();
}

// Ties.

CWnd* CWnd::FromHandle(HWND window) {
  if (!::IsWindow(window)) return nullptr;
  CWnd* own = WndTies::permanent(window);
  return own != nullptr ? own : WndTies::temporary(window);
}

CWnd* CWnd::FromHandlePermanent(HWND window) {
  return WndTies::permanent(window);
}

BOOL CWnd::Attach(HWND window) {
  if (!::IsWindow(window)) return FALSE;
  m_hWnd = window;
  WndTies::add(window, this);
  moduleUse_ = kovra::win::ModuleUse(this, "window");
  return TRUE;
}

void CWnd::untie() {
  WndTies::remove(m_hWnd);
  m_hWnd = nullptr;
  superProcedure_ = nullptr;
  moduleUse_ = {};
}

HWND CWnd::Detach() {
  const HWND window = m_hWnd;
  if (window != nullptr) untie();
  return window;
}

bool CWnd::tie(HWND window) {
  if (!Attach(window)) return false;
  PreSubclassWindow();
  const auto own = reinterpret_cast<LONG_PTR>(&AfxWndProc);
  const LONG_PTR former = ::SetWindowLongPtrW(window, GWLP_WNDPROC, own);
  if (former != own) superProcedure_ = reinterpret_cast<WNDPROC>(former);
  return true;
}

BOOL CWnd::SubclassWindow(HWND window) {
  return tie(window) ? TRUE : FALSE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
  return SubclassWindow(::GetDlgItem(parent->m_hWnd, static_cast<int>(id)));
}

HWND CWnd::UnsubclassWindow() {
  ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(superProcedure_));
  return Detach();
}

BOOL CWnd::Create(LPCWSTR className, LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent,
                  UINT id, void* /*context*/) {
  return CreateEx(0, className, text, style | WS_CHILD, rect, parent, id);
}

BOOL CWnd::CreateEx(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, const RECT& rect,
                    CWnd* parent, UINT id, LPVOID parameter) {
  kovra::win::WindowSpec spec;
  spec.className = className != nullptr ? className : L"#32770";
  spec.text = text != nullptr ? text : L"";
  spec.style = style;
  spec.exStyle = exStyle;
  spec.place = rect;
  spec.parentOrOwner = parent != nullptr ? parent->m_hWnd : nullptr;
  spec.id = static_cast<int>(id);
  spec.parameter = parameter;
  return kovra::win::makeWindow(spec, [this](HWND window) { tie(window); }) != nullptr ? TRUE
                                                                                       : FALSE;
}

BOOL CWnd::DestroyWindow() {
  return m_hWnd != nullptr ? ::DestroyWindow(m_hWnd) : FALSE;
}

// Messages.

LRESULT CWnd::lastMessage(WPARAM wParam, LPARAM lParam) {
  const LRESULT result = WindowProc(WM_NCDESTROY, wParam, lParam);
  ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(superProcedure_));
  untie();
  PostNcDestroy();  // the object may delete itself here
  return result;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  LRESULT result = 0;
  if (OnWndMsg(message, wParam, lParam, &result)) return result;
  return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  return superProcedure_ != nullptr
             ? ::CallWindowProcW(superProcedure_, m_hWnd, message, wParam, lParam)
             : ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
  const MSG message = currentMessage();
  return DefWindowProc(message.message, message.wParam, message.lParam);
}

const MSG* CWnd::GetCurrentMessage() {
  return &currentMessage();
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message == WM_COMMAND) return OnCommand(wParam, lParam);
  if (message == WM_NOTIFY) return OnNotify(wParam, lParam, result);
  AFX_MESSAGE call{message, wParam, lParam, 0, true};
  return dispatchFromMap(0, call, *result) ? TRUE : FALSE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
  CWnd* control = FromHandlePermanent(reinterpret_cast<HWND>(lParam));
  LRESULT result = 0;
  if (control != nullptr && control->OnChildNotify(WM_COMMAND, wParam, lParam, &result)) {
    return TRUE;
  }
  AFX_MESSAGE call{WM_COMMAND, wParam, lParam, LOWORD(wParam), true};
  return OnCmdMsg(call.id, HIWORD(wParam), call);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
  const auto* header = reinterpret_cast<const NMHDR*>(lParam);
  CWnd* control = FromHandlePermanent(header->hwndFrom);
  if (control != nullptr && control->OnChildNotify(WM_NOTIFY, wParam, lParam, result)) return TRUE;
  AFX_MESSAGE call{WM_NOTIFY, wParam, lParam, static_cast<UINT>(header->idFrom), true};
  return dispatchFromMap(header->code, call, *result) ? TRUE : FALSE;
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message != WM_COMMAND && message != WM_NOTIFY) return FALSE;
  const UINT code =
      message == WM_COMMAND ? HIWORD(wParam) : reinterpret_cast<const NMHDR*>(lParam)->code;
  AFX_MESSAGE call{message + kovra::mfc::kReflected, wParam, lParam, 0, true};
  return dispatchFromMap(code, call, *result) ? TRUE : FALSE;
}

void CWnd::OnDrawItem(int /*id*/, LPDRAWITEMSTRUCT item) {
  CWnd* control = FromHandlePermanent(item->hwndItem);
  LRESULT result = 0;
  if (control != nullptr) {
    control->OnChildNotify(WM_DRAWITEM, item->CtlID, reinterpret_cast<LPARAM>(item), &result);
  }
}

BOOL CWnd::PreTranslateMessage(MSG* /*message*/) {
  return FALSE;
}

// Maps.

bool CCmdTarget::dispatchFromMap(UINT code, AFX_MESSAGE& message, LRESULT& result) {
  for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
       map = map->baseMap != nullptr ? map->baseMap() : nullptr) {
    for (const AFX_MSGMAP_ENTRY* row = map->entries; row->handler != nullptr; ++row) {
      if (row->nMessage != message.message || row->nCode != code) continue;
      if (message.id < row->nID || message.id > row->nLastID) continue;
      message.handled = true;
      result = row->handler(this, message);
      return message.handled;
    }
  }
  return false;
}

BOOL CCmdTarget::OnCmdMsg(UINT /*id*/, int code, AFX_MESSAGE& message) {
  LRESULT result = 0;
  return dispatchFromMap(static_cast<UINT>(code), message, result) ? TRUE : FALSE;
}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
  static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr}};
  static const AFX_MSGMAP map = {nullptr, entries};
  return &map;
}

const AFX_MSGMAP* CWnd::GetThisMessageMap() {
  static const AFX_MSGMAP_ENTRY entries[] = {
      kovra::mfc::window(WM_DRAWITEM, kovra::mfc::drawItem<&CWnd::OnDrawItem>),
      {0, 0, 0, 0, nullptr}};
  static const AFX_MSGMAP map = {&CCmdTarget::GetThisMessageMap, entries};
  return &map;
}
