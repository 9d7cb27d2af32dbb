#include <algorithm>
#include <string>

#include "platform/spread/grid_state.h"
#include "platform/win/controls/edit_control.h"
#include "platform/win/controls/painting.h"
#include "platform/win/windows/window_api.h"

namespace kovra::spread {
namespace {

constexpr LONG kTextMargin = 3;

void fill(HDC context, const RECT& place, int color) {
  FillRect(context, &place, GetSysColorBrush(color));
}

void text(HDC context, const std::wstring& shown, RECT place, UINT format) {
  place.left += kTextMargin;
  DrawTextW(context, shown.c_str(), static_cast<int>(shown.size()), &place,
            format | DT_VCENTER | DT_SINGLELINE);
}

/// A frame inside the place's edges.
void frame(HDC context, const RECT& place, LONG width, int color) {
  const auto& [left, top, right, bottom] = place;
  fill(context, {left, top, right, top + width}, color);
  fill(context, {left, bottom - width, right, bottom}, color);
  fill(context, {left, top, left + width, bottom}, color);
  fill(context, {right - width, top, right, bottom}, color);
}

/// A, B ... Z, AA, AB ...
std::wstring columnName(LONG col) {
  std::wstring name;
  for (; col > 0; col = (col - 1) / 26)
    name.insert(name.begin(), static_cast<wchar_t>(L'A' + (col - 1) % 26));
  return name;
}

std::wstring headerText(const GridState& grid, LONG col, LONG row) {
  const std::wstring& own = grid.cells.text(col, row);
  if (!own.empty()) return own;
  if (row == 0) return columnName(col);
  return std::to_wstring(row);
}

/// A cell with the lines at its right and lower edge.
void cell(HDC context, const GridState& grid, LONG col, LONG row) {
  const RECT place = grid.layout.placeOf(col, row);
  if (place.right <= place.left) return;
  const bool header = col == 0 || row == 0;
  const auto& block = grid.selection.block;
  const bool active = col == grid.selection.active.col && row == grid.selection.active.row;
  const bool selected = !header && !active && block && holds(*block, {col, row});
  fill(context, place, header ? COLOR_BTNFACE : selected ? COLOR_HIGHLIGHT : COLOR_WINDOW);
  fill(context, {place.right - 1, place.top, place.right, place.bottom}, COLOR_3DLIGHT);
  fill(context, {place.left, place.bottom - 1, place.right, place.bottom}, COLOR_3DLIGHT);
  const std::wstring shown = header ? headerText(grid, col, row) : grid.cells.shown(col, row);
  const bool edited = active && grid.editor != nullptr;
  if (!shown.empty() && !edited) text(context, shown, place, header ? DT_CENTER : 0);
}

LONG widthOfText(HDC context, std::wstring_view part) {
  RECT place{};
  const std::wstring measured(part);
  DrawTextW(context, measured.c_str(), static_cast<int>(measured.size()), &place, DT_CALCRECT);
  return place.right;
}

/// The open editor with its selection or caret.
void editor(HDC context, const GridState& grid, const RECT& place) {
  const auto* field = win::stateOf<win::EditState>(grid.editor);
  if (field == nullptr) return;
  const std::wstring_view all = field->edit.text();
  const LONG start = place.left + kTextMargin;
  const LONG from = start + widthOfText(context, all.substr(0, field->edit.from()));
  const LONG to = start + widthOfText(context, all.substr(0, field->edit.to()));
  fill(context, place, COLOR_WINDOW);
  fill(context, {from, place.top + 3, std::max(to, from + 1), place.bottom - 3},
       to > from ? COLOR_HIGHLIGHT : COLOR_WINDOWTEXT);
  text(context, std::wstring(all), place, 0);
}

void scrollBar(HDC context, const GridState& grid) {
  const GridLayout& layout = grid.layout;
  const RECT area = layout.cellsArea();
  const RECT bar{area.right, 0, layout.client.cx, layout.client.cy};
  fill(context, bar, COLOR_BTNFACE);
  const LONG rows = std::max<LONG>(1, layout.rows);
  if (rows <= layout.pageRows()) return;
  constexpr LONG kLeastThumb = 12;
  const LONG room = bar.bottom - bar.top;
  const LONG height = std::min(room, std::max(kLeastThumb, room * layout.pageRows() / rows));
  const double part = static_cast<double>(layout.topRow - 1) / (rows - layout.pageRows());
  const auto top = static_cast<LONG>((room - height) * std::min(1.0, part));
  fill(context, {bar.left + 3, top, bar.right - 3, top + height}, COLOR_BTNSHADOW);
}

}  // namespace

void paint(HWND window) {
  GridState& grid = *gridOf(window);
  const GridLayout& layout = grid.updated(window);
  PAINTSTRUCT paint{};
  HDC context = BeginPaint(window, &paint);
  fill(context, paint.rcPaint, COLOR_BTNFACE);
  const LONG lastRow = std::min(layout.rows, layout.topRow + layout.client.cy / layout.kRowHeight);
  for (LONG row = 0; row <= lastRow; row = row == 0 ? layout.topRow : row + 1) {
    cell(context, grid, 0, row);
    for (LONG col = layout.leftColumn; col <= layout.columns; ++col) {
      const RECT place = layout.placeOf(col, row);
      if (place.right <= place.left) break;
      cell(context, grid, col, row);
    }
  }
  const RECT active = layout.placeOf(grid.selection.active.col, grid.selection.active.row);
  if (active.right > active.left) {
    editor(context, grid, active);
    frame(context, active, 2, grid.editor != nullptr ? COLOR_HOTLIGHT : COLOR_WINDOWTEXT);
  }
  if (layout.scrollBar) scrollBar(context, grid);
  EndPaint(window, &paint);
}

}  // namespace kovra::spread
