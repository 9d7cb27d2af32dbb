#include "module/countup/visual_styles.h"

#include "module/frame/seam.h"

namespace kovra {
namespace {

bool buttonThemeOpens() {
  const HTHEME theme = OpenThemeData(nullptr, L"BUTTON");
  if (theme == nullptr) return false;
  CloseThemeData(theme);
  return true;
}

}  // namespace

bool VisualStylesActive() {
  static const bool active = IsThemeActive() && IsAppThemed() && buttonThemeOpens();
  return active;
}

}  // namespace kovra
