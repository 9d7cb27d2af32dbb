#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/picture/path.h"

namespace kovra::host {

/// The outline of a character. In drawings it lies in the cell that the text metrics give it: x
/// from 0 to 100 times the advance, y up from the base line at 0 to 100 at the text height.
struct Glyph {
  std::string name;  ///< no other glyph has it
  Path outline;      ///< empty of a blank
};

inline constexpr double kGlyphUnits = 100;  ///< to a text height

struct PlacedGlyph {
  const Glyph* glyph;
  double x;  ///< of the cell's left side, in the glyph's units
};

/// Where letters of a line need room that the cell doesn't have: below the base line, as "g" does,
/// and above the text height, as capitals with accents do. All letters of such a line are made
/// lower.
struct LineRoom {
  bool below = false;
  bool above = false;
  LineRoom operator|(LineRoom other) const { return {below || other.below, above || other.above}; }
  /// Any order, for use as a key.
  bool operator<(LineRoom other) const {
    return below != other.below ? other.below : !above && other.above;
  }
};

/// Outlines from the fonts of the machine. They are made to fit, so that texts stand where their
/// metrics say with whatever fonts; a character that no font has is a box.
class Glyphs {
 public:
  Glyphs();
  ~Glyphs();
  Glyphs(const Glyphs&) = delete;
  Glyphs& operator=(const Glyphs&) = delete;

  /// What the character needs in a cell of this advance in text heights.
  LineRoom roomFor(wchar_t character, double advance);
  /// For a cell of this advance in a line with this room. The glyph lives as long as this object.
  const Glyph& of(wchar_t character, double advance, LineRoom room);

  /// A character in the letters of dialogs: x from 0, y down from the base line, in a font of this
  /// many units. `advance` is to the next one.
  static constexpr double kDialogFontSize = 100;
  const Glyph& inDialog(wchar_t character, double& advance);

 private:
  class Fonts;

  std::unique_ptr<Fonts> fonts_;
};

}  // namespace kovra::host
