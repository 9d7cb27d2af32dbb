#pragma once

#include "platform/win/controls/up_down.h"
#include "platform/win/windows/window.h"

namespace kovra::win {

/// What an up-down keeps beside the fields of a window.
class UpDownState : public WindowState {
 public:
  HWND buddy = nullptr;
  RECT buddyPlace{};  ///< before it gave room; empty when it gave none
  int lower = 100;    ///< counting goes from here to `upper`, which may be less
  int upper = 0;
  int position = 0;
  int turned = 0;  ///< of the wheel, less than a step

  const char* kind(const Window& /*window*/) const override { return "spin"; }
};

/// The middle of the arrow that counts up or down, in the control's client area.
POINT arrowOf(HWND control, bool up);

}  // namespace kovra::win
