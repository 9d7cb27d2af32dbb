#include <algorithm>

#include "platform/win/controls/list_control.h"

namespace kovra::win {
namespace {

constexpr int kHeaderHeight = 24;
constexpr int kRowHeight = 17;
constexpr int kTextIndent = 6;
constexpr int kCheckIndent = 4;
/// A check box with the room at both its sides.
constexpr int kCheckRoom = kCheckIndent + ListLayout::kCheckBox + 4;

}  // namespace

ListLayout ListLayout::of(HWND list, const ListState& state) {
  ListLayout layout;
  layout.header = hasStyle(list, LVS_NOCOLUMNHEADER) ? 0 : kHeaderHeight;
  layout.rowHeight = kRowHeight;
  const int room = heightOf(clientOnScreen(list)) - layout.header;
  layout.page = std::max(1, room / kRowHeight);
  for (const ListState::Column& column : state.columns) layout.width += column.width;
  return layout;
}

RECT ListLayout::row(const ListState& state, int row) const {
  const int top = header + (row - state.top) * rowHeight;
  return {0, top, width, top + rowHeight};
}

RECT ListLayout::checkBox(const ListState& state, int row) const {
  RECT box = this->row(state, row);
  box.top += (rowHeight - kCheckBox) / 2;
  box.left = kCheckIndent;
  box.right = box.left + kCheckBox;
  box.bottom = box.top + kCheckBox;
  return box;
}

RECT ListLayout::cell(const ListState& state, int row, int column) const {
  RECT place = this->row(state, row);
  for (int i = 0; i < column; ++i) place.left += state.columns[static_cast<std::size_t>(i)].width;
  place.right = place.left + state.columns[static_cast<std::size_t>(column)].width;
  place.left += column == 0 && state.hasCheckBoxes() ? kCheckRoom : kTextIndent;
  place.right = std::max(place.left, place.right);
  return place;
}

}  // namespace kovra::win
