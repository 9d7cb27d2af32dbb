#include "platform/arx/drawing/record_draw.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "platform/arx/database/database.h"
#include "platform/arx/drawing/polyline_draw.h"
#include "platform/arx/drawing/text_draw.h"
#include "platform/arx/entities/entity_points.h"
#include "platform/arx/entities/record_geometry.h"
#include "platform/arx/geometry/gi.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/arx/geometry/spline_points.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

using dxf::RecordKind;
constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kRadians = std::numbers::pi / 180;

double realAt(const dxf::RecordDraft& draft, int code, double absent) {
  const std::size_t group = draft.find(code);
  return group == dxf::kNoGroup ? absent : draft.real(group);
}

/// 0 when the group is missing; brought into a range that any arithmetic here bears.
int integerAt(const dxf::RecordDraft& draft, int code) {
  constexpr std::int64_t kMost = 1000000000;
  const std::size_t group = draft.find(code);
  if (group == dxf::kNoGroup) return 0;
  return static_cast<int>(std::clamp(draft.integer(group), -kMost, kMost));
}

AcGePoint3d pointAt(const dxf::RecordDraft& draft, int code) {
  return {realAt(draft, code, 0), realAt(draft, code + 10, 0), realAt(draft, code + 20, 0)};
}

/// Every value of a code.
std::vector<double> realsAt(const dxf::RecordDraft& draft, int code) {
  std::vector<double> values;
  for (std::size_t i = 0; i < draft.size(); ++i)
    if (draft.part(i) == dxf::GroupPart::kData && draft.code(i) == code)
      values.push_back(draft.real(i));
  return values;
}

/// Every point of a code, with its y and z.
std::vector<AcGePoint3d> pointsAt(const dxf::RecordDraft& draft, int code) {
  std::vector<AcGePoint3d> points;
  for (std::size_t i = 0; i < draft.size(); ++i) {
    if (draft.part(i) != dxf::GroupPart::kData) continue;
    if (draft.code(i) == code) points.emplace_back(draft.real(i), 0, 0);
    if (points.empty()) continue;
    if (draft.code(i) == code + 10) points.back().y = draft.real(i);
    if (draft.code(i) == code + 20) points.back().z = draft.real(i);
  }
  return points;
}

void drawChain(AcGiGeometry& geometry, const std::vector<AcGePoint3d>& points) {
  if (!points.empty()) geometry.polyline(static_cast<Adesk::UInt32>(points.size()), points.data());
}

/// The coordinates of an entity's own plane, for as long as it lives.
class PlaneScope {
 public:
  PlaneScope(AcGiGeometry& geometry, const AcGeVector3d& normal)
      : geometry_(geometry), turned_(!normal.isEqualTo(AcGeVector3d::kZAxis)) {
    if (turned_) geometry_.pushModelTransform(ocsToWcs(normal));
  }
  ~PlaneScope() {
    if (turned_) geometry_.popModelTransform();
  }
  PlaneScope(const PlaneScope&) = delete;
  PlaneScope& operator=(const PlaneScope&) = delete;

 private:
  AcGiGeometry& geometry_;
  bool turned_;
};

void text(const AcDbDatabase& database, const dxf::RecordDraft& draft, AcGiGeometry& geometry) {
  std::wstring characters;
  drawText(geometry, readTextShape(database, draft, characters));
}

void arc(const dxf::RecordDraft& draft, AcGiGeometry& geometry, bool full) {
  const double start = full ? 0 : realAt(draft, 50, 0) * kRadians;
  double sweep = full ? kTurn : std::fmod(realAt(draft, 51, 360) * kRadians - start, kTurn);
  if (sweep <= 0) sweep += kTurn;
  drawArc(geometry, pointAt(draft, 10), realAt(draft, 40, 0), start, sweep);
}

/// A circle of radius 1 in coordinates that make the ellipse of it.
void ellipse(const dxf::RecordDraft& draft, AcGiGeometry& geometry) {
  const AcGePoint3d center = pointAt(draft, 10);
  const AcGeVector3d major = pointAt(draft, 11).asVector();
  const AcGeVector3d normal = entityNormal(draft).normal();
  const AcGeVector3d minor = normal.crossProduct(major) * realAt(draft, 40, 1);
  const double start = realAt(draft, 41, 0);
  double sweep = realAt(draft, 42, kTurn) - start;
  if (sweep <= 0 || sweep > kTurn) sweep = kTurn;
  AcGeMatrix3d axes;
  geometry.pushModelTransform(axes.setCoordSystem(center, major, minor, normal));
  drawArc(geometry, AcGePoint3d::kOrigin, 1, start, sweep);
  geometry.popModelTransform();
}

void lwPolyline(const dxf::RecordDraft& draft, AcGiGeometry& geometry) {
  const double elevation = realAt(draft, 38, 0);
  const double width = realAt(draft, 43, 0);
  std::vector<PolylineCorner> corners;
  for (std::size_t i = 0; i < draft.size(); ++i) {
    if (draft.part(i) != dxf::GroupPart::kData) continue;
    const int code = draft.code(i);
    if (code == 10) corners.push_back({{draft.real(i), 0, elevation}, 0, width, width});
    if (corners.empty()) continue;
    if (code == 20) corners.back().point.y = draft.real(i);
    if (code == 40) corners.back().startWidth = draft.real(i);
    if (code == 41) corners.back().endWidth = draft.real(i);
    if (code == 42) corners.back().bulge = draft.real(i);
  }
  drawPolyline(geometry, std::move(corners), (integerAt(draft, 70) & 1) != 0);
}

/// Flags (70) of POLYLINE and VERTEX.
constexpr int kClosed = 1;
constexpr int kSplineFitted = 4;
constexpr int kThreeDimensional = 8;
constexpr int kMesh = 16;
constexpr int kMeshClosedInN = 32;
constexpr int kPolyface = 64;
constexpr int kFrameControlPoint = 16;
constexpr int kMeshVertex = 64;

int flagsOf(const dxf::RecordDraft& draft) {
  return integerAt(draft, 70);
}

/// The vertices that follow a POLYLINE.
template <class Take>
void forEachVertex(const AcDbDatabase& database, dxf::RecordIndex polyline, Take take) {
  const dxf::RecordStore& store = database.store();
  dxf::RecordDraft vertex;
  for (dxf::RecordIndex r = store.next(polyline); r != dxf::kNoRecord; r = store.next(r)) {
    if (store.kind(r) != RecordKind::kVertex) break;
    if (store.erased(r)) continue;
    store.load(r, vertex);
    take(vertex);
  }
}

/// The edges of the faces, which name their corners by number; a negative one begins an edge that
/// isn't shown.
void polyface(const AcDbDatabase& database, dxf::RecordIndex record, AcGiGeometry& geometry) {
  std::vector<AcGePoint3d> points;
  forEachVertex(database, record, [&](const dxf::RecordDraft& vertex) {
    if ((flagsOf(vertex) & kMeshVertex) != 0) return points.push_back(pointAt(vertex, 10));
    std::vector<int> corners;
    for (const int code : {71, 72, 73, 74})
      if (const int corner = integerAt(vertex, code); corner != 0) corners.push_back(corner);
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const auto from = static_cast<std::size_t>(corners[i]);
      const auto to = static_cast<std::size_t>(std::abs(corners[(i + 1) % corners.size()]));
      if (corners[i] > 0 && from <= points.size() && to <= points.size())
        drawChain(geometry, {points[from - 1], points[to - 1]});
    }
  });
}

/// A net of M by N points: its rows and its columns.
void mesh(const dxf::RecordDraft& draft, const std::vector<AcGePoint3d>& points,
          AcGiGeometry& geometry) {
  const auto rows = static_cast<std::size_t>(std::max(0, integerAt(draft, 71)));
  const auto columns = static_cast<std::size_t>(std::max(0, integerAt(draft, 72)));
  if (rows == 0 || columns == 0 || points.size() / columns < rows) return;
  const auto run = [&](std::size_t first, std::size_t step, std::size_t count, int closed) {
    std::vector<AcGePoint3d> chain;
    for (std::size_t i = 0; i < count; ++i) chain.push_back(points[first + i * step]);
    if ((flagsOf(draft) & closed) != 0) chain.push_back(chain.front());
    drawChain(geometry, chain);
  };
  for (std::size_t row = 0; row < rows; ++row) run(row * columns, 1, columns, kMeshClosedInN);
  for (std::size_t column = 0; column < columns; ++column) run(column, columns, rows, kClosed);
}

void polyline(const AcDbDatabase& database, dxf::RecordIndex record, const dxf::RecordDraft& draft,
              AcGiGeometry& geometry) {
  const int flags = flagsOf(draft);
  if ((flags & kPolyface) != 0) return polyface(database, record, geometry);
  const double startWidth = realAt(draft, 40, 0);
  const double endWidth = realAt(draft, 41, 0);
  std::vector<PolylineCorner> corners;
  forEachVertex(database, record, [&](const dxf::RecordDraft& vertex) {
    const bool control = (flagsOf(vertex) & kFrameControlPoint) != 0;
    // Of a polyline bent to a spline only the curve shows.
    if (!control || (flags & kSplineFitted) == 0)
      corners.push_back({pointAt(vertex, 10), realAt(vertex, 42, 0), realAt(vertex, 40, startWidth),
                         realAt(vertex, 41, endWidth)});
  });
  if ((flags & kMesh) != 0) {
    std::vector<AcGePoint3d> points;
    points.reserve(corners.size());
    for (const PolylineCorner& corner : corners) points.push_back(corner.point);
    return mesh(draft, points, geometry);
  }
  const bool planar = (flags & kThreeDimensional) == 0;
  const PlaneScope plane(geometry, planar ? entityNormal(draft) : AcGeVector3d::kZAxis);
  drawPolyline(geometry, std::move(corners), (flags & kClosed) != 0);
}

void spline(const dxf::RecordDraft& draft, AcGiGeometry& geometry) {
  Spline curve;
  curve.degree = integerAt(draft, 71);
  curve.controls = pointsAt(draft, 10);
  curve.knots = realsAt(draft, 40);
  curve.weights = realsAt(draft, 41);
  std::vector<AcGePoint3d> points = splinePoints(curve);
  // A curve that is given by its fit points alone is drawn through them.
  if (points.empty()) points = pointsAt(draft, 11);
  drawChain(geometry, points);
}

/// The corners of a solid are stored row by row, those of a face going round.
void quad(const dxf::RecordDraft& draft, AcGiGeometry& geometry, bool filled) {
  std::vector<AcGePoint3d> points;
  const bool four = draft.find(13) != dxf::kNoGroup;
  static constexpr int kOrder[2][4] = {{10, 11, 12, 13}, {10, 11, 13, 12}};
  for (const int code : kOrder[filled ? 1 : 0])
    if (four || code != 13) points.push_back(pointAt(draft, code));
  if (filled) {
    geometry.polygon(static_cast<Adesk::UInt32>(points.size()), points.data());
    return;
  }
  points.push_back(points.front());
  drawChain(geometry, points);
}

void viewport(const dxf::RecordDraft& draft, AcGiGeometry& geometry) {
  const AcGePoint3d center = pointAt(draft, 10);
  const double w = realAt(draft, 40, 0) / 2;
  const double h = realAt(draft, 41, 0) / 2;
  drawChain(geometry, {{center.x - w, center.y - h, 0},
                       {center.x + w, center.y - h, 0},
                       {center.x + w, center.y + h, 0},
                       {center.x - w, center.y + h, 0},
                       {center.x - w, center.y - h, 0}});
}

}  // namespace

bool drawRecord(const AcDbDatabase& database, dxf::RecordIndex record,
                const dxf::RecordDraft& draft, AcGiGeometry& geometry) {
  const RecordKind kind = draft.kind();
  // Polylines see to their plane themselves.
  const bool ownPlane = hasOcsPoints(draft);
  const PlaneScope plane(geometry, ownPlane ? entityNormal(draft) : AcGeVector3d::kZAxis);
  switch (kind) {
    case RecordKind::kText:
    case RecordKind::kAttrib:
    case RecordKind::kAttDef:
      text(database, draft, geometry);
      return true;
    case RecordKind::kMText:
      drawMText(geometry, database, draft);
      return true;
    case RecordKind::kLine:
      drawChain(geometry, {pointAt(draft, 10), pointAt(draft, 11)});
      return true;
    case RecordKind::kCircle:
    case RecordKind::kArc:
      arc(draft, geometry, kind == RecordKind::kCircle);
      return true;
    case RecordKind::kEllipse:
      ellipse(draft, geometry);
      return true;
    case RecordKind::kLwPolyline:
      lwPolyline(draft, geometry);
      return true;
    case RecordKind::kPolyline:
      polyline(database, record, draft, geometry);
      return true;
    case RecordKind::kPoint:
      drawChain(geometry, {pointAt(draft, 10)});
      return true;
    case RecordKind::kSpline:
      spline(draft, geometry);
      return true;
    case RecordKind::kLeader:
      drawChain(geometry, pointsAt(draft, 10));
      return true;
    case RecordKind::kSolid:
    case RecordKind::kTrace:
    case RecordKind::k3dFace:
      quad(draft, geometry, kind != RecordKind::k3dFace);
      return true;
    case RecordKind::kViewport:
      viewport(draft, geometry);
      return true;
    default:
      return false;
  }
}

}  // namespace kovra::arx
