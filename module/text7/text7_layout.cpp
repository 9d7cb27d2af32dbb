#include <algorithm>

#include "module/frame/dialog_items.h"
#include "module/frame/size_grip.h"
#include "module/text7/text7_dlg.h"
#include "module/text7/text7_ids.h"

namespace kovra {

using namespace text7;

namespace {

/// Place of a control in its dialog's client area; empty if there is none.
CRect placeOf(const CWnd& dialog, int id) {
  const CWnd* item = dialog.GetDlgItem(id);
  CRect place;
  if (item == nullptr) return place;
  item->GetWindowRect(&place);
  dialog.ScreenToClient(&place);
  return place;
}

void moveItem(CWnd& dialog, int id, LONG left, LONG top) {
  if (CWnd* item = dialog.GetDlgItem(id)) {
    item->SetWindowPos(nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  }
}

void moveButtons(CWnd& dialog, LONG top) {
  for (const int id : {IDOK, IDCANCEL}) moveItem(dialog, id, placeOf(dialog, id).left, top);
}

void resizeItem(CWnd& dialog, int id, int height) {
  if (CWnd* item = dialog.GetDlgItem(id)) {
    item->SetWindowPos(nullptr, 0, 0, placeOf(dialog, id).Width(), height,
                       SWP_NOMOVE | SWP_NOZORDER);
  }
}

int clientHeight(const CWnd& dialog) {
  CRect client;
  dialog.GetClientRect(&client);
  return client.Height();
}

}  // namespace

void CText7Dlg::recordLayout() {
  GetWindowRect(&FullRect);
  CompactHeight = heightWithoutArray();
  ChngblHeight = CompactHeight;
  FrameHeight = placeOf(*this, kLinesFrame).Height();
  LinesHeight = placeOf(*this, kLines).Height();
  CWnd* below = GetDlgItem(kBelowLines);
  CWnd* adopt = GetDlgItem(kAdoptStyle);
  // So that the check box belongs to the block that moves with the frame.
  if (below != nullptr && adopt != nullptr) {
    adopt->SetWindowPos(below, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  }
  ButtonsTop = placeOf(*this, IDOK).top;
}

/// The section ends with a row for the buttons, as far below it as it is from the left.
int CText7Dlg::heightWithoutArray() const {
  const CRect section = placeOf(*this, kArraySection);
  const int frame = windowHeight() - clientHeight(*this);
  return section.top + 2 * section.left + placeOf(*this, IDOK).Height() + frame;
}

int CText7Dlg::windowHeight() const {
  CRect place;
  GetWindowRect(&place);
  return place.Height();
}

void CText7Dlg::setWindowSize(int width, int height) {
  SetWindowPos(nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CText7Dlg::ShowArraySection(bool show) {
  if (show == IsItemEnabled(*this, kArraySection)) return;
  int buttonsTop = ButtonsTop;
  if (show) {
    setWindowSize(FullRect.Width(), FullRect.Height());
  } else {
    const CRect section = placeOf(*this, kArraySection);
    setWindowSize(FullRect.Width(), heightWithoutArray());
    buttonsTop = section.top + section.left;
  }
  for (CWnd* item = GetDlgItem(kArraySection); item != nullptr && item->GetDlgCtrlID() != IDOK;
       item = item->GetNextWindow()) {
    item->EnableWindow(show ? TRUE : FALSE);
    item->ShowWindow(show ? SW_SHOW : SW_HIDE);
  }
  moveButtons(*this, buttonsTop);
}

/// In the single mode the frame around the lines takes what the window has more than its compact
/// height; what stands below moves by as much.
void CText7Dlg::LayoutControls() {
  if (GetDlgItem(kLinesFrame) == nullptr) return;
  const int spare = Radio == kSingle ? windowHeight() - CompactHeight : 0;
  const int growth = FrameHeight + spare - placeOf(*this, kLinesFrame).Height();
  if (growth != 0) {
    resizeItem(*this, kLinesFrame, FrameHeight + spare);
    resizeItem(*this, kLines, LinesHeight + spare);
  }
  LONG blockBottom = 0;
  for (CWnd* item = GetDlgItem(kBelowLines);
       item != nullptr && item->GetDlgCtrlID() != kArraySection; item = item->GetNextWindow()) {
    CRect place;
    item->GetWindowRect(&place);
    ScreenToClient(&place);
    place.OffsetRect(0, growth);
    if (growth != 0) item->MoveWindow(place);
    blockBottom = std::max(blockBottom, place.bottom);
  }
  if (Radio == kArray) {
    moveButtons(*this, ButtonsTop);
    return;
  }
  const LONG free = clientHeight(*this) - blockBottom - placeOf(*this, IDOK).Height();
  moveButtons(*this, blockBottom + free / 2);
}

void CText7Dlg::OnGetMinMaxInfo(MINMAXINFO* limits) {
  // The window has its first size from the template, before there is anything to keep to.
  if (CompactHeight == 0 || GetDlgItem(kBelowLines) == nullptr) {
    CAcUiDialog::OnGetMinMaxInfo(limits);
    return;
  }
  limits->ptMinTrackSize.x = FullRect.Width();
  limits->ptMaxTrackSize.x = FullRect.Width();
  limits->ptMinTrackSize.y = Radio == kArray ? FullRect.Height() : CompactHeight;
  if (Radio != kSingle) limits->ptMaxTrackSize.y = limits->ptMinTrackSize.y;
}

void CText7Dlg::OnSize(UINT type, int width, int height) {
  if (!offersLines()) return;
  CAcUiDialog::OnSize(type, width, height);
  if (CompactHeight != 0 && MoveSizeGrip(*this, GripRect, width, height)) LayoutControls();
}

void CText7Dlg::OnPaint() {
  PaintSizeGrip(*this, GripRect, Radio == kSingle);
}

LRESULT CText7Dlg::OnNcHitTest(CPoint point) {
  return IsOnSizeGrip(*this, GripRect, point) ? HTBOTTOMRIGHT : CAcUiDialog::OnNcHitTest(point);
}

}  // namespace kovra
