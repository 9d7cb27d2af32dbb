#include "host/picture/glyphs.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <tuple>
#include <utility>

#include "host/picture/font_outlines.h"
#include "platform/arx/geometry/text_metrics.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

/// Width for its height, clear letters; what they lack comes from the machine's other fonts.
constexpr const char* kDrawingFont =
    "DejaVu Sans Mono, VL Gothic, Noto Sans Mono CJK JP, monospace";
constexpr const char* kDialogFont = "DejaVu Sans, VL PGothic, Noto Sans CJK JP, sans-serif";
/// How much of its cell a full-width character takes.
constexpr double kFullWidthInk = 0.92;
constexpr double kFullWidthHeight = 0.96;

bool isDrawable(wchar_t c) {
  return c > L' ' && c != 0x3000 && !(c >= 0x7f && c <= 0xa0);
}

std::string hexadecimal(wchar_t character) {
  std::array<char, 8> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                 static_cast<std::uint32_t>(character), 16);
  return {digits.data(), end.ptr};
}

/// Brings ink that reaches out of [0, room] inside: moved if that is enough, else made smaller.
std::pair<double, double> fitAxis(double from, double to, double room) {
  const double scale = to - from > room ? room / (to - from) : 1;
  double shift = 0;
  if (from * scale < 0) shift = -from * scale;
  if (to * scale + shift > room) shift = room - to * scale;
  return {scale, shift};
}

}  // namespace

class Glyphs::Fonts {
 public:
  Fonts();
  LineRoom roomFor(wchar_t character, bool full);
  const Glyph& of(wchar_t character, bool full, LineRoom room);
  const Glyph& inDialog(wchar_t character, double& advance);

 private:
  struct DialogGlyph {
    Glyph glyph;
    double advance = 0;
  };
  struct Cell {
    Path ink;  ///< not brought into the cell yet
    LineRoom room;
  };
  const Cell& cell(wchar_t character, bool full);
  Glyph make(wchar_t character, bool full, LineRoom room);

  FontOutlines drawing_{kDrawingFont};
  FontOutlines dialog_{kDialogFont};
  Affine half_;  ///< from the font's coordinates to the cell's
  Affine full_;
  double below_ = 0;  ///< how far letters reach below the base line, and above the text height
  double above_ = 0;
  std::map<std::pair<wchar_t, bool>, Cell> cells_;
  std::map<std::tuple<wchar_t, bool, LineRoom>, Glyph> glyphs_;
  std::map<wchar_t, DialogGlyph> dialogGlyphs_;
};

/// A half-width cell is as wide as the font's own advance and as high as its capital letters; a
/// full-width one is filled by the ink of a character that fills its square.
Glyphs::Fonts::Fonts() {
  constexpr double kHalf = arx::kHalfWidthAdvance * kGlyphUnits;
  constexpr double kFull = arx::kFullWidthAdvance * kGlyphUnits;
  const Bounds capital = drawing_.outline("H").bounds();
  const double across = drawing_.advance("0");
  if (!capital.isEmpty() && capital.top < 0 && across > 0)
    half_ = {kHalf / across, 0, 0, kGlyphUnits / capital.top, 0, 0};
  Path tall;
  tall.append(drawing_.outline("gjpqy\xc3\x85\xc3\x9c"), half_);
  if (!tall.isEmpty()) {
    below_ = std::max(0.0, -tall.bounds().top);
    above_ = std::max(0.0, tall.bounds().bottom - kGlyphUnits);
  }
  const Bounds square = drawing_.outline("\xe5\x9b\xbd").bounds();
  if (square.isEmpty() || square.right <= square.left || square.bottom <= square.top) return;
  const double sx = kFull * kFullWidthInk / (square.right - square.left);
  const double sy = -kGlyphUnits * kFullWidthHeight / (square.bottom - square.top);
  full_ = {sx,
           0,
           0,
           sy,
           kFull / 2 - sx * (square.left + square.right) / 2,
           kGlyphUnits / 2 - sy * (square.top + square.bottom) / 2};
}

const Glyphs::Fonts::Cell& Glyphs::Fonts::cell(wchar_t character, bool full) {
  constexpr double kSlight = 5;  // round letters reach a little beyond flat ones
  const auto [place, isNew] = cells_.try_emplace({character, full});
  Cell& cell = place->second;
  if (!isNew || !isDrawable(character)) return cell;
  cell.ink.append(drawing_.outline(win::toUtf8({&character, 1})), full ? full_ : half_);
  if (full || cell.ink.isEmpty() || !isLetter(static_cast<char32_t>(character))) return cell;
  const Bounds ink = cell.ink.bounds();
  cell.room = {ink.top<-kSlight, ink.bottom> kGlyphUnits + kSlight};
  return cell;
}

LineRoom Glyphs::Fonts::roomFor(wchar_t character, bool full) {
  return cell(character, full).room;
}

Glyph Glyphs::Fonts::make(wchar_t character, bool full, LineRoom room) {
  Glyph glyph;
  glyph.name = room.below ? room.above ? "cyu" : "cy" : room.above ? "cu" : "c";
  glyph.name += hexadecimal(character);
  Path lifted;
  const double below = room.below ? below_ : 0;
  const double scale = kGlyphUnits / (kGlyphUnits + below + (room.above ? above_ : 0));
  lifted.append(cell(character, full).ink, {1, 0, 0, scale, 0, below * scale});
  if (lifted.isEmpty()) return glyph;
  const Bounds ink = lifted.bounds();
  const auto [across, right] = fitAxis(
      ink.left, ink.right, (full ? arx::kFullWidthAdvance : arx::kHalfWidthAdvance) * kGlyphUnits);
  const auto [along, up] = fitAxis(ink.top, ink.bottom, kGlyphUnits);
  glyph.outline.append(lifted, {across, 0, 0, along, right, up});
  return glyph;
}

const Glyph& Glyphs::Fonts::inDialog(wchar_t character, double& advance) {
  const auto [place, isNew] = dialogGlyphs_.try_emplace(character);
  DialogGlyph& known = place->second;
  if (isNew) {
    const std::string text = win::toUtf8({&character, 1});
    known.glyph.name = "d" + hexadecimal(character);
    known.advance = dialog_.advance(text);
    if (isDrawable(character)) known.glyph.outline = dialog_.outline(text);
  }
  advance = known.advance;
  return known.glyph;
}

const Glyph& Glyphs::Fonts::of(wchar_t character, bool full, LineRoom room) {
  if (full) room = {};
  const auto key = std::make_tuple(character, full, room);
  const auto found = glyphs_.find(key);
  return found != glyphs_.end() ? found->second
                                : glyphs_.emplace(key, make(character, full, room)).first->second;
}

Glyphs::Glyphs() : fonts_(std::make_unique<Fonts>()) {}

Glyphs::~Glyphs() = default;

LineRoom Glyphs::roomFor(wchar_t character, double advance) {
  return fonts_->roomFor(character, advance > 1);
}

const Glyph& Glyphs::of(wchar_t character, double advance, LineRoom room) {
  return fonts_->of(character, advance > 1, room);
}

const Glyph& Glyphs::inDialog(wchar_t character, double& advance) {
  return fonts_->inDialog(character, advance);
}

}  // namespace kovra::host
