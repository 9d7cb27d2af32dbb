#include <algorithm>

#include "host/picture/dialog_parts.h"
#include "platform/win/controls/list_control.h"

namespace kovra::host {
namespace {

constexpr Rgb kSelected{204, 232, 255};
constexpr Rgb kHeadingInk{76, 96, 122};
constexpr double kHeadingIndent = 6;

}  // namespace

/// A list view: the headings, the rows in sight, their check boxes.
void DialogDraw::list(const Control& control) {
  const bool enabled = control.listing.enabled;
  box(control.box, enabled ? kWhite : kFace,
      !enabled          ? kPaleEdge
      : control.focused ? kAccent
                        : kEdge);
  const auto* state = win::stateOf<win::ListState>(control.listing.window);
  if (state == nullptr) return;
  const Bounds client = onPicture(win::clientOnScreen(control.listing.window));
  const win::ListLayout layout = win::ListLayout::of(control.listing.window, *state);
  const auto inside = [&](const RECT& place) {
    return Bounds{client.left + place.left, client.top + place.top,
                  std::min(client.right, client.left + place.right),
                  std::min(client.bottom, client.top + place.bottom)};
  };
  double left = client.left;
  for (const win::ListState::Column& column : state->columns) {
    if (layout.header == 0) break;
    const double right = left + column.width;
    const Bounds heading{left + kHeadingIndent, client.top, std::min(right, client.right),
                         client.top + layout.header};
    text(column.heading, heading, Align::kLeft, enabled ? kHeadingInk : kGrayInk, false);
    if (right < client.right)
      line({right - 0.5, client.top}, {right - 0.5, client.top + layout.header}, kGroupEdge);
    left = right;
  }
  const int last = std::min(static_cast<int>(state->rows.size()), state->top + layout.page);
  for (int row = state->top; row < last; ++row) {
    if (control.listing.selected == row && enabled) {
      Path ground;
      const Bounds place = inside(layout.row(*state, row));
      ground.box(place.left, place.top, place.right, place.bottom);
      canvas_.fill(ground, kSelected);
    }
    if (state->hasCheckBoxes()) {
      const Bounds mark = inside(layout.checkBox(*state, row));
      checkBox({mark.left, mark.top}, state->isChecked(row) ? 1 : 0, enabled);
    }
    for (int column = 0; static_cast<std::size_t>(column) < state->columns.size(); ++column)
      text(state->text(row, column), inside(layout.cell(*state, row, column)), Align::kLeft,
           control.ink(), false);
  }
}

}  // namespace kovra::host
