#pragma once

#include "platform/win/windows/window.h"

namespace kovra::win {

/// What a label or picture keeps beside the fields of a window.
class StaticState : public WindowState {
 public:
  HICON icon = nullptr;

  const char* kind(const Window& window) const override {
    return (window.style & SS_TYPEMASK) == SS_ICON ? "icon" : "label";
  }
};

}  // namespace kovra::win
