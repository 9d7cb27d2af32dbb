#include "host/picture/dialog_draw.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "host/picture/dialog_parts.h"
#include "platform/win/controls/button_control.h"
#include "platform/win/controls/combo_control.h"
#include "platform/win/controls/edit_control.h"
#include "platform/win/controls/static_control.h"
#include "platform/win/controls/up_down_control.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/resources/icon_pixels.h"
#include "platform/win/windows/window_api.h"

namespace kovra::host {
namespace {

/// A caption without the "&" before its access key; where the key is, or npos.
std::wstring withoutKey(std::wstring_view text, std::size_t& key) {
  std::wstring plain;
  key = std::wstring::npos;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'&' && i + 1 < text.size()) {
      ++i;
      if (text[i] != L'&' && key == std::wstring::npos) key = plain.size();
    }
    plain += text[i];
  }
  return plain;
}

Rgb blended(Rgb color, Rgb ground, double opacity) {
  const auto part = [opacity](std::uint8_t top, std::uint8_t below) {
    return static_cast<std::uint8_t>(std::lround(top * opacity + below * (1 - opacity)));
  };
  return {part(color.red, ground.red), part(color.green, ground.green),
          part(color.blue, ground.blue)};
}

}  // namespace

Bounds DialogDraw::onPicture(const RECT& place) const {
  return {static_cast<double>(place.left - origin_.x), static_cast<double>(place.top - origin_.y),
          static_cast<double>(place.right - origin_.x),
          static_cast<double>(place.bottom - origin_.y)};
}

void DialogDraw::box(const Bounds& box, Rgb inside, Rgb edge) {
  Path path;
  path.box(box.left + 0.5, box.top + 0.5, box.right - 0.5, box.bottom - 0.5);
  canvas_.fill(path, inside);
  canvas_.stroke(path, edge);
}

void DialogDraw::line(Spot from, Spot to, Rgb color, double width) {
  Path path;
  path.moveTo(from);
  path.lineTo(to);
  canvas_.stroke(path, color, width);
}

void DialogDraw::text(std::wstring_view given, const Bounds& room, Align align, Rgb color,
                      bool keys) {
  std::size_t key = std::wstring::npos;
  const std::wstring shown = keys ? withoutKey(given, key) : std::wstring(given);
  if (shown.empty()) return;
  // Lines of the font are this much higher than its size; the base line lies that far down in them.
  constexpr double kLineSpacing = 1.2, kBaseLine = 0.78;
  const double scale = kLineHeight / kLineSpacing / Glyphs::kDialogFontSize;
  std::vector<PlacedGlyph> placed;
  std::vector<double> ends = {0};
  for (const wchar_t c : shown) {
    double advance = 0;
    placed.push_back({&glyphs_.inDialog(c, advance), ends.back()});
    ends.push_back(ends.back() + advance);
  }
  // The machine's font may be wider than what dialogs are measured with.
  const double natural = ends.back() * scale;
  const double stretch = natural > 0 ? scale * std::min(1.0, measured(shown) / natural) : scale;
  const double width = ends.back() * stretch;
  const double indent = std::max(0.0, (room.right - room.left - width) / 2);
  const double left = room.left + (align == Align::kCenter ? indent : 0);
  const double base = (room.top + room.bottom - kLineHeight) / 2 + kLineHeight * kBaseLine;
  const bool cut = left + width > room.right || kLineHeight > room.bottom - room.top;
  if (cut) canvas_.beginClip(room);
  canvas_.glyphs(shown, placed, {stretch, 0, 0, scale, left, base}, color);
  if (key < shown.size())
    line({left + ends[key] * stretch, base + 1.5}, {left + ends[key + 1] * stretch, base + 1.5},
         color);
  if (cut) canvas_.endClip();
}

void DialogDraw::icon(HICON handle, double left, double top, bool enabled) {
  const win::IconPixels image = win::iconPixels(handle);
  // The pixels of one color are one shape, a box for each run of them.
  std::map<std::uint32_t, std::pair<Rgb, Path>> shapes;
  for (int row = 0; row < image.height; ++row)
    for (int column = 0; column < image.width;) {
      const win::IconPixel& pixel = image.at(column, row);
      int end = column + 1;
      while (end < image.width && image.at(end, row) == pixel) ++end;
      const double strength = pixel.opacity / 255.0 * (enabled ? 1 : 0.4);
      const Rgb color = blended({pixel.red, pixel.green, pixel.blue}, kButton, strength);
      auto& [seen, shape] =
          shapes[(std::uint32_t{color.red} << 16) | (std::uint32_t{color.green} << 8) | color.blue];
      seen = color;
      if (pixel.opacity != 0) shape.box(left + column, top + row, left + end, top + row + 1);
      column = end;
    }
  for (const auto& [number, shape] : shapes) canvas_.fill(shape.second, shape.first);
}

void DialogDraw::group(const Control& control) {
  const Bounds& box = control.box;
  const double top = box.top + kLineHeight / 2;
  std::size_t key = 0;
  const std::wstring caption = withoutKey(control.listing.text, key);
  constexpr double kIndent = 9;
  Path path;
  path.box(box.left + 0.5, top + 0.5, box.right - 0.5, box.bottom - 0.5);
  canvas_.stroke(path, kGroupEdge);
  if (caption.empty()) return;
  const Bounds place{box.left + kIndent, box.top,
                     std::min(box.right, box.left + kIndent + measured(caption)),
                     box.top + kLineHeight};
  Path cleared;
  cleared.box(place.left - 2, place.top, place.right + 2, place.bottom);
  canvas_.fill(cleared, kFace);
  text(control.listing.text, place, Align::kLeft, control.ink(), true);
}

void DialogDraw::label(const Control& control) {
  if (const auto* state = win::stateOf<win::StaticState>(control.listing.window);
      state != nullptr && state->icon != nullptr)
    return icon(state->icon, control.box.left, control.box.top, control.listing.enabled);
  Bounds room = control.box;
  room.bottom = std::max(room.top + kLineHeight, std::min(room.bottom, room.top + kLineHeight));
  const bool keys = (control.style & SS_NOPREFIX) == 0;
  text(control.listing.text, room, Align::kLeft, control.ink(), keys);
}

void DialogDraw::button(const Bounds& at, bool enabled, bool pressed, bool defaulted) {
  const Rgb edge = pressed || defaulted ? kAccent
                   : enabled            ? Rgb{173, 173, 173}
                                        : Rgb{191, 191, 191};
  box(at, pressed ? kPressed : enabled ? kButton : kPaleEdge, edge);
}

void DialogDraw::pushButton(const Control& control) {
  if (win::buttonKind(control.listing.window) == BS_OWNERDRAW) return ownDrawn(control);
  const bool defaulted = win::buttonKind(control.listing.window) == BS_DEFPUSHBUTTON;
  button(control.box, control.listing.enabled, false, defaulted && control.listing.enabled);
  const auto* state = win::stateOf<win::ButtonState>(control.listing.window);
  if (state != nullptr && state->icon != nullptr) {
    const win::IconPixels image = win::iconPixels(state->icon);
    return icon(state->icon, (control.box.left + control.box.right - image.width) / 2,
                (control.box.top + control.box.bottom - image.height) / 2, control.listing.enabled);
  }
  text(control.listing.text, control.box, Align::kCenter, control.ink(), true);
}

void DialogDraw::checkBox(Spot corner, int check, bool enabled) {
  const auto [left, top] = corner;
  const Rgb ink = enabled ? kInk : kGrayInk;
  box({left, top, left + kCheckBox, top + kCheckBox}, kWhite, enabled ? kMarkEdge : kPaleEdge);
  if (check == 1) {
    Path tick;
    tick.moveTo({left + 3, top + 6.5});
    tick.lineTo({left + 5.5, top + 9});
    tick.lineTo({left + 10, top + 3.5});
    canvas_.stroke(tick, ink, 1.6);
  } else if (check == 2) {
    Path between;
    between.box(left + 3, top + 3, left + 10, top + 10);
    canvas_.fill(between, ink);
  }
}

/// Check boxes and radios.
void DialogDraw::mark(const Control& control) {
  constexpr double kMark = kCheckBox, kGap = 4;
  const bool radio = control.listing.kind == "radio";
  const double top = (control.box.top + control.box.bottom - kMark) / 2;
  const double left = control.box.left;
  const Spot middle{left + kMark / 2, top + kMark / 2};
  const Rgb edge = control.listing.enabled ? kMarkEdge : kPaleEdge;
  const auto disc = [&](double radius) {
    const double reach = radius * 0.5523;  // a quarter turn as a cubic curve
    Path path;
    path.moveTo({middle.x + radius, middle.y});
    const Spot axes[] = {{0, 1}, {-1, 0}, {0, -1}, {1, 0}};
    Spot from{1, 0};
    for (const Spot to : axes) {
      path.curveTo(
          {middle.x + from.x * radius + to.x * reach, middle.y + from.y * radius + to.y * reach},
          {middle.x + to.x * radius + from.x * reach, middle.y + to.y * radius + from.y * reach},
          {middle.x + to.x * radius, middle.y + to.y * radius});
      from = to;
    }
    return path;
  };
  if (radio) {
    canvas_.fill(disc(kMark / 2), kWhite);
    canvas_.stroke(disc(kMark / 2 - 0.5), edge);
    if (control.listing.check == 1) canvas_.fill(disc(3.5), control.ink());
  } else {
    checkBox({left, top}, *control.listing.check, control.listing.enabled);
  }
  Bounds room = control.box;
  room.left += kMark + kGap;
  text(control.listing.text, room, Align::kLeft, control.ink(), true);
}

void DialogDraw::fieldLines(const Control& control, const Bounds& room) {
  constexpr double kLineStep = kLineHeight;
  const bool lines = (control.style & ES_MULTILINE) != 0;
  std::wstring_view rest = control.listing.text;
  Bounds at = room;
  while (lines) {
    const std::size_t end = std::min(rest.find(L"\r\n"), rest.size());
    at.bottom = at.top + kLineStep;
    text(rest.substr(0, end), at, Align::kLeft, control.ink(), false);
    if (end == rest.size() || at.bottom > room.bottom) return;
    rest.remove_prefix(end + 2);
    at.top = at.bottom;
  }
  text(rest, room, Align::kLeft, control.ink(), false);
}

void DialogDraw::field(const Control& control) {
  constexpr double kBar = 17;
  const bool writable = control.listing.enabled && (control.style & ES_READONLY) == 0;
  box(control.box, writable ? kWhite : kFace,
      !control.listing.enabled ? kPaleEdge
      : control.focused        ? kAccent
                               : kEdge);
  Bounds room = control.box;
  room.left += 4;
  room.right -= 3;
  if ((control.style & WS_VSCROLL) != 0) {
    box({control.box.right - kBar, control.box.top + 1, control.box.right - 1,
         control.box.bottom - 1},
        kFace, kFace);
    room.right -= kBar;
  }
  if ((control.style & ES_MULTILINE) != 0) room.top += 2;
  fieldLines(control, room);
}

void DialogDraw::combo(const Control& control) {
  constexpr double kArrowRoom = 17;
  const auto* state = win::stateOf<win::ComboState>(control.listing.window);
  const bool list = state != nullptr && state->field == nullptr;
  const bool enabled = control.listing.enabled;
  const Rgb inside = !enabled ? (list ? kPaleEdge : kFace) : list ? kButton : kWhite;
  box(control.box, inside, !enabled ? kPaleEdge : control.focused ? kAccent : kEdge);
  Bounds room = control.box;
  room.left += 4;
  room.right -= kArrowRoom;
  text(control.listing.text, room, Align::kLeft, control.ink(), false);
  const Spot middle{control.box.right - kArrowRoom / 2, (control.box.top + control.box.bottom) / 2};
  Path arrow;
  arrow.moveTo({middle.x - 3.5, middle.y - 2});
  arrow.lineTo({middle.x, middle.y + 1.5});
  arrow.lineTo({middle.x + 3.5, middle.y - 2});
  canvas_.stroke(arrow, control.ink(), 1.2);
}

/// The two arrows of an up-down.
void DialogDraw::arrows(const Control& control) {
  const bool sideways = (control.style & UDS_HORZ) != 0;
  const Spot middle{(control.box.left + control.box.right) / 2,
                    (control.box.top + control.box.bottom) / 2};
  for (const bool up : {true, false}) {
    Bounds half = control.box;
    if (sideways) {
      (up ? half.left : half.right) = std::floor(middle.x);
    } else {
      (up ? half.bottom : half.top) = std::floor(middle.y);
    }
    button(half, control.listing.enabled, false, false);
    const Spot at{(half.left + half.right) / 2, (half.top + half.bottom) / 2};
    const double reach = up ? 1.5 : -1.5;
    Path arrow;
    if (sideways) {
      arrow.moveTo({at.x - reach, at.y - 3});
      arrow.lineTo({at.x + reach, at.y});
      arrow.lineTo({at.x - reach, at.y + 3});
    } else {
      arrow.moveTo({at.x - 3, at.y + reach});
      arrow.lineTo({at.x, at.y - reach});
      arrow.lineTo({at.x + 3, at.y + reach});
    }
    canvas_.fill(arrow, control.ink());
  }
}

void DialogDraw::control(const Control& control) {
  using Draw = void (DialogDraw::*)(const Control&);
  static const std::map<std::string_view, Draw> kKinds = {
      {"group", &DialogDraw::group}, {"label", &DialogDraw::label},
      {"icon", &DialogDraw::label},  {"button", &DialogDraw::pushButton},
      {"check", &DialogDraw::mark},  {"radio", &DialogDraw::mark},
      {"edit", &DialogDraw::field},  {"combo", &DialogDraw::combo},
      {"list", &DialogDraw::list},   {"spin", &DialogDraw::arrows},
      {"grid", &DialogDraw::grid},   {"tabs", &DialogDraw::tabs},
  };
  const auto draw = kKinds.find(control.listing.kind);
  if (draw != kKinds.end()) return (this->*draw->second)(control);
  box(control.box, kWhite, kEdge);
  text(control.listing.text, control.box, Align::kCenter, control.ink(), false);
}

void DialogDraw::dialog(HWND window) {
  const win::DialogListing listing = win::listDialog(window);
  const Bounds outer = onPicture(listing.place);
  const Bounds client = onPicture(win::clientOnScreen(window));
  box(outer, kFace, Rgb{100, 100, 100});
  if (win::hasStyle(window, WS_CAPTION)) {
    Path bar;
    bar.box(outer.left + 1, outer.top + 1, outer.right - 1, client.top);
    canvas_.fill(bar, kCaption);
    const double close = client.top - outer.top;
    text(listing.title, {outer.left + 9, outer.top, outer.right - close, client.top}, Align::kLeft,
         kInk, false);
    const Spot middle{outer.right - close / 2 - 2, (outer.top + client.top) / 2};
    constexpr double kArm = 4.5;
    if (win::hasStyle(window, WS_SYSMENU)) {
      line({middle.x - kArm, middle.y - kArm}, {middle.x + kArm, middle.y + kArm}, kInk);
      line({middle.x - kArm, middle.y + kArm}, {middle.x + kArm, middle.y - kArm}, kInk);
    }
  }
  // Frames lie below what they hold, whatever their place in the tab order.
  for (const bool frames : {true, false})
    for (const win::ControlListing& entry : listing.controls) {
      const bool frame = entry.kind == "group" || entry.kind == "tabs";
      if (!entry.visible || frame != frames) continue;
      Control shown{entry, 0, onPicture(win::screenPlace(entry.window)), false};
      if (const win::Window* record = win::findWindow(entry.window)) shown.style = record->style;
      shown.focused = entry.id != 0 && entry.id == listing.focusId;
      control(shown);
    }
}

std::vector<HWND> dialogsToDraw() {
  std::vector<HWND> dialogs;
  for (const HWND window : win::topLevelWindows())
    if (win::isDialog(window) && IsWindowVisible(window) && !IsIconic(window))
      dialogs.push_back(window);
  std::reverse(dialogs.begin(), dialogs.end());
  return dialogs;
}

}  // namespace kovra::host
