#include <optional>

#include "module/frame/attach.h"
#include "module/frame/commands.h"
#include "module/frame/gates.h"
#include "module/frame/resource_scope.h"
#include "module/propcopy/copy_prop_dlg.h"
#include "module/propcopy/copy_to_drawings.h"
#include "module/propcopy/copy_to_selection.h"

namespace kovra {
namespace {

/// What the user asked for.
struct CopyOrder {
  CopyJob job;
  int scope;
  DrawingLists lists;  ///< for the scopes that reach other drawings
};

DrawingLists listDrawings(const CopyPropFields& fields) {
  switch (fields.Scope) {
    case kChosenDrawingsScope: {
      DrawingLists lists = ListChosenDrawings(fields.PresetDrawings);
      // With nothing to write, nothing is said of what is left out either.
      if (lists.drawings.empty()) lists.skipped.clear();
      return lists;
    }
    case kProjectScope:
      return ListProjectDrawings();
    default:
      return {};
  }
}

/// Nothing when the dialog was cancelled.
std::optional<CopyOrder> askOrder(UINT forcedTemplate) {
  UINT recordTemplate = 0;
  const UINT templateId = CopyPropTemplateId(recordTemplate, forcedTemplate);
  const ResourceScope resources;
  CCopyPropDlg dialog(templateId, acedGetAcadFrame(), ResourceModule);
  if (dialog.DoModal() != IDOK) return std::nullopt;
  const CopyPropFields& fields = dialog.GetFields();
  return CopyOrder{{TagPatternsOf(fields), PropertySettingsOf(fields), fields.UseDimScale},
                   fields.Scope,
                   listDrawings(fields)};
}

}  // namespace

void PropertyCopyCommand(int mode) {
  const std::optional<CopyOrder> order = askOrder(mode == 1 ? kDrawingsTemplate : 0);
  if (!order) return;
  if (order->scope == kChosenDrawingsScope || order->scope == kProjectScope) {
    CopyToDrawings(order->job, order->lists);
  } else {
    CopyToSelection(order->job, order->scope == kDrawingScope);
  }
}

}  // namespace kovra
