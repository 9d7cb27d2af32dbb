#pragma once

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// What has changed of a window.
enum class Change {
  created,
  destroyed,  ///< told last, while the handle still is the window's
  text,
  enabled,
  visible,
  place,
  order,  ///< among its siblings
  style,
  content,  ///< check, selection, items, caret, icon
  focus,    ///< told for the window that got it; a null window: nobody has it
  repaint,
};

/// Told of every change of every window, after it has happened. A front end that shows the windows
/// is one. It must not change windows while it is told.
class WindowObserver {
 public:
  virtual ~WindowObserver() = default;
  virtual void windowChanged(HWND window, Change change) = 0;
};

/// Observers aren't owned.
void addObserver(WindowObserver* observer);
void removeObserver(WindowObserver* observer);

}  // namespace kovra::win
