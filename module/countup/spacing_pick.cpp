#include "module/countup/spacing_pick.h"

#include "module/drawing/auto_var.h"
#include "module/drawing/number_text.h"
#include "module/frame/editor_turn.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr int kPromptLength = 64;

struct Pick {
  short ortho;
  UINT firstPrompt;
  UINT secondPrompt;
  int (*secondInput)(const ads_point from, const ACHAR* prompt, ads_point result);
  bool setsRowHeight;
  bool setsColWidth;
};

// In the order of Spacing.
constexpr Pick kPicks[] = {
    {0, 2788, 2789, acedGetCorner, true, true},
    {1, 2792, 2793, acedGetPoint, true, false},
    {1, 2790, 2791, acedGetPoint, false, true},
};

bool askPoints(const Pick& pick, ads_point first, ads_point second) {
  const CString firstPrompt = ResourceText(pick.firstPrompt, kPromptLength);
  const CString secondPrompt = ResourceText(pick.secondPrompt, kPromptLength);
  return acedGetPoint(nullptr, firstPrompt.GetString(), first) == RTNORM &&
         pick.secondInput(first, secondPrompt.GetString(), second) == RTNORM;
}

void showDistance(CWnd& dialog, int field, double distance) {
  dialog.SetDlgItemText(field, FormatDistance(distance));
}

}  // namespace

void PickDistances(CAcUiDialog& dialog, Spacing spacing, const SpacingFields& fields) {
  const Pick& pick = kPicks[static_cast<int>(spacing)];
  CAutoVar ortho;
  CAutoVar snap;
  ortho.Set(L"ORTHOMODE", pick.ortho);
  snap.Set(L"SNAPMODE", 1);
  const EditorTurn turn(dialog);
  ads_point first = {};
  ads_point second = {};
  if (!askPoints(pick, first, second) || !turn.dialogIsOpen()) return;
  if (pick.setsRowHeight) {
    fields.rowHeight = first[Y] - second[Y];
    showDistance(dialog, fields.rowHeightField, fields.rowHeight / fields.scale);
  }
  if (pick.setsColWidth) {
    fields.colWidth = second[X] - first[X];
    showDistance(dialog, fields.colWidthField, fields.colWidth / fields.scale);
  }
}

}  // namespace kovra
