#pragma once

#include "platform/win/windows/window.h"

namespace kovra::win {

/// What a button keeps beside the fields of a window.
class ButtonState : public WindowState {
 public:
  WPARAM check = BST_UNCHECKED;
  bool pressed = false;
  HICON icon = nullptr;

  const char* kind(const Window& window) const override;
  std::optional<int> checkState(const Window& window) const override;
};

/// The BS_ number of a button's kind.
DWORD buttonKind(HWND button);
bool isCheckBox(DWORD kind);
bool isRadio(DWORD kind);

}  // namespace kovra::win
