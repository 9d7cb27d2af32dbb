#include "platform/arx/editor/host/drawing_window.h"

#include <string>

#include "platform/arx/editor/documents/document_list.h"
#include "platform/arx/editor/prompts/prompt.h"
#include "platform/win/base/wide_text.h"
#include "platform/win/desktop/desktop.h"
#include "platform/win/windows/window_api.h"

namespace kovra::arx {
namespace {

/// One character message carries one byte; those of one character come one after another.
void typeByte(WPARAM byte) {
  static std::string pending;
  if (byte > 0xFF) {
    if (AcApDocument* document = DocumentList::instance().current())
      document->input().append(std::wstring(1, static_cast<wchar_t>(byte)), true);
    return;
  }
  pending += static_cast<char>(byte);
  const auto lead = static_cast<unsigned char>(pending.front());
  const size_t length = lead < 0x80    ? 1
                        : lead >= 0xF0 ? 4
                        : lead >= 0xE0 ? 3
                        : lead >= 0xC0 ? 2
                                       : 1;
  if (pending.size() < length) return;
  if (AcApDocument* document = DocumentList::instance().current())
    document->input().append(win::fromUtf8(pending), true);
  pending.clear();
}

LRESULT drawingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_CHAR) return DefWindowProcW(window, message, wParam, lParam);
  typeByte(wParam);
  return 0;
}

}  // namespace

HWND frameWindow() {
  return win::frameWindow();
}

HWND drawingWindow() {
  win::setDrawingProcedure(drawingProcedure);
  return win::drawingWindow();
}

}  // namespace kovra::arx
