#pragma once

#include <functional>

#include "platform/win/resources/dialog_template.h"
#include "platform/win/windows/window.h"

namespace kovra::win {

/// What a dialog keeps beside the fields of a window.
class DialogState : public WindowState {
 public:
  DLGPROC procedure = nullptr;
  unsigned templateId = 0;
  SIZE baseUnits{6, 13};
  POINT corner{};             ///< where its template put it on the screen
  int defaultId = 0;          ///< of the button that Enter presses
  HWND savedFocus = nullptr;  ///< the control that had the focus when the dialog was left
  LRESULT result = 0;         ///< what the procedure left as a message's answer
};

/// Makes a dialog and its controls and sends WM_INITDIALOG with `parameter`; if that is answered
/// with true, the first control of the tab order gets the focus. `attach` gets the handle before
/// the first message. The dialog is shown only if its template says so. Null when the template
/// names a class that doesn't exist, or the dialog destroyed itself.
HWND makeDialog(HINSTANCE module, const DialogTemplate& dialog, HWND parent, DLGPROC procedure,
                LPARAM parameter, const std::function<void(HWND)>& attach = {});

/// Runs the pump until `done` or the dialog is gone. Esc and the end of outside input press Cancel.
void runModal(HWND dialog, const std::function<bool()>& done);

/// True for windows made from a template.
bool isDialog(HWND window);
/// The controls of a dialog in tab order, those of child dialogs in their place.
std::vector<HWND> dialogControls(HWND dialog);
/// Number of the template; 0 for other windows.
unsigned templateOf(HWND dialog);

}  // namespace kovra::win
