// One call of the command is one pass: it does what the dialog asks for, and returns.
#include <memory>

#include "module/frame/commands.h"
#include "module/frame/dialog_items.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"
#include "module/frame/resource_scope.h"
#include "module/propedit/resize_dlg.h"
#include "module/propedit/resize_ids.h"
#include "module/propedit/resize_move.h"

namespace kovra {

using namespace resize;

namespace {

constexpr UINT kVersionTooLow = 2753;
constexpr UINT kInvalidHeight = 8426;

void showDialog(CResizeDlg& dialog) {
  dialog.ShowDialog();
  dialog.FocusHeightField();
}

/// The dialog with the text that was selected beforehand, or with the request to select one.
void openDialog() {
  ads_name preselected = {};
  const bool usable = TakePreselectedText(preselected);
  if (!CurrentProjectAtLeast(L"7.00")) {
    AfxMessageBox(ResourceText(kVersionTooLow).GetString());
    return;
  }
  const ResourceScope resources;
  CWnd* parent = acedGetAcadFrame();
  auto dialog = std::make_unique<CResizeDlg>(parent);
  ResizeEntity entity;
  if (usable && ReadResizeEntity(preselected, entity)) {
    dialog->SetEntity(entity);
    HighlightResizeEntity(entity, true);
  }
  if (!usable) dialog->ResizeRequest = kSelectRequest;
  // The open dialog deletes itself when its window ends.
  if (dialog->Open(parent)) static_cast<void>(dialog.release());
}

void selectPass(CResizeDlg& dialog) {
  dialog.ShowWindow(SW_HIDE);
  HighlightResizeEntity(dialog.Entity, false);
  dialog.Entity.EntityKind = TextKind::other;
  ResizeEntity entity;
  const bool selected = SelectResizeEntity(entity);
  CResizeDlg* open = OpenResizeDlg();
  if (open == nullptr) return;
  if (!selected) {
    open->DestroyWindow();
    return;
  }
  open->SetEntity(entity);
  HighlightResizeEntity(entity, true);
  open->ShowFields();
  showDialog(*open);
}

void movePass(CResizeDlg& dialog) {
  dialog.ShowWindow(SW_HIDE);
  HighlightResizeEntity(dialog.Entity, false);
  MoveResizeEntity(dialog.Entity);
  CResizeDlg* open = OpenResizeDlg();
  if (open == nullptr) return;
  HighlightResizeEntity(open->Entity, true);
  showDialog(*open);
}

bool ApplyResizeHeight(CResizeDlg& dialog) {
  CString height = TrimmedItemText(dialog, kHeight);
  height.TrimLeft();
  HighlightResizeEntity(dialog.Entity, false);
  const HeightChange change = SetResizeHeight(dialog.Entity, height);
  if (change == HeightChange::invalid) {
    AfxMessageBox(ResourceText(kInvalidHeight).GetString());
  }
  HighlightResizeEntity(dialog.Entity, true);
  return change == HeightChange::done;
}

void finishPass(CResizeDlg& dialog) {
  if (!ApplyResizeHeight(dialog)) {
    dialog.FocusHeightField();
    return;
  }
  HighlightResizeEntity(dialog.Entity, false);
  dialog.DestroyWindow();
}

void cancelPass(CResizeDlg& dialog) {
  HighlightResizeEntity(dialog.Entity, false);
  RestoreResizeEntity(dialog.Entity);
  dialog.DestroyWindow();
}

void runPass(CResizeDlg& dialog) {
  switch (dialog.ResizeRequest) {
    case kSelectRequest:
      return selectPass(dialog);
    case kMoveRequest:
      return movePass(dialog);
    case kApplyRequest:
      ApplyResizeHeight(dialog);
      return;
    case kFinishRequest:
      return finishPass(dialog);
    case kCancelRequest:
      return cancelPass(dialog);
    default:
      return showDialog(dialog);
  }
}

}  // namespace

void ResizeTextCommand() {
  if (OpenResizeDlg() == nullptr) openDialog();
  CResizeDlg* dialog = OpenResizeDlg();
  if (dialog != nullptr && ::IsWindow(dialog->GetSafeHwnd())) runPass(*dialog);
}

}  // namespace kovra
