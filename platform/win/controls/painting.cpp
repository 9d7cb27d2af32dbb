#include "platform/win/controls/painting.h"

#include <map>
#include <string_view>
#include <tuple>
#include <utility>

#include "platform/win/base/wide_text.h"
#include "platform/win/controls/button_control.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::win {
namespace {

struct PaintState {
  std::map<HDC, PaintList*> targets;
  std::uintptr_t lastContext = 0x1000;
  HDC painting = nullptr;  ///< what BeginPaint hands out
  bool themed = true;
};

PaintState& paintState() {
  static PaintState single;
  return single;
}

BOOL add(HDC context, PaintStep step) {
  const auto target = paintState().targets.find(context);
  if (target == paintState().targets.end()) return FALSE;
  target->second->add(std::move(step));
  return TRUE;
}

/// What the parent of an owner-drawn button is told to draw.
DRAWITEMSTRUCT drawItemOf(HWND button, HDC context) {
  DRAWITEMSTRUCT item{};
  item.CtlType = ODT_BUTTON;
  item.CtlID = static_cast<UINT>(GetDlgCtrlID(button));
  item.itemAction = ODA_DRAWENTIRE;
  item.hwndItem = button;
  item.hDC = context;
  GetClientRect(button, &item.rcItem);
  const auto* state = stateOf<ButtonState>(button);
  if (state != nullptr && state->pressed) item.itemState |= ODS_SELECTED;
  if (!IsWindowEnabled(button)) item.itemState |= ODS_DISABLED;
  if (GetFocus() == button) item.itemState |= ODS_FOCUS;
  return item;
}

HTHEME buttonTheme() {
  return reinterpret_cast<HTHEME>(std::uintptr_t{1});
}

}  // namespace

bool PaintStep::operator==(const PaintStep& other) const {
  const auto fields = [](const PaintStep& step) {
    return std::tie(step.kind, step.place.left, step.place.top, step.place.right, step.place.bottom,
                    step.part, step.state, step.color, step.icon, step.text, step.format);
  };
  return fields(*this) == fields(other);
}

PaintList::PaintList() {
  paintState().lastContext += 4;
  context_ = reinterpret_cast<HDC>(paintState().lastContext);
  paintState().targets[context_] = this;
}

PaintList::~PaintList() {
  paintState().targets.erase(context_);
}

std::vector<PaintStep> paintWindow(HWND window) {
  if (!IsWindow(window)) return {};
  PaintList list;
  const bool button = stateOf<ButtonState>(window) != nullptr;
  if (button && buttonKind(window) == BS_OWNERDRAW) {
    DRAWITEMSTRUCT item = drawItemOf(window, list.context());
    SendMessageW(GetParent(window), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
  } else {
    const HDC before = std::exchange(paintState().painting, list.context());
    SendMessageW(window, WM_PAINT, 0, 0);
    paintState().painting = before;
  }
  return list.steps();
}

void setThemed(bool themed) {
  paintState().themed = themed;
}

}  // namespace kovra::win

using kovra::win::PaintStep;

HDC BeginPaint(HWND window, PAINTSTRUCT* paint) {
  if (paint == nullptr || !IsWindow(window)) return nullptr;
  paint->hdc = kovra::win::paintState().painting;
  paint->fErase = FALSE;
  GetClientRect(window, &paint->rcPaint);
  return paint->hdc;
}

BOOL EndPaint(HWND /*window*/, const PAINTSTRUCT* /*paint*/) {
  return TRUE;
}

HDC GetDC(HWND /*window*/) {
  return reinterpret_cast<HDC>(std::uintptr_t{1});
}
int ReleaseDC(HWND /*window*/, HDC /*context*/) {
  return 1;
}

BOOL DrawFrameControl(HDC context, RECT* rect, UINT type, UINT state) {
  return kovra::win::add(context, {PaintStep::Kind::frame, *rect, type, state, -1, nullptr, {}, 0});
}

BOOL DrawIconEx(HDC context, int x, int y, HICON icon, int width, int height, UINT /*step*/,
                HBRUSH /*background*/, UINT /*flags*/) {
  return kovra::win::add(
      context, {PaintStep::Kind::icon, {x, y, x + width, y + height}, 0, 0, -1, icon, {}, 0});
}

int DrawTextW(HDC context, LPCWSTR text, int length, RECT* rect, UINT format) {
  constexpr int kWidth = 6, kHeight = 13;
  const std::wstring_view all(text);
  const std::wstring_view shown =
      length < 0 ? all : all.substr(0, static_cast<std::size_t>(length));
  if ((format & DT_CALCRECT) == 0) {
    kovra::win::add(context,
                    {PaintStep::Kind::text, *rect, 0, 0, -1, nullptr, std::wstring(shown), format});
    return kHeight;
  }
  LONG width = 0;
  for (const wchar_t c : shown) width += c < 0x1100 ? kWidth : 2 * kWidth;
  rect->right = rect->left + width;
  rect->bottom = rect->top + kHeight;
  return kHeight;
}

BOOL DrawFocusRect(HDC context, const RECT* rect) {
  return kovra::win::add(context, {PaintStep::Kind::focus, *rect, 0, 0, -1, nullptr, {}, 0});
}

HBRUSH GetSysColorBrush(int color) {
  return reinterpret_cast<HBRUSH>(static_cast<std::intptr_t>(color) + 1);
}

int FillRect(HDC context, const RECT* rect, HBRUSH brush) {
  const int color = static_cast<int>(reinterpret_cast<std::intptr_t>(brush)) - 1;
  return kovra::win::add(context, {PaintStep::Kind::fill, *rect, 0, 0, color, nullptr, {}, 0});
}

int GetDeviceCaps(HDC /*context*/, int index) {
  constexpr int kDotsPerInch = 96;
  return index == LOGPIXELSX || index == LOGPIXELSY ? kDotsPerInch : 0;
}

BOOL IsThemeActive() {
  return kovra::win::paintState().themed ? TRUE : FALSE;
}
BOOL IsAppThemed() {
  return IsThemeActive();
}

HTHEME OpenThemeData(HWND /*window*/, LPCWSTR classes) {
  const bool known = classes != nullptr && kovra::win::equalNoCase(classes, L"BUTTON");
  return known && IsThemeActive() ? kovra::win::buttonTheme() : nullptr;
}

HRESULT CloseThemeData(HTHEME /*theme*/) {
  return 0;
}

HRESULT DrawThemeBackground(HTHEME theme, HDC context, int part, int state, const RECT* rect,
                            const RECT* /*clip*/) {
  constexpr HRESULT kFailed = -1;
  if (theme == nullptr) return kFailed;
  const PaintStep step{PaintStep::Kind::themePart,
                       *rect,
                       static_cast<unsigned>(part),
                       static_cast<unsigned>(state),
                       -1,
                       nullptr,
                       {},
                       0};
  return kovra::win::add(context, step) ? 0 : kFailed;
}
