#include "platform/win/windows/clipboard.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/win/base/interaction.h"

namespace {

struct Opened {
  bool open = false;
  HANDLE given = nullptr;  ///< what GetClipboardData gave out
};

Opened& opened() {
  static Opened single;
  return single;
}

/// The text in a block of memory: to its null, at most to its end.
std::wstring textIn(HANDLE memory) {
  const auto* text = static_cast<const wchar_t*>(GlobalLock(memory));
  if (text == nullptr) return {};
  const std::wstring_view all(text, GlobalSize(memory) / sizeof(wchar_t));
  std::wstring found(all.substr(0, all.find(L'\0')));
  GlobalUnlock(memory);
  return found;
}

HANDLE memoryWith(const std::wstring& text) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t));
  auto* const target = static_cast<wchar_t*>(GlobalLock(memory));
  if (target == nullptr) return nullptr;
  std::copy_n(text.c_str(), text.size() + 1, target);
  GlobalUnlock(memory);
  return memory;
}

}  // namespace

BOOL OpenClipboard(HWND /*owner*/) {
  return std::exchange(opened().open, true) ? FALSE : TRUE;
}

BOOL CloseClipboard() {
  GlobalFree(std::exchange(opened().given, nullptr));
  return std::exchange(opened().open, false) ? TRUE : FALSE;
}

BOOL EmptyClipboard() {
  if (!opened().open) return FALSE;
  kovra::win::interaction().setClipboard(std::nullopt);
  return TRUE;
}

BOOL IsClipboardFormatAvailable(UINT format) {
  return format == CF_UNICODETEXT && kovra::win::interaction().clipboard().has_value();
}

HANDLE SetClipboardData(UINT format, HANDLE memory) {
  if (!opened().open || format != CF_UNICODETEXT || GlobalSize(memory) == 0) return nullptr;
  kovra::win::interaction().setClipboard(textIn(memory));
  // The handle keeps its meaning for the caller until the clipboard is closed.
  if (opened().given != memory) GlobalFree(std::exchange(opened().given, memory));
  return memory;
}

HANDLE GetClipboardData(UINT format) {
  if (!opened().open || !IsClipboardFormatAvailable(format)) return nullptr;
  if (opened().given == nullptr)
    opened().given = memoryWith(*kovra::win::interaction().clipboard());
  return opened().given;
}
