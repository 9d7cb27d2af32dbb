#include "module/countup/arrow_button.h"
#include "module/countup/face_layout.h"
#include "module/countup/visual_styles.h"

namespace kovra {
namespace {

// Parts and states of visual styles.
constexpr int kPushButtonPart = 1;
constexpr int kNormalState = 1;
constexpr int kHotState = 2;
constexpr int kPressedState = 3;
constexpr int kDisabledState = 4;
constexpr int kDefaultState = 5;

constexpr int kFocusMargin = 3;

bool has(const DRAWITEMSTRUCT& item, UINT state) {
  return (item.itemState & state) != 0;
}

}  // namespace

void CBtnArw::DrawItem(LPDRAWITEMSTRUCT item) {
  drawBackground(*item);
  drawFace(*item);
  if (!has(*item, ODS_FOCUS)) return;
  CRect inside(item->rcItem);
  inside.DeflateRect(kFocusMargin, kFocusMargin);
  DrawFocusRect(item->hDC, &inside);
}

void CBtnArw::drawBackground(const DRAWITEMSTRUCT& item) const {
  CRect place(item.rcItem);
  if (!VisualStylesActive()) {
    UINT state = DFCS_BUTTONPUSH;
    if (checked_ || has(item, ODS_SELECTED)) state |= DFCS_PUSHED;
    if (has(item, ODS_DISABLED)) state |= DFCS_INACTIVE;
    DrawFrameControl(item.hDC, &place, DFC_BUTTON, state);
    return;
  }
  const HTHEME theme = OpenThemeData(GetSafeHwnd(), L"BUTTON");
  DrawThemeBackground(theme, item.hDC, kPushButtonPart, themeState(item), &place, nullptr);
  CloseThemeData(theme);
}

int CBtnArw::themeState(const DRAWITEMSTRUCT& item) const {
  if (has(item, ODS_DISABLED)) return kDisabledState;
  if (has(item, ODS_SELECTED)) return kPressedState;
  if (staysPressed_ && checked_) return kPressedState;
  if (hot_) return kHotState;
  return checked_ ? kDefaultState : kNormalState;
}

void CBtnArw::drawFace(const DRAWITEMSTRUCT& item) const {
  CString caption;
  GetWindowText(caption);
  CRect measured;
  const int captionHeight =
      caption.IsEmpty() ? 0
                        : DrawTextW(item.hDC, caption, -1, &measured, DT_SINGLELINE | DT_CALCRECT);
  CRect place(item.rcItem);
  const int iconSize = static_cast<int>(small_ ? Size::small : Size::large);
  const FaceLayout face = layOutFace(place.Width(), place.Height(), iconSize, captionHeight);
  DrawIconEx(item.hDC, place.left + face.iconLeft, place.top + face.iconTop, icon_, iconSize,
             iconSize, 0, nullptr, DI_NORMAL);
  if (caption.IsEmpty()) return;
  place.top += face.captionTop;
  DrawTextW(item.hDC, caption, -1, &place, DT_CENTER | DT_SINGLELINE);
}

}  // namespace kovra
