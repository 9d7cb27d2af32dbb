#pragma once

#include <array>

#include "module/countup/arrow_button.h"

namespace kovra {

/// The icon buttons of the dialogs that lay texts out in rows and columns: four for the direction,
/// of which one is marked, and three that pick distances, whose captions become tips.
class ArrayButtons {
 public:
  /// Takes the place of the template's controls: four ids from `firstDirection` on, and from
  /// `firstPick` on those of both distances, of rows and of columns.
  void Replace(CDialog& dialog, int firstDirection, int firstPick);
  void MarkDirection(int direction);

  /// For PreTranslateMessage: tips follow the mouse.
  void RelayEvent(MSG* message);
  void ActivateTips() { toolTip_.Activate(TRUE); }

 private:
  void replaceDirections(CDialog& dialog, int firstId);
  void replacePicks(CDialog& dialog, int firstId);

  std::array<CBtnArw, 4> directions_;
  std::array<CBtnArw, 3> picks_;
  CToolTipCtrl toolTip_;
};

}  // namespace kovra
