#pragma once

#include "platform/win/base/windows_types.h"

namespace kovra::win {

/// Moves the focus, telling the window that loses it, then the one that gets it; null: nobody has
/// it.
void changeFocus(HWND window);

/// Makes a top-level window the active one. With `restoreFocus` it takes the focus, or gives it to
/// the control that had it last; else the caller moves it next.
void activate(HWND window, bool restoreFocus);

/// True while a window is made active for the sake of one of its controls: it leaves the focus
/// alone.
bool focusIsChosen();

/// True if neither the window nor what it lies in is disabled or minimised.
bool canTakeFocus(HWND window);

/// Takes the focus away for the time of a scope, as a message box does, and gives it back.
class FocusLoan {
 public:
  FocusLoan();
  ~FocusLoan();
  FocusLoan(const FocusLoan&) = delete;
  FocusLoan& operator=(const FocusLoan&) = delete;

 private:
  HWND former_;
};

/// Tells a window that asked to be told (TrackMouseEvent) that the cursor now is over another one,
/// or rests in it.
void trackCursor(HWND over);

void forgetFocus();

}  // namespace kovra::win
