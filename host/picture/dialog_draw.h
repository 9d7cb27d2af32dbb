#pragma once

#include "host/picture/canvas.h"
#include "platform/win/base/windows_types.h"

namespace kovra::host {

/// Draws windows as a screen would show them. `origin` is the place on the screen that the
/// picture's top left corner shows.
class DialogDraw {
 public:
  DialogDraw(Canvas& canvas, Glyphs& glyphs, POINT origin)
      : canvas_(canvas), glyphs_(glyphs), origin_(origin) {}

  /// A dialog with its frame and its visible controls, as it stands.
  void dialog(HWND window);

 private:
  struct Control;
  enum class Align { kLeft, kCenter };

  Bounds onPicture(const RECT& place) const;
  void control(const Control& control);
  void group(const Control& control);
  void label(const Control& control);
  void pushButton(const Control& control);
  void ownDrawn(const Control& control);
  void mark(const Control& control);
  void field(const Control& control);
  void fieldLines(const Control& control, const Bounds& room);
  void combo(const Control& control);
  void list(const Control& control);
  /// `check` is 0, 1 or 2 (in between).
  void checkBox(Spot corner, int check, bool enabled);
  void arrows(const Control& control);
  void grid(const Control& control);
  void tabs(const Control& control);
  void button(const Bounds& box, bool enabled, bool pressed, bool defaulted);
  void box(const Bounds& box, Rgb inside, Rgb edge);
  void line(Spot from, Spot to, Rgb color, double width = 1);
  void icon(HICON handle, double left, double top, bool enabled);
  /// One line of text in the middle of the room's height, cut at its sides. With `keys` an "&"
  /// underlines the character behind it.
  void text(std::wstring_view text, const Bounds& room, Align align, Rgb color, bool keys);

  Canvas& canvas_;
  Glyphs& glyphs_;
  POINT origin_;
};

/// The visible dialogs, the one on top last.
std::vector<HWND> dialogsToDraw();

}  // namespace kovra::host
