#include "host/picture/picture_draw.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <string_view>

#include "platform/arx/editor/picks/hit_test.h"
#include "platform/arx/geometry/text_metrics.h"

namespace kovra::host {
namespace {

bool isFinite(const AcGePoint3d& p) {
  // Beyond this a picture would have no digits left for anything else.
  constexpr double kFarthest = 1e15;
  return std::fabs(p.x) < kFarthest && std::fabs(p.y) < kFarthest;
}

/// Where a line of text stands: its axes for one text height along and up, in the world.
struct TextAxes {
  AcGePoint3d origin;
  AcGeVector3d along;
  AcGeVector3d up;
};

TextAxes textAxes(const AcGePoint3d& position, const AcGeVector3d& normal,
                  const AcGeVector3d& direction, double height, double width, double oblique,
                  const AcGeMatrix3d& toWorld) {
  const AcGeVector3d along = direction.normal();
  const AcGeVector3d across = normal.normal().crossProduct(along);
  TextAxes axes{position, along * (height * width), (across + along * std::tan(oblique)) * height};
  axes.origin.transformBy(toWorld);
  axes.along.transformBy(toWorld);
  axes.up.transformBy(toWorld);
  return axes;
}

/// Calls take(center angle pieces) with cubic curves for an arc of radius 1: the pieces turn by at
/// most an eighth, which keeps them within 5 millionths of the radius.
template <class Take>
void forEachArcPiece(double sweep, Take take) {
  constexpr double kLongest = std::numbers::pi / 4;
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::fabs(sweep) / kLongest - 1e-9)));
  const double step = sweep / pieces;
  const double reach = 4.0 / 3.0 * std::tan(step / 4);
  for (int i = 0; i < pieces; ++i) {
    const double from = step * i;
    const double to = step * (i + 1);
    take(AcGePoint3d(std::cos(from) - reach * std::sin(from),
                     std::sin(from) + reach * std::cos(from), 0),
         AcGePoint3d(std::cos(to) + reach * std::sin(to), std::sin(to) - reach * std::cos(to), 0),
         AcGePoint3d(std::cos(to), std::sin(to), 0));
  }
}

/// Consecutive characters of a line, the first one so far from the line's beginning.
struct LinePart {
  std::vector<arx::TextCharacter> characters;
  double x = 0;  ///< in glyph units
};

/// Whether characters are so small that they can't be made out even much enlarged.
bool isTiny(const Affine& matrix) {
  constexpr double kTiny = 0.02;  // pixels
  const double across = std::hypot(matrix.a, matrix.b) * arx::kHalfWidthAdvance;
  return std::min(across, std::hypot(matrix.c, matrix.d)) * kGlyphUnits < kTiny;
}

/// The stroke that stands for a text which is too small.
struct TinyText {
  Spot from;
  Spot to;
  Rgb ink;

  bool covers(Spot spot) const {
    constexpr double kReach = 0.5;  // pixels
    return arx::distanceToSegment({spot.x, spot.y, 0}, {from.x, from.y, 0}, {to.x, to.y, 0}) <=
           kReach;
  }
};

/// Whether nobody would see the color on that ground.
bool isLost(Rgb color, Ground ground) {
  constexpr int kNearWhite = 232;
  constexpr int kNearDark = 60;
  const auto [least, most] = std::minmax({color.red, color.green, color.blue});
  return ground == Ground::kWhite ? least >= kNearWhite : most <= kNearDark;
}

}  // namespace

Rgb groundColor(Ground ground) {
  return ground == Ground::kWhite ? Rgb{255, 255, 255} : Rgb{33, 40, 48};
}

Rgb inkColor(const AcCmEntityColor& color, Ground ground) {
  constexpr Adesk::UInt16 kContrast = 7;
  const bool contrast = color.colorMethod() != AcCmEntityColor::kByColor &&
                        (color.colorIndex() == kContrast || color.isByLayer() || color.isByBlock());
  const Rgb ink{color.red(), color.green(), color.blue()};
  if (!contrast && !isLost(ink, ground)) return ink;
  return ground == Ground::kWhite ? Rgb{0, 0, 0} : Rgb{255, 255, 255};
}

Page pageFor(const AcGePoint3d& low, const AcGePoint3d& high, int size, double margin) {
  constexpr double kNarrowest = 0.05;
  double width = high.x - low.x;
  double height = high.y - low.y;
  double longer = std::max(width, height);
  if (!(longer > 0)) longer = 1;
  const double wanted = longer * kNarrowest;
  const AcGePoint3d middle{(low.x + high.x) / 2, (low.y + high.y) / 2, 0};
  width = std::max(width, wanted) + 2 * margin * longer;
  height = std::max(height, wanted) + 2 * margin * longer;
  Page page;
  page.scale = size / std::max(width, height);
  page.width = std::max(1, static_cast<int>(std::lround(width * page.scale)));
  page.height = std::max(1, static_cast<int>(std::lround(height * page.scale)));
  page.low = {middle.x - page.width / page.scale / 2, middle.y - page.height / page.scale / 2, 0};
  return page;
}

class PictureDraw::Traits : public AcGiSubEntityTraits {
 public:
  explicit Traits(Ground ground) : ground_(ground) { setColor(7); }
  void setColor(Adesk::UInt16 index) override {
    AcCmEntityColor color;
    color.setColorIndex(index);
    setTrueColor(color);
  }
  void setTrueColor(const AcCmEntityColor& color) override { ink_ = inkColor(color, ground_); }
  Rgb ink() const { return ink_; }

 private:
  Ground ground_;
  Rgb ink_;
};

class PictureDraw::Geometry : public arx::TransformedGeometry {
 public:
  Geometry(PictureDraw& owner, Canvas& canvas, Glyphs& glyphs, const Page& page)
      : owner_(owner), canvas_(canvas), glyphs_(glyphs), page_(page) {}

  Adesk::Boolean draw(AcGiDrawable* drawable) const override {
    return drawable != nullptr && drawable->worldDraw(&owner_);
  }
  Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points) const override;
  Adesk::Boolean polygon(Adesk::UInt32 count, const AcGePoint3d* points) const override;
  Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                             const AcGeVector3d& startVector, double sweepAngle,
                             AcGiArcType arcType) const override;
  Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                      const AcGeVector3d& direction, double height, double width, double oblique,
                      const ACHAR* message) const override;
  bool hasInk() const { return hasInk_; }

 private:
  bool chain(Adesk::UInt32 count, const AcGePoint3d* points) const;
  bool isOnPage(const Bounds& box) const;
  void stroke() const;
  bool takeSmallPrint(std::wstring_view message) const;
  void tinyText(Spot from, Spot to) const;
  LinePart partOnPage(std::wstring_view message, const Affine& matrix) const;
  void drawLine(const LinePart& line, const Affine& matrix) const;
  void textStrokes(const LinePart& line, const Affine& matrix) const;

  PictureDraw& owner_;
  Canvas& canvas_;
  Glyphs& glyphs_;
  Page page_;
  mutable Path path_;  ///< storage of the shape in hand
  mutable bool hasInk_ = false;
  mutable std::size_t smallPrintLeft_ = 100000;  ///< characters that nobody can make out
  mutable std::optional<TinyText> lastTiny_;
};

void PictureDraw::Geometry::stroke() const {
  canvas_.stroke(path_, owner_.traits_->ink());
  hasInk_ = true;
}

bool PictureDraw::Geometry::isOnPage(const Bounds& box) const {
  constexpr double kPen = 1;
  return box.touches({-kPen, -kPen, page_.width + kPen, page_.height + kPen});
}

/// Begins a path of these points; false when it lies outside of the page or nowhere.
bool PictureDraw::Geometry::chain(Adesk::UInt32 count, const AcGePoint3d* points) const {
  path_.clear();
  for (Adesk::UInt32 i = 0; i < count; ++i) {
    const AcGePoint3d point = AcGePoint3d(points[i]).transformBy(toWorld());
    if (!isFinite(point)) return false;
    const Spot spot = page_.toPixel(point);
    if (i == 0)
      path_.moveTo(spot);
    else
      path_.lineTo(spot);
  }
  if (count == 1) path_.lineTo(path_.spots().front());
  return isOnPage(path_.bounds());
}

Adesk::Boolean PictureDraw::Geometry::polyline(Adesk::UInt32 count,
                                               const AcGePoint3d* points) const {
  if (chain(count, points)) stroke();
  return true;
}

Adesk::Boolean PictureDraw::Geometry::polygon(Adesk::UInt32 count,
                                              const AcGePoint3d* points) const {
  if (!chain(count, points)) return true;
  path_.close();
  canvas_.fill(path_, owner_.traits_->ink());
  hasInk_ = true;
  return true;
}

Adesk::Boolean PictureDraw::Geometry::circularArc(const AcGePoint3d& center, double radius,
                                                  const AcGeVector3d& normal,
                                                  const AcGeVector3d& startVector,
                                                  double sweepAngle, AcGiArcType) const {
  const AcGeVector3d u = startVector.normal() * radius;
  const AcGeVector3d v = normal.normal().crossProduct(u);
  AcGeMatrix3d axes;
  axes.setCoordSystem(center, u, v, normal.normal());
  const AcGeMatrix3d place = toWorld() * axes;
  bool finite = true;
  const auto spot = [&](AcGePoint3d point) {
    point.transformBy(place);
    finite = finite && isFinite(point);
    return page_.toPixel(point);
  };
  path_.clear();
  path_.moveTo(spot({1, 0, 0}));
  forEachArcPiece(sweepAngle, [&](AcGePoint3d first, AcGePoint3d second, AcGePoint3d to) {
    path_.curveTo(spot(first), spot(second), spot(to));
  });
  if (finite && isOnPage(path_.bounds())) stroke();
  return true;
}

Adesk::Boolean PictureDraw::Geometry::text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                           const AcGeVector3d& direction, double height,
                                           double width, double oblique,
                                           const ACHAR* message) const {
  const TextAxes axes = textAxes(position, normal, direction, height, width, oblique, toWorld());
  if (!isFinite(axes.origin) || !isFinite(axes.along.asPoint()) || !isFinite(axes.up.asPoint()))
    return true;
  const Spot origin = page_.toPixel(axes.origin);
  const double unit = page_.scale / kGlyphUnits;
  const Affine box{axes.along.x * unit,
                   -axes.along.y * unit,
                   axes.up.x * unit,
                   -axes.up.y * unit,
                   origin.x,
                   origin.y};
  const double x = arx::lineAdvance(message) * kGlyphUnits;
  Bounds bounds;
  for (const Spot corner : {Spot{0, 0}, Spot{x, 0}, Spot{0, kGlyphUnits}, Spot{x, kGlyphUnits}})
    bounds.add(box(corner));
  if (!isOnPage(bounds)) return true;
  if (isTiny(box) && !takeSmallPrint(message)) {
    tinyText(box({0, 0}), box({x, 0}));
  } else {
    drawLine(partOnPage(message, box), box);
  }
  return true;
}

bool PictureDraw::Geometry::takeSmallPrint(std::wstring_view message) const {
  if (message.size() > smallPrintLeft_) return false;
  smallPrintLeft_ -= message.size();
  return true;
}

/// A stroke, unless the text lies where the last one did.
void PictureDraw::Geometry::tinyText(Spot from, Spot to) const {
  const Rgb ink = owner_.traits_->ink();
  if (lastTiny_ && lastTiny_->ink == ink && lastTiny_->covers(from) && lastTiny_->covers(to))
    return;
  lastTiny_ = TinyText{from, to, ink};
  path_.clear();
  path_.moveTo(from);
  path_.lineTo(to);
  stroke();
}

/// All of a line, unless it is so long that much of it may lie outside.
LinePart PictureDraw::Geometry::partOnPage(std::wstring_view message, const Affine& matrix) const {
  constexpr std::size_t kLong = 1000;
  Bounds page;
  if (message.size() > kLong)
    for (const Spot corner : {Spot{0, 0}, Spot{1.0 * page_.width, 0}, Spot{0, 1.0 * page_.height},
                              Spot{1.0 * page_.width, 1.0 * page_.height}})
      page.add(matrix.inverse()(corner));
  LinePart part;
  double x = 0;
  arx::TextCharacters characters(message);
  for (arx::TextCharacter c; characters.next(c); x += c.advance * kGlyphUnits) {
    const bool outside = x > page.right || x + c.advance * kGlyphUnits < page.left;
    if (!page.isEmpty() && outside) continue;
    if (part.characters.empty()) part.x = x;
    part.characters.push_back(c);
  }
  return part;
}

void PictureDraw::Geometry::drawLine(const LinePart& line, const Affine& matrix) const {
  std::vector<PlacedGlyph> glyphs;
  std::wstring shown;
  LineRoom room;
  for (const arx::TextCharacter& c : line.characters)
    room = room | glyphs_.roomFor(c.character, c.advance);
  double x = line.x;
  for (const arx::TextCharacter& c : line.characters) {
    glyphs.push_back({&glyphs_.of(c.character, c.advance, room), x});
    hasInk_ = hasInk_ || !glyphs.back().glyph->outline.isEmpty();
    shown += c.character;
    x += c.advance * kGlyphUnits;
  }
  canvas_.glyphs(shown, glyphs, matrix, owner_.traits_->ink());
  textStrokes(line, matrix);
}

/// Lines under, over and through the text, on the edges and in the middle of its box.
void PictureDraw::Geometry::textStrokes(const LinePart& line, const Affine& matrix) const {
  double x = line.x;
  for (const arx::TextCharacter& c : line.characters) {
    const double end = x + c.advance * kGlyphUnits;
    const std::pair<bool, double> strokes[] = {
        {c.under, 0}, {c.over, kGlyphUnits}, {c.through, kGlyphUnits / 2}};
    for (const auto& [drawn, y] : strokes) {
      if (!drawn) continue;
      path_.clear();
      path_.moveTo(matrix({x, y}));
      path_.lineTo(matrix({end, y}));
      stroke();
    }
    x = end;
  }
}

PictureDraw::PictureDraw(Canvas& canvas, Glyphs& glyphs, const Page& page, Ground ground)
    : traits_(std::make_unique<Traits>(ground)),
      geometry_(std::make_unique<Geometry>(*this, canvas, glyphs, page)) {}

PictureDraw::~PictureDraw() = default;

AcGiGeometry& PictureDraw::geometry() const {
  return *geometry_;
}

AcGiSubEntityTraits& PictureDraw::subEntityTraits() const {
  return *traits_;
}

bool PictureDraw::hasInk() const {
  return geometry_->hasInk();
}

}  // namespace kovra::host
