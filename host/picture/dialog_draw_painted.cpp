// Controls that paint themselves, and tabs.
#include <optional>

#include "host/picture/dialog_parts.h"
#include "platform/win/controls/painting.h"
#include "platform/win/controls/tab_control.h"
#include "platform/win/windows/window_api.h"

namespace kovra::host {
namespace {

/// The colors that the desktop gives; nothing for those that aren't seen.
std::optional<Rgb> desktopColor(int color) {
  switch (color) {
    case COLOR_WINDOW:
      return kWhite;
    case COLOR_WINDOWTEXT:
      return kInk;
    case COLOR_HIGHLIGHT:
      return kPressed;
    case COLOR_HOTLIGHT:
      return kAccent;
    case COLOR_BTNFACE:
      return kFace;
    case COLOR_BTNSHADOW:
      return kEdge;
    case COLOR_3DLIGHT:
      return kGroupEdge;
    default:
      return std::nullopt;
  }
}

}  // namespace

/// Carries out what the control or its program paints.
void DialogDraw::ownDrawn(const Control& control) {
  const bool enabled = control.listing.enabled;
  const Bounds client = onPicture(win::clientOnScreen(control.listing.window));
  for (const win::PaintStep& step : win::paintWindow(control.listing.window)) {
    const Bounds place{client.left + step.place.left, client.top + step.place.top,
                       client.left + step.place.right, client.top + step.place.bottom};
    switch (step.kind) {
      case win::PaintStep::Kind::themePart:
        button(place, step.state != PBS_DISABLED, step.state == PBS_PRESSED,
               step.state == PBS_DEFAULTED || step.state == PBS_HOT);
        break;
      case win::PaintStep::Kind::frame:
        button(place, (step.state & DFCS_INACTIVE) == 0, (step.state & DFCS_PUSHED) != 0, false);
        break;
      case win::PaintStep::Kind::icon:
        icon(step.icon, place.left, place.top, enabled);
        break;
      case win::PaintStep::Kind::text: {
        Bounds room = place;
        if ((step.format & DT_VCENTER) == 0) room.bottom = room.top + kLineHeight;
        text(step.text, room, (step.format & DT_CENTER) != 0 ? Align::kCenter : Align::kLeft,
             control.ink(), true);
        break;
      }
      case win::PaintStep::Kind::fill:
        if (const std::optional<Rgb> color = desktopColor(step.color)) {
          Path path;
          path.box(place.left, place.top, place.right, place.bottom);
          canvas_.fill(path, *color);
        }
        break;
      case win::PaintStep::Kind::focus:
        break;
    }
  }
}

void DialogDraw::grid(const Control& control) {
  box(control.box, kFace, control.focused ? kAccent : kEdge);
  ownDrawn(control);
}

/// The tabs over the frame of their page; the selected one stands out.
void DialogDraw::tabs(const Control& control) {
  const auto* state = win::stateOf<win::TabState>(control.listing.window);
  if (state == nullptr) return;
  const Bounds client = onPicture(win::clientOnScreen(control.listing.window));
  const double top = client.top + win::TabState::kTabHeight + 2;
  box({control.box.left, top, control.box.right, control.box.bottom}, kWhite, kGroupEdge);
  for (int index = 0; index < static_cast<int>(state->tabs.size()); ++index) {
    const bool selected = index == state->selected;
    const RECT tab = state->placeOf(index);
    const double rise = selected ? 2 : 0;
    const Bounds place{client.left + tab.left - rise, client.top + tab.top - rise,
                       client.left + tab.right + rise, top + (selected ? 1 : 0)};
    box(place, selected ? kWhite : kFace, kGroupEdge);
    if (selected) line({place.left + 1, top + 0.5}, {place.right - 1, top + 0.5}, kWhite);
    text(state->tabs[static_cast<std::size_t>(index)].text, place, Align::kCenter, control.ink(),
         true);
  }
}

}  // namespace kovra::host
