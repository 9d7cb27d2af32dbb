// Native widgets for the windows in memory.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/win/base/windows_types.h"

class QWidget;

namespace kovra::desktop {

/// Keeps a native widget for each dialog and control of the module. The windows in memory stay the
/// truth: widgets follow them, and what the user does with a widget goes to the window through the
/// functions of the user's input (user_input.h, table_input.h), then comes back from there.
/// Message boxes, file choices, menus and the clipboard are native as well.
///
/// Dialogs are named "template-N" by their template, controls "control-ID".
class WindowMirror {
 public:
  /// `frame`: the native main window, which owns the dialogs.
  explicit WindowMirror(QWidget* frame);
  ~WindowMirror();
  WindowMirror(const WindowMirror&) = delete;
  WindowMirror& operator=(const WindowMirror&) = delete;

  /// The widget of a dialog or a control; null for one that has none (yet).
  QWidget* widgetOf(HWND window) const;
  /// Makes all widgets equal to their windows. Also done before each wait.
  void refresh();
  /// What of the visible dialogs differs from the windows in memory, a line of UTF-8 for each
  /// difference; for tests.
  std::vector<std::string> differences() const;

 private:
  class Widgets;
  std::unique_ptr<Widgets> widgets_;
};

}  // namespace kovra::desktop
