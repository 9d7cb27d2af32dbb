#include "module/frame/size_grip.h"

namespace kovra {
namespace {

constexpr int kSmallestSide = 51;
constexpr int kGripSide = 16;

}  // namespace

bool MoveSizeGrip(CWnd& dialog, CRect& grip, int width, int height) {
  if (width < kSmallestSide || height < kSmallestSide) return false;
  dialog.InvalidateRect(grip);
  grip = CRect(width - kGripSide, height - kGripSide, width, height);
  dialog.InvalidateRect(grip);
  return true;
}

void PaintSizeGrip(CWnd& dialog, const CRect& grip, bool show) {
  PAINTSTRUCT paint;
  CRect place = grip;
  const HDC context = BeginPaint(dialog.GetSafeHwnd(), &paint);
  if (show) DrawFrameControl(context, place, DFC_SCROLL, DFCS_SCROLLSIZEGRIP);
  EndPaint(dialog.GetSafeHwnd(), &paint);
}

bool IsOnSizeGrip(const CWnd& dialog, const CRect& grip, CPoint point) {
  dialog.ScreenToClient(&point);
  return grip.PtInRect(point) != FALSE;
}

}  // namespace kovra
