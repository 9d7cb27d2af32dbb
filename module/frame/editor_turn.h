#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Gives the drawing to the user and hides the dialog until the end of the scope, so that a dialog
/// can ask for points and entities.
class EditorTurn {
 public:
  explicit EditorTurn(CAdUiBaseDialog& dialog);
  ~EditorTurn();
  EditorTurn(const EditorTurn&) = delete;
  EditorTurn& operator=(const EditorTurn&) = delete;

  /// False once the dialog ended, which a modeless one may do at any wait; it may be deleted then.
  bool dialogIsOpen() const { return openDialog() != nullptr; }

 private:
  CAdUiBaseDialog* openDialog() const;

  HWND window_;
};

}  // namespace kovra
