#include "platform/win/painting.h"

#include <algorithm>
#include <map>
#include <utility>

namespace kovra::win {
namespace {

// Pixels that a character of a dialog's font takes.
constexpr LONG kCharacterWidth = 6;
constexpr LONG kLineHeight = 13;

std::map<HDC, PaintList*>& contexts() {
  static std::map<HDC, PaintList*> table;
  return table;
}

HDC newContext() {
  static std::uintptr_t last = 0;
  return reinterpret_cast<HDC>(++last);
}

BOOL paint(HDC context, PaintStep step) {
  const auto found = contexts().find(context);
  if (found == contexts().end()) return FALSE;
  found->second->add(std::move(step));
  return TRUE;
}

}  // namespace

PaintList::PaintList() : context_(newContext()) {
  contexts().emplace(context_, this);
}

PaintList::~PaintList() {
  contexts().erase(context_);
}

}  // namespace kovra::win

using kovra::win::kCharacterWidth;
using kovra::win::kLineHeight;
using kovra::win::paint;
using kovra::win::PaintStep;

BOOL DrawIconEx(HDC context, int left, int top, HICON icon, int width, int height, UINT /*step*/,
                HBRUSH /*background*/, UINT /*flags*/) {
  const RECT place = {left, top, left + width, top + height};
  return paint(context, {PaintStep::Kind::icon, place, 0, icon});
}

BOOL DrawFrameControl(HDC context, RECT* place, UINT /*type*/, UINT state) {
  return paint(context, {PaintStep::Kind::frame, *place, state});
}

BOOL DrawFocusRect(HDC context, const RECT* place) {
  return paint(context, {PaintStep::Kind::focus, *place});
}

int DrawTextW(HDC context, LPCWSTR text, int length, RECT* place, UINT format) {
  std::wstring line(text);
  if (length >= 0) line.resize(std::min(line.size(), static_cast<std::size_t>(length)));
  if ((format & DT_CALCRECT) != 0) {
    place->right = place->left + kCharacterWidth * static_cast<LONG>(line.size());
    place->bottom = place->top + kLineHeight;
  } else if (!paint(context, {PaintStep::Kind::text, *place, format, nullptr, std::move(line)})) {
    return 0;
  }
  return kLineHeight;
}

BOOL IsThemeActive() {
  return FALSE;
}

BOOL IsAppThemed() {
  return FALSE;
}

HTHEME OpenThemeData(HWND /*window*/, LPCWSTR /*classes*/) {
  return nullptr;
}

HRESULT CloseThemeData(HTHEME /*theme*/) {
  return 0;
}

HRESULT DrawThemeBackground(HTHEME /*theme*/, HDC context, int /*part*/, int state,
                            const RECT* place, const RECT* /*clip*/) {
  return paint(context, {PaintStep::Kind::frame, *place, static_cast<UINT>(state)}) ? 0 : -1;
}
