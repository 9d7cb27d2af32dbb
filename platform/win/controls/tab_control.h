#pragma once

#include <string>
#include <vector>

#include "platform/win/windows/window.h"

namespace kovra::win {

/// What a tab control keeps beside the fields of a window.
class TabState : public WindowState {
 public:
  struct Tab {
    std::wstring text;
    LPARAM data = 0;
  };

  std::vector<Tab> tabs;
  int selected = -1;

  const char* kind(const Window& /*window*/) const override { return "tabs"; }
  std::vector<std::wstring> itemTexts() const override;
  int selectedItem() const override { return selected; }
  /// Tells the parent TCN_SELCHANGING, which may refuse, and TCN_SELCHANGE.
  bool pickItem(HWND control, int index) override;

  /// The place of a tab in the control's client area; they stand in one row at its top.
  RECT placeOf(int index) const;

  static constexpr LONG kTabHeight = 21;
};

}  // namespace kovra::win
