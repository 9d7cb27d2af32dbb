#include "platform/mfc/wnd_ties.h"

#include <map>
#include <memory>
#include <string>

#include "platform/mfc/controls.h"
#include "platform/win/windows/message_queue.h"

namespace {

struct Maps {
  std::map<HWND, CWnd*> permanent;
  std::map<HWND, std::unique_ptr<CWnd>> temporary;
  std::size_t sweepAt = 64;
};

/// Never destroyed: windows of static objects outlive every other static.
Maps& maps() {
  static Maps& single = *new Maps;
  return single;
}

std::unique_ptr<CWnd> objectFor(HWND window) {
  wchar_t name[32] = {};
  GetClassNameW(window, name, 32);
  const std::wstring className = name;
  if (className == L"BUTTON") return std::make_unique<CButton>();
  if (className == L"EDIT") return std::make_unique<CEdit>();
  if (className == L"COMBOBOX") return std::make_unique<CComboBox>();
  if (className == L"SysTabControl32") return std::make_unique<CTabCtrl>();
  if (className == L"STATIC") return std::make_unique<CStatic>();
  if (className == WC_LISTVIEW) return std::make_unique<CListCtrl>();
  if (className == UPDOWN_CLASSW) return std::make_unique<CSpinButtonCtrl>();
  return std::make_unique<CWnd>();
}

/// Objects whose windows are gone go as well, now and then.
void sweep() {
  if (maps().temporary.size() < maps().sweepAt) return;
  std::erase_if(maps().temporary, [](const auto& entry) { return !IsWindow(entry.first); });
  maps().sweepAt = 2 * maps().temporary.size() + 64;
}

/// Asks the objects from the message's window outwards, as the program's message loop does.
bool filterMessage(MSG& message) {
  for (HWND window = message.hwnd; window != nullptr; window = GetAncestor(window, GA_PARENT)) {
    CWnd* object = WndTies::permanent(window);
    if (object != nullptr && object->PreTranslateMessage(&message)) return true;
  }
  const HWND top = GetAncestor(message.hwnd, GA_ROOT);
  return WndTies::permanent(top) == nullptr && IsDialogMessageW(top, &message);
}

}  // namespace

CWnd* WndTies::permanent(HWND window) {
  const auto found = maps().permanent.find(window);
  return found != maps().permanent.end() ? found->second : nullptr;
}

CWnd* WndTies::temporary(HWND window) {
  auto& object = maps().temporary[window];
  if (object == nullptr) {
    object = objectFor(window);
    object->m_hWnd = window;
    object->temporary_ = true;
    CWnd* made = object.get();
    sweep();
    return made;
  }
  return object.get();
}

void WndTies::add(HWND window, CWnd* object) {
  kovra::win::setMessageFilter(filterMessage);
  maps().permanent[window] = object;
}

void WndTies::remove(HWND window) {
  maps().permanent.erase(window);
}
