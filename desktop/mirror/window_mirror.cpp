#include "desktop/mirror/window_mirror.h"

namespace kovra::desktop {

class WindowMirror::Widgets {};

WindowMirror::WindowMirror(QWidget* /*frame*/) : widgets_(std::make_unique<Widgets>()) {}
WindowMirror::~WindowMirror() = default;

QWidget* WindowMirror::widgetOf(HWND /*window*/) const {
  return nullptr;
}

void WindowMirror::refresh() {}

}  // namespace kovra::desktop
