#include "desktop/view/shapes.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/arx/geometry/text_metrics.h"

namespace kovra::desktop {
namespace {

/// Beyond this a view would have no digits left for anything else.
constexpr double kFarthest = 1e15;

bool isNear(Spot spot) {
  return std::fabs(spot.x) < kFarthest && std::fabs(spot.y) < kFarthest;
}

Spot seenFromAbove(const AcGePoint3d& point) {
  return {point.x, point.y};
}

Spot seenFromAbove(const AcGeVector3d& vector) {
  return {vector.x, vector.y};
}

}  // namespace

void Box::add(Spot spot) {
  left = std::min(left, spot.x);
  right = std::max(right, spot.x);
  bottom = std::min(bottom, spot.y);
  top = std::max(top, spot.y);
}

void Box::add(const Box& other) {
  left = std::min(left, other.left);
  right = std::max(right, other.right);
  bottom = std::min(bottom, other.bottom);
  top = std::max(top, other.top);
}

void Shapes::clear() {
  points.clear();
  curves.clear();
  texts.clear();
  characters.clear();
}

TextCell cellOf(const TextLine& text) {
  const Spot end{text.origin.x + text.along.x * static_cast<double>(text.advance),
                 text.origin.y + text.along.y * static_cast<double>(text.advance)};
  return {{text.origin,
           end,
           {end.x + text.up.x, end.y + text.up.y},
           {text.origin.x + text.up.x, text.origin.y + text.up.y}}};
}

Box Shapes::boxOf(const ShapeRange& range) const {
  Box box;
  for (std::uint32_t i = range.firstCurve; i < range.firstCurve + range.curves; ++i) {
    const Curve& curve = curves[i];
    const Spot* at = &points[curve.firstPoint];
    if (curve.kind == CurveKind::kArc) {
      const double across = std::hypot(at[1].x, at[2].x);
      const double along = std::hypot(at[1].y, at[2].y);
      box.add(Spot{at[0].x - across, at[0].y - along});
      box.add(Spot{at[0].x + across, at[0].y + along});
    } else {
      for (std::uint32_t p = 0; p < curve.points; ++p) box.add(at[p]);
    }
  }
  for (std::uint32_t i = range.firstText; i < range.firstText + range.texts; ++i)
    for (const Spot corner : cellOf(texts[i]).corners) box.add(corner);
  return box;
}

std::optional<Spot> wayBetween(const Shapes& from, const Shapes& to) {
  if (from.curves != to.curves || from.texts.size() != to.texts.size() ||
      from.points.size() != to.points.size() || from.characters != to.characters)
    return std::nullopt;
  std::optional<Spot> way;
  const auto shifted = [&](Spot a, Spot b) {
    constexpr double kRounding = 1e-12;
    if (!way) way = Spot{b.x - a.x, b.y - a.y};
    const auto near = [](double at, double other) {
      return std::fabs(at - other) <= kRounding * (1 + std::fabs(at) + std::fabs(other));
    };
    return near(a.x + way->x, b.x) && near(a.y + way->y, b.y);
  };
  for (const Curve& curve : from.curves) {
    const std::size_t first = curve.firstPoint;
    const std::size_t places = curve.kind == CurveKind::kArc ? 1 : curve.points;
    for (std::size_t i = first; i < first + curve.points; ++i)
      if (i < first + places ? !shifted(from.points[i], to.points[i])
                             : from.points[i] != to.points[i])
        return std::nullopt;
  }
  for (std::size_t i = 0; i < from.texts.size(); ++i) {
    TextLine there = from.texts[i];
    if (!shifted(there.origin, to.texts[i].origin)) return std::nullopt;
    there.origin = to.texts[i].origin;
    if (there != to.texts[i]) return std::nullopt;
  }
  return way;
}

QRgb inkColor(const AcCmEntityColor& color) {
  constexpr Adesk::UInt16 kContrast = 7;
  constexpr int kNearDark = 60;
  const bool contrast = color.colorMethod() != AcCmEntityColor::kByColor &&
                        (color.colorIndex() == kContrast || color.isByLayer() || color.isByBlock());
  const int brightest = std::max({int{color.red()}, int{color.green()}, int{color.blue()}});
  if (contrast || brightest <= kNearDark) return qRgb(255, 255, 255);
  return qRgb(color.red(), color.green(), color.blue());
}

class ShapeWriter::Traits : public AcGiSubEntityTraits {
 public:
  void setColor(Adesk::UInt16 index) override {
    AcCmEntityColor color;
    color.setColorIndex(index);
    setTrueColor(color);
  }
  void setTrueColor(const AcCmEntityColor& color) override { ink = inkColor(color); }
  QRgb ink = qRgb(255, 255, 255);
};

class ShapeWriter::Geometry : public arx::TransformedGeometry {
 public:
  Geometry(ShapeWriter& writer, Shapes& shapes) : writer_(writer), shapes_(shapes) {}

  Adesk::Boolean draw(AcGiDrawable* drawable) const override {
    return drawable != nullptr && drawable->worldDraw(&writer_);
  }
  Adesk::Boolean polyline(Adesk::UInt32 count, const AcGePoint3d* points) const override {
    add(CurveKind::kChain, count, points);
    return true;
  }
  Adesk::Boolean polygon(Adesk::UInt32 count, const AcGePoint3d* points) const override {
    add(CurveKind::kFace, count, points);
    return true;
  }
  Adesk::Boolean circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                             const AcGeVector3d& startVector, double sweepAngle,
                             AcGiArcType arcType) const override;
  Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal,
                      const AcGeVector3d& direction, double height, double width, double oblique,
                      const ACHAR* message) const override;

 private:
  void add(CurveKind kind, Adesk::UInt32 count, const AcGePoint3d* points) const;

  ShapeWriter& writer_;
  Shapes& shapes_;
};

void ShapeWriter::Geometry::add(CurveKind kind, Adesk::UInt32 count,
                                const AcGePoint3d* points) const {
  if (count == 0) return;
  Curve curve{static_cast<std::uint32_t>(shapes_.points.size()), count, writer_.traits_->ink, kind};
  for (Adesk::UInt32 i = 0; i < count; ++i) {
    const Spot spot = seenFromAbove(AcGePoint3d(points[i]).transformBy(toWorld()));
    if (!isNear(spot)) {
      shapes_.points.resize(curve.firstPoint);
      return;
    }
    shapes_.points.push_back(spot);
  }
  shapes_.curves.push_back(curve);
}

Adesk::Boolean ShapeWriter::Geometry::circularArc(const AcGePoint3d& center, double radius,
                                                  const AcGeVector3d& normal,
                                                  const AcGeVector3d& startVector,
                                                  double sweepAngle, AcGiArcType) const {
  AcGeVector3d u = startVector.normal() * radius;
  AcGeVector3d v = normal.normal().crossProduct(u);
  const Spot middle = seenFromAbove(AcGePoint3d(center).transformBy(toWorld()));
  const Spot first = seenFromAbove(u.transformBy(toWorld()));
  const Spot quarter = seenFromAbove(v.transformBy(toWorld()));
  if (!isNear(middle) || !isNear(first) || !isNear(quarter) || !std::isfinite(sweepAngle))
    return true;
  shapes_.curves.push_back({static_cast<std::uint32_t>(shapes_.points.size()), 4,
                            writer_.traits_->ink, CurveKind::kArc});
  shapes_.points.insert(shapes_.points.end(), {middle, first, quarter, Spot{sweepAngle, 0}});
  return true;
}

Adesk::Boolean ShapeWriter::Geometry::text(const AcGePoint3d& position, const AcGeVector3d& normal,
                                           const AcGeVector3d& direction, double height,
                                           double width, double oblique,
                                           const ACHAR* message) const {
  const AcGeVector3d way = direction.normal();
  const AcGeVector3d across = normal.normal().crossProduct(way);
  AcGeVector3d along = way * (height * width);
  AcGeVector3d up = (across + way * std::tan(oblique)) * height;
  TextLine line;
  line.origin = seenFromAbove(AcGePoint3d(position).transformBy(toWorld()));
  line.along = seenFromAbove(along.transformBy(toWorld()));
  line.up = seenFromAbove(up.transformBy(toWorld()));
  const std::wstring_view characters(message);
  if (characters.empty() || !isNear(line.origin) || !isNear(line.along) || !isNear(line.up))
    return true;
  line.advance = static_cast<float>(arx::lineAdvance(characters));
  line.color = writer_.traits_->ink;
  line.firstCharacter = static_cast<std::uint32_t>(shapes_.characters.size());
  line.characters = static_cast<std::uint32_t>(characters.size());
  shapes_.characters += characters;
  shapes_.texts.push_back(line);
  return true;
}

ShapeWriter::ShapeWriter(Shapes& shapes)
    : traits_(std::make_unique<Traits>()), geometry_(std::make_unique<Geometry>(*this, shapes)) {}

ShapeWriter::~ShapeWriter() = default;

AcGiGeometry& ShapeWriter::geometry() const {
  return *geometry_;
}

AcGiSubEntityTraits& ShapeWriter::subEntityTraits() const {
  return *traits_;
}

}  // namespace kovra::desktop
