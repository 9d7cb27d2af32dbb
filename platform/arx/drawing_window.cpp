#include "platform/arx/drawing_window.h"

#include <string>

#include "platform/arx/document_list.h"
#include "platform/arx/prompt.h"
#include "platform/arx/view.h"
#include "platform/win/wide_text.h"
#include "platform/win/window.h"
#include "platform/win/window_api.h"

namespace kovra::arx {
namespace {

/// Room around the drawing window for title, tool bars and command line.
constexpr int kFrameMargin = 100;

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

HWND makeFrame() {
  win::registerWindowClass({L"KOVRAFRAME", DefWindowProcW, nullptr});
  win::WindowSpec spec;
  spec.className = L"KovraFrame";
  spec.style = WS_OVERLAPPED | WS_VISIBLE;
  spec.place = {0, 0, kWindowWidth + kFrameMargin, kWindowHeight + kFrameMargin};
  return win::makeWindow(spec);
}

HWND makeDrawingWindow() {
  win::registerWindowClass({L"KOVRADRAWING", drawingProcedure, nullptr});
  win::WindowSpec spec;
  spec.className = L"KovraDrawing";
  spec.style = WS_CHILD | WS_VISIBLE;
  spec.place = {0, 0, kWindowWidth, kWindowHeight};
  spec.parentOrOwner = frameWindow();
  return win::makeWindow(spec);
}

}  // namespace

HWND frameWindow() {
  static HWND frame = nullptr;
  if (!IsWindow(frame)) frame = makeFrame();
  return frame;
}

HWND drawingWindow() {
  static HWND drawing = nullptr;
  if (!IsWindow(drawing)) drawing = makeDrawingWindow();
  return drawing;
}

}  // namespace kovra::arx
