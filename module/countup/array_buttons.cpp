#include "module/countup/array_buttons.h"

namespace kovra {
namespace {

constexpr std::array<UINT, 4> kDirectionIcons = {536, 537, 538, 539};
constexpr std::array<UINT, 3> kPickIcons = {541, 542, 542};
constexpr int kTipLength = 161;

}  // namespace

void ArrayButtons::Replace(CDialog& dialog, int firstDirection, int firstPick) {
  replaceDirections(dialog, firstDirection);
  replacePicks(dialog, firstPick);
}

void ArrayButtons::replaceDirections(CDialog& dialog, int firstId) {
  for (std::size_t i = 0; i < directions_.size(); ++i) {
    const int id = firstId + static_cast<int>(i);
    directions_[i].Replace(dialog, id, kDirectionIcons[i], CBtnArw::Size::large);
  }
}

void ArrayButtons::replacePicks(CDialog& dialog, int firstId) {
  toolTip_.Create(&dialog);
  toolTip_.Activate(TRUE);
  for (std::size_t i = 0; i < picks_.size(); ++i) {
    const int id = firstId + static_cast<int>(i);
    ACHAR tip[kTipLength] = L"";
    dialog.GetDlgItemText(id, tip, kTipLength);
    dialog.SetDlgItemText(id, L"");
    picks_[i].Replace(dialog, id, kPickIcons[i], CBtnArw::Size::small);
    toolTip_.AddTool(&picks_[i], tip);
  }
}

void ArrayButtons::MarkDirection(int direction) {
  for (std::size_t i = 0; i < directions_.size(); ++i) {
    directions_[i].SetChecked(static_cast<int>(i) == direction);
  }
}

void ArrayButtons::RelayEvent(MSG* message) {
  const UINT kind = message->message;
  if (kind == WM_MOUSEMOVE || kind == WM_LBUTTONDOWN || kind == WM_LBUTTONUP) {
    toolTip_.RelayEvent(message);
  }
}

}  // namespace kovra
