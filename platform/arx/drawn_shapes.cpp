#include "platform/arx/drawn_shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/arx/database.h"
#include "platform/arx/ocs.h"
#include "platform/arx/record_geometry.h"
#include "platform/arx/text_outline.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

using dxf::RecordKind;
constexpr double kTurn = 2 * std::numbers::pi;
constexpr int kChordsPerTurn = 64;

double realAt(const dxf::RecordDraft& draft, int code, double absent) {
  const std::size_t group = draft.find(code);
  return group == dxf::kNoGroup ? absent : draft.real(group);
}

AcGePoint3d pointAt(const dxf::RecordDraft& draft, int code) {
  return {realAt(draft, code, 0), realAt(draft, code + 10, 0), realAt(draft, code + 20, 0)};
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

void toWorld(std::vector<AcGePoint3d>& points, const AcGeVector3d& normal) {
  if (normal.isEqualTo(AcGeVector3d(0, 0, 1))) return;
  const AcGeMatrix3d matrix = ocsToWcs(normal);
  for (AcGePoint3d& point : points) point.transformBy(matrix);
}

void appendArc(std::vector<AcGePoint3d>& out, const AcGePoint3d& center, double radius,
               double start, double sweep) {
  const int chords =
      std::max(2, static_cast<int>(std::ceil(std::abs(sweep) / kTurn * kChordsPerTurn)));
  for (int i = 0; i <= chords; ++i) {
    const double angle = start + sweep * i / chords;
    out.emplace_back(center.x + radius * std::cos(angle), center.y + radius * std::sin(angle),
                     center.z);
  }
}

}  // namespace

void appendBulge(std::vector<AcGePoint3d>& out, const AcGePoint3d& from, const AcGePoint3d& to,
                 double bulge) {
  const double chord = std::hypot(to.x - from.x, to.y - from.y);
  if (bulge == 0 || chord == 0) {
    out.push_back(to);
    return;
  }
  const double sweep = 4 * std::atan(bulge);
  const double radius = chord / (2 * std::sin(sweep / 2));
  const double toCenter = radius * std::cos(sweep / 2);
  const AcGePoint3d center((from.x + to.x) / 2 - toCenter * (to.y - from.y) / chord,
                           (from.y + to.y) / 2 + toCenter * (to.x - from.x) / chord, from.z);
  const double start = std::atan2(from.y - center.y, from.x - center.x);
  appendArc(out, center, std::abs(radius), start, sweep);
}

DrawnShape& ShapeReader::add(bool filled) {
  if (used_ == shapes_.size()) shapes_.emplace_back();
  DrawnShape& shape = shapes_[used_++];
  shape.points.clear();
  shape.filled = filled;
  return shape;
}

void ShapeReader::text(const dxf::RecordDraft& draft) {
  add(true).points = textOutline(database_, draft);
}

void ShapeReader::mtext(const dxf::RecordDraft& draft) {
  add(true).points = mtextOutline(database_, draft);
}

void ShapeReader::arc(const dxf::RecordDraft& draft, bool full) {
  const double start = full ? 0 : realAt(draft, 50, 0) * std::numbers::pi / 180;
  double sweep = full ? kTurn : realAt(draft, 51, 360) * std::numbers::pi / 180 - start;
  while (sweep <= 0) sweep += kTurn;
  std::vector<AcGePoint3d>& points = add().points;
  appendArc(points, pointAt(draft, 10), realAt(draft, 40, 0), start, std::min(sweep, kTurn));
  toWorld(points, entityNormal(draft));
}

void ShapeReader::ellipse(const dxf::RecordDraft& draft) {
  const AcGePoint3d center = pointAt(draft, 10);
  const AcGeVector3d major = pointAt(draft, 11).asVector();
  const AcGeVector3d minor = entityNormal(draft).crossProduct(major) * realAt(draft, 40, 1);
  const double start = realAt(draft, 41, 0);
  double sweep = realAt(draft, 42, kTurn) - start;
  if (sweep <= 0 || sweep > kTurn) sweep = kTurn;
  std::vector<AcGePoint3d>& points = add().points;
  for (int i = 0; i <= kChordsPerTurn; ++i) {
    const double angle = start + sweep * i / kChordsPerTurn;
    points.push_back(center + major * std::cos(angle) + minor * std::sin(angle));
  }
}

void ShapeReader::lwPolyline(const dxf::RecordDraft& draft) {
  const double elevation = realAt(draft, 38, 0);
  std::vector<AcGePoint3d> corners;
  std::vector<double> bulges;
  for (std::size_t i = 0; i < draft.size(); ++i) {
    if (draft.part(i) != dxf::GroupPart::kData) continue;
    if (draft.code(i) == 10) {
      corners.emplace_back(draft.real(i), 0, elevation);
      bulges.push_back(0);
    }
    if (corners.empty()) continue;
    if (draft.code(i) == 20) corners.back().y = draft.real(i);
    if (draft.code(i) == 42) bulges.back() = draft.real(i);
  }
  if (corners.empty()) return;
  const bool closed = (static_cast<int>(realAt(draft, 70, 0)) & 1) != 0;
  std::vector<AcGePoint3d>& points = add().points;
  points.push_back(corners.front());
  for (std::size_t i = 1; i < corners.size(); ++i)
    appendBulge(points, corners[i - 1], corners[i], bulges[i - 1]);
  if (closed) appendBulge(points, corners.back(), corners.front(), bulges.back());
  toWorld(points, entityNormal(draft));
}

void ShapeReader::polyline(dxf::RecordIndex record, const dxf::RecordDraft& draft) {
  constexpr int kClosed = 1;
  constexpr int kThreeDimensional = 8 | 16 | 64;
  constexpr int kFrameControlPoint = 16;
  const int flags = static_cast<int>(realAt(draft, 70, 0));
  const dxf::RecordStore& store = database_.store();
  std::vector<AcGePoint3d>& points = add().points;
  AcGePoint3d first;
  AcGePoint3d last;
  double bulge = 0;
  dxf::RecordDraft vertex;
  for (dxf::RecordIndex r = store.next(record); r != dxf::kNoRecord; r = store.next(r)) {
    if (store.kind(r) != RecordKind::kVertex) break;
    if (store.erased(r)) continue;
    store.load(r, vertex);
    if ((static_cast<int>(realAt(vertex, 70, 0)) & kFrameControlPoint) != 0 && (flags & 4) != 0)
      continue;
    const AcGePoint3d at = pointAt(vertex, 10);
    if (points.empty())
      points.push_back(first = at);
    else
      appendBulge(points, last, at, bulge);
    last = at;
    bulge = realAt(vertex, 42, 0);
  }
  if ((flags & kClosed) != 0 && !points.empty()) appendBulge(points, last, first, bulge);
  if ((flags & kThreeDimensional) == 0) toWorld(points, entityNormal(draft));
}

void ShapeReader::pointList(const dxf::RecordDraft& draft, int code) {
  add().points = pointsAt(draft, code);
}

void ShapeReader::quad(const dxf::RecordDraft& draft, bool filled) {
  std::vector<AcGePoint3d>& points = add(filled).points;
  const bool four = draft.find(13) != dxf::kNoGroup;
  // The corners of a solid are stored row by row, those of a face going round.
  const int order[2][4] = {{10, 11, 12, 13}, {10, 11, 13, 12}};
  for (const int code : order[filled ? 1 : 0])
    if (four || code != 13) points.push_back(pointAt(draft, code));
  if (!points.empty()) points.push_back(points.front());
  if (filled) toWorld(points, entityNormal(draft));
}

void ShapeReader::viewport(const dxf::RecordDraft& draft) {
  const AcGePoint3d center = pointAt(draft, 10);
  const double w = realAt(draft, 40, 0) / 2;
  const double h = realAt(draft, 41, 0) / 2;
  add().points = {{center.x - w, center.y - h, 0},
                  {center.x + w, center.y - h, 0},
                  {center.x + w, center.y + h, 0},
                  {center.x - w, center.y + h, 0},
                  {center.x - w, center.y - h, 0}};
}

const std::vector<DrawnShape>& ShapeReader::read(dxf::RecordIndex record,
                                                 const dxf::RecordDraft& draft) {
  used_ = 0;
  switch (draft.kind()) {
    case RecordKind::kText:
    case RecordKind::kAttrib:
    case RecordKind::kAttDef:
      text(draft);
      break;
    case RecordKind::kMText:
      mtext(draft);
      break;
    case RecordKind::kLine:
      add().points = {pointAt(draft, 10), pointAt(draft, 11)};
      break;
    case RecordKind::kCircle:
    case RecordKind::kArc:
      arc(draft, draft.kind() == RecordKind::kCircle);
      break;
    case RecordKind::kEllipse:
      ellipse(draft);
      break;
    case RecordKind::kLwPolyline:
      lwPolyline(draft);
      break;
    case RecordKind::kPolyline:
      polyline(record, draft);
      break;
    case RecordKind::kPoint:
      add().points = {pointAt(draft, 10)};
      break;
    case RecordKind::kSpline:
      // Fit points lie on the curve, control points beside it.
      pointList(draft, draft.find(11) != dxf::kNoGroup ? 11 : 10);
      break;
    case RecordKind::kLeader:
      pointList(draft, 10);
      break;
    case RecordKind::kSolid:
    case RecordKind::kTrace:
    case RecordKind::k3dFace:
      quad(draft, draft.kind() != RecordKind::k3dFace);
      break;
    case RecordKind::kViewport:
      viewport(draft);
      break;
    default:
      break;
  }
  shapes_.resize(used_);
  return shapes_;
}

}  // namespace kovra::arx
