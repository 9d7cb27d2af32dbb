#include <memory>

#include "module/countup/copy_cup.h"
#include "module/countup/copy_cup_ids.h"
#include "module/countup/drag_copies.h"
#include "module/countup/pattern_copies.h"
#include "module/countup/radix_table.h"
#include "module/drawing/group_list.h"
#include "module/frame/attach.h"
#include "module/frame/commands.h"
#include "module/frame/gates.h"
#include "module/frame/reporting.h"
#include "module/frame/resource_scope.h"

namespace kovra {
namespace {

constexpr UINT kDataVersionTooLow = 2753;

bool selectTexts(SelectionSet& texts) {
  const GroupList filter(acutBuildList(RTDXF0, L"TEXT", RTNONE));
  return SelectEntities(texts, filter.get());
}

/// The dialog after the user has confirmed it; null when it wasn't.
std::unique_ptr<CCopyCup> askHow() {
  const ResourceScope resources;
  auto dialog = std::make_unique<CCopyCup>(acedGetAcadFrame(), ResourceModule);
  if (dialog->DoModal() != IDOK) return nullptr;
  return dialog;
}

Pattern patternOf(const CCopyCup& dialog) {
  return {dialog.Direction, dialog.Rows, dialog.Cols, dialog.RowHeight, dialog.ColWidth};
}

}  // namespace

void CountUpCommand() {
  if (!CurrentProjectAtLeast(L"7.00")) {
    AfxMessageBox(ResourceText(kDataVersionTooLow).GetString());
    return;
  }
  SelectionSet texts;
  if (!selectTexts(texts)) return;
  const std::unique_ptr<CCopyCup> dialog = askHow();
  if (dialog == nullptr) return;
  const CountRule rule = {RadixCodeOf(dialog->Radix), dialog->CountUp ? dialog->CountUpStep : 0};
  if (dialog->Mode == copycup::kModePattern) {
    CopyIntoPattern(texts, patternOf(*dialog), dialog->DrawingScale, rule);
  } else {
    DragCopies(std::move(texts), rule);
  }
}

}  // namespace kovra
