// What the display list keeps of a drawing: lines, arcs, faces and texts in world coordinates.
#pragma once
#include <QRgb>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/arx/geometry/geometry.h"
#include "platform/arx/geometry/gi.h"

namespace kovra::desktop {

/// A place or a vector, seen from above.
struct Spot {
  double x = 0;
  double y = 0;
  bool operator==(const Spot&) const = default;
};

/// A rectangle along the axes; empty at the start.
struct Box {
  double left = std::numeric_limits<double>::infinity();
  double bottom = std::numeric_limits<double>::infinity();
  double right = -std::numeric_limits<double>::infinity();
  double top = -std::numeric_limits<double>::infinity();

  bool isEmpty() const { return left > right; }
  double width() const { return right - left; }
  double height() const { return top - bottom; }
  void add(Spot spot);
  void add(const Box& other);
  bool touches(const Box& other) const {
    return left <= other.right && right >= other.left && bottom <= other.top && top >= other.bottom;
  }
  Box grownBy(double margin) const {
    return {left - margin, bottom - margin, right + margin, top + margin};
  }
};

enum class CurveKind : std::uint8_t {
  kChain,  ///< straight pieces from point to point; a single point is a dot
  kFace,   ///< filled, closed from the last point to the first
  kArc     ///< four points: center, the vector to its start, the one a quarter further, {sweep, 0}
};

struct Curve {
  std::uint32_t firstPoint = 0;
  std::uint32_t points = 0;
  QRgb color = 0;
  CurveKind kind = CurveKind::kChain;
  bool operator==(const Curve&) const = default;
};

/// A line of text. Its cell goes from the origin `advance` times `along` and once `up`.
struct TextLine {
  Spot origin;
  Spot along;  ///< a text height to the right, with the width factor
  Spot up;
  float advance = 0;
  QRgb color = 0;
  std::uint32_t firstCharacter = 0;
  std::uint32_t characters = 0;
  bool operator==(const TextLine&) const = default;
};

/// Where the curves and the texts of one entity are among others'.
struct ShapeRange {
  std::uint32_t firstCurve = 0;
  std::uint32_t curves = 0;
  std::uint32_t firstText = 0;
  std::uint32_t texts = 0;
};

struct Shapes {
  std::vector<Spot> points;
  std::vector<Curve> curves;
  std::vector<TextLine> texts;
  std::wstring characters;

  bool operator==(const Shapes&) const = default;
  void clear();
  ShapeRange all() const {
    return {0, static_cast<std::uint32_t>(curves.size()), 0,
            static_cast<std::uint32_t>(texts.size())};
  }
  std::wstring_view text(const TextLine& line) const {
    return std::wstring_view(characters).substr(line.firstCharacter, line.characters);
  }
  /// Around everything in a range.
  Box boxOf(const ShapeRange& range) const;
};

/// How far some shapes are shifted from others; nothing when they differ in something else.
std::optional<Spot> wayBetween(const Shapes& from, const Shapes& to);

/// The corners of a text's cell, going round.
struct TextCell {
  Spot corners[4];
};
TextCell cellOf(const TextLine& text);

/// The ground that drawings are shown on.
inline constexpr QRgb kGround = 0xff212830;
/// A color on that ground: what is white by its index, and what could hardly be told from the
/// ground, is white.
QRgb inkColor(const AcCmEntityColor& color);

/// A context whose drawing goes to the end of some shapes. What lies nowhere or so far away that no
/// digits are left is left out.
class ShapeWriter : public AcGiWorldDraw {
 public:
  explicit ShapeWriter(Shapes& shapes);
  ~ShapeWriter() override;
  AcGiGeometry& geometry() const override;
  AcGiSubEntityTraits& subEntityTraits() const override;

 private:
  class Geometry;
  class Traits;
  std::unique_ptr<Traits> traits_;
  std::unique_ptr<Geometry> geometry_;
};

}  // namespace kovra::desktop
