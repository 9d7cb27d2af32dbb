#include "module/frame/editor_turn.h"

namespace kovra {

EditorTurn::EditorTurn(CAdUiBaseDialog& dialog) : window_(dialog.GetSafeHwnd()) {
  dialog.BeginEditorCommand();
  dialog.ShowWindow(SW_HIDE);
}

EditorTurn::~EditorTurn() {
  CAdUiBaseDialog* dialog = openDialog();
  if (dialog == nullptr) return;
  dialog->CompleteEditorCommand(TRUE);
  dialog->ShowWindow(SW_SHOW);
}

CAdUiBaseDialog* EditorTurn::openDialog() const {
  return dynamic_cast<CAdUiBaseDialog*>(CWnd::FromHandlePermanent(window_));
}

}  // namespace kovra
