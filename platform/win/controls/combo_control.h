#pragma once

#include <string>
#include <vector>

#include "platform/win/windows/window.h"

namespace kovra::win {

/// What a combo box keeps beside the fields of a window.
class ComboState : public WindowState {
 public:
  struct Item {
    std::wstring text;
    LONG_PTR data = 0;
  };

  std::vector<Item> items;
  int selected = -1;
  HWND field = nullptr;  ///< the edit inside; null in a list without one
  bool quiet = false;    ///< the field's text changes by the program
  bool dropped = false;
  int itemHeight = 15;
  int fieldHeight = 15;

  const char* kind(const Window& /*window*/) const override { return "combo"; }
  std::vector<std::wstring> itemTexts() const override;
  int selectedItem() const override { return selected; }
  bool pickItem(HWND combo, int index) override;
};

/// The user picks an item: the parent is told CBN_SELENDOK and CBN_SELCHANGE, then the field shows
/// it.
void pickComboItem(HWND combo, int index);

/// The first item that equals the text, without regard to case; -1 if there is none.
int findComboItem(const ComboState& combo, std::wstring_view text);

}  // namespace kovra::win
