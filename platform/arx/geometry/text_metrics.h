// How long and high a line of text is. docs/text-metrics.md publishes the rules.
#pragma once
#include <array>
#include <optional>
#include <string_view>

#include "platform/arx/base/enums.h"
#include "platform/arx/geometry/geometry.h"

namespace kovra::arx {

/// Advance of a half-width character, in heights, at width factor 1.
inline constexpr double kHalfWidthAdvance = 0.625;
/// Advance of a full-width character (wide or full-width by East Asian width), in heights.
inline constexpr double kFullWidthAdvance = 1.25;
/// From one character of a vertical text to the next, in heights.
inline constexpr double kVerticalAdvance = 1.5;
/// From one line of a multi-line text to the next at spacing factor 1, in heights.
inline constexpr double kLineAdvance = 5.0 / 3.0;
/// The platform's limit of the oblique angle to either side, in degrees.
inline constexpr double kSteepestOblique = 85;

/// How much a line draws. The codes %%c %%d %%p count one character, %%u %%o %%k none, %%nnn one.
struct LineSize {
  double advance = 0;  ///< sum of the advances, in heights at width factor 1
  int characters = 0;  ///< the length of a vertical text
};
LineSize measureLine(std::wstring_view text);
inline double lineAdvance(std::wstring_view text) {
  return measureLine(text).advance;
}

/// A character as it is drawn: what a code stands for, and the strokes that are switched on.
struct TextCharacter {
  wchar_t character = 0;
  double advance = 0;  ///< in heights at width factor 1
  bool under = false;
  bool over = false;
  bool through = false;
};
/// Reads the characters of a line one after another.
class TextCharacters {
 public:
  explicit TextCharacters(std::wstring_view text) : rest_(text) {}
  /// False behind the last one.
  bool next(TextCharacter& character);

 private:
  std::wstring_view rest_;
  TextCharacter strokes_;
};

/// What decides a line's box and place. Points in the text's own plane (OCS), angles in radians.
struct TextShape {
  std::wstring_view text;
  std::optional<LineSize> size;  ///< of the text, if it has been measured
  double height = 0;
  double widthFactor = 1;
  double oblique = 0;
  double rotation = 0;
  bool vertical = false;  ///< by the style
  bool mirroredInX = false;
  bool mirroredInY = false;
  AcDb::TextHorzMode horizontal = AcDb::kTextLeft;
  AcDb::TextVertMode verticalMode = AcDb::kTextBase;
  AcGePoint3d position;   ///< group 10
  AcGePoint3d alignment;  ///< group 11
};

/// Whether the line goes from its position to its alignment point: aligned and fitted ones.
inline bool isBetweenPoints(const TextShape& shape) {
  return shape.horizontal == AcDb::kTextAlign || shape.horizontal == AcDb::kTextFit;
}

/// Where a line is drawn: its box is [0, width] by [bottom, top] along the rotation from the
/// position.
struct TextPlacement {
  AcGePoint3d position;
  double height = 0;
  double widthFactor = 1;
  double rotation = 0;
  double width = 0;
  double bottom = 0;
  double top = 0;
};

/// The position of the line, from its alignment point where it has one. An aligned line takes
/// rotation and height from its two points, a fitted one rotation and width factor; two equal
/// points leave them as they are.
TextPlacement placeText(const TextShape& shape);

/// Where the first character stands and which way the line reads: a mirrored line runs back from
/// its position, between two points from the second one.
struct TextFrame {
  AcGePoint3d origin;
  AcGeVector3d along;  ///< of length 1, as `up`
  AcGeVector3d up;
};
TextFrame textFrame(const TextShape& shape, const TextPlacement& place);
/// The corners of what is drawn, round the box from the origin's side of the base line: the box,
/// slanted by the oblique angle. Of a vertical line, whose characters slant one by one, the box
/// that holds them.
std::array<AcGePoint3d, 4> textCorners(const TextShape& shape, const TextPlacement& place);

/// Whether the alignment point decides the place: any mode but left on the base line.
inline bool usesAlignmentPoint(AcDb::TextHorzMode horizontal, AcDb::TextVertMode vertical) {
  return horizontal != AcDb::kTextLeft || vertical != AcDb::kTextBase;
}

}  // namespace kovra::arx
