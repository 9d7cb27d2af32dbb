#include "platform/mfc/message_boxes.h"

#include "platform/mfc/cstring.h"
#include "platform/win/dialogs/message_box.h"

namespace {

constexpr LPCWSTR kCaption = L"AutoCAD";
constexpr UINT kIconMask = 0xF0;

}  // namespace

int AfxMessageBox(LPCWSTR text, UINT style, UINT /*helpId*/) {
  if ((style & kIconMask) == 0) style |= MB_ICONEXCLAMATION;
  return MessageBoxW(nullptr, text, kCaption, style);
}

int AfxMessageBox(UINT textId, UINT style, UINT helpId) {
  CString text;
  text.LoadString(textId);
  return AfxMessageBox(text.GetString(), style, helpId);
}
