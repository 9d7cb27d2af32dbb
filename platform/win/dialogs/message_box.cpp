#include "platform/win/dialogs/message_box.h"

#include <vector>

#include "platform/win/base/interaction.h"
#include "platform/win/windows/focus.h"

namespace {

std::vector<int> buttonsOf(UINT style) {
  switch (style & MB_TYPEMASK) {
    case MB_OKCANCEL:
      return {IDOK, IDCANCEL};
    case MB_ABORTRETRYIGNORE:
      return {IDABORT, IDRETRY, IDIGNORE};
    case MB_YESNOCANCEL:
      return {IDYES, IDNO, IDCANCEL};
    case MB_YESNO:
      return {IDYES, IDNO};
    case MB_RETRYCANCEL:
      return {IDRETRY, IDCANCEL};
    default:
      return {IDOK};
  }
}

}  // namespace

int MessageBoxW(HWND /*owner*/, LPCWSTR text, LPCWSTR caption, UINT style) {
  kovra::win::MessageBoxRequest box;
  box.caption = caption != nullptr ? caption : L"Error";
  box.text = text != nullptr ? text : L"";
  box.style = style;
  box.buttons = buttonsOf(style);
  const kovra::win::FocusLoan focus;
  return kovra::win::interaction().answerBox(box);
}
