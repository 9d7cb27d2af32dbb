#include "module/countup/copy_cup.h"
#include "module/countup/copy_cup_ids.h"
#include "module/drawing/auto_var.h"
#include "module/drawing/number_text.h"
#include "module/frame/dialog_items.h"
#include "module/frame/reporting.h"

namespace kovra {

using namespace copycup;

namespace {

constexpr int kPromptLength = 64;

struct Pick {
  int id;
  short ortho;
  UINT firstPrompt;
  UINT secondPrompt;
  int (*secondInput)(const ads_point from, const ACHAR* prompt, ads_point result);
  bool setsRowHeight;
  bool setsColWidth;
};

constexpr Pick kPicks[] = {
    {kPickBoth, 0, 2788, 2789, acedGetCorner, true, true},
    {kPickRowHeight, 1, 2792, 2793, acedGetPoint, true, false},
    {kPickColWidth, 1, 2790, 2791, acedGetPoint, false, true},
};

/// Gives the drawing to the user and hides the dialog until the end of the scope.
class EditorTurn {
 public:
  explicit EditorTurn(CAcUiDialog& dialog) : dialog_(dialog) {
    dialog_.BeginEditorCommand();
    dialog_.ShowWindow(SW_HIDE);
  }
  ~EditorTurn() {
    dialog_.CompleteEditorCommand(TRUE);
    dialog_.ShowWindow(SW_SHOW);
  }
  EditorTurn(const EditorTurn&) = delete;
  EditorTurn& operator=(const EditorTurn&) = delete;

 private:
  CAcUiDialog& dialog_;
};

bool askPoints(const Pick& pick, ads_point first, ads_point second) {
  const CString firstPrompt = ResourceText(pick.firstPrompt, kPromptLength);
  const CString secondPrompt = ResourceText(pick.secondPrompt, kPromptLength);
  return acedGetPoint(nullptr, firstPrompt.GetString(), first) == RTNORM &&
         pick.secondInput(first, secondPrompt.GetString(), second) == RTNORM;
}

}  // namespace

void CCopyCup::PickDistance(UINT id) {
  CollectFields();
  CAutoVar ortho;
  CAutoVar snap;
  const Pick& pick = kPicks[static_cast<int>(id) - kPickBoth];
  ortho.Set(L"ORTHOMODE", pick.ortho);
  snap.Set(L"SNAPMODE", 1);
  {
    const EditorTurn turn(*this);
    ads_point first = {};
    ads_point second = {};
    if (askPoints(pick, first, second)) {
      // A point below the first one gives a positive distance.
      if (pick.setsRowHeight) RowHeight = first[Y] - second[Y];
      if (pick.setsColWidth) ColWidth = second[X] - first[X];
      if (pick.setsRowHeight) showDistance(kRowHeight, RowHeight / DrawingScale);
      if (pick.setsColWidth) showDistance(kColWidth, ColWidth / DrawingScale);
    }
  }
  toolTip_.Activate(TRUE);
}

void CCopyCup::showDistance(int id, double distance) {
  SetDlgItemText(id, FormatDistance(distance));
}

}  // namespace kovra
