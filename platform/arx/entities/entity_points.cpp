#include "platform/arx/entities/entity_points.h"

#include <array>
#include <cmath>
#include <optional>
#include <span>

#include "platform/arx/database/record_edit.h"
#include "platform/arx/entities/text_groups.h"
#include "platform/arx/geometry/ocs.h"

namespace kovra::arx {
namespace {

using dxf::RecordKind;

/// What a group says of a place. Directions, lengths and angles, which a displacement leaves alone,
/// aren't listed.
enum class Role : std::uint8_t {
  kWorld,        ///< x of a point in world coordinates, y at +10, z at +20
  kPlane,        ///< the same in the entity's own plane
  kFlat,         ///< x and y in the own plane; the height is elsewhere
  kHeight,       ///< a point in the own plane of which only the height counts
  kElevation,    ///< a height over the own plane by itself
  kPatternBase,  ///< x of a point in the own plane, y in the next code
  kMatrix,       ///< 16 numbers, row by row, to world coordinates
};

/// Where in its record a group stands, for codes that mean several things in one record.
enum class Scope : std::uint8_t {
  kNone,
  kReference,     ///< below AcDbBlockReference
  kEmbedded,      ///< in an embedded object
  kTurnedObject,  ///< in one whose 10 is the direction, 11 the place
  kContext,       ///< CONTEXT_DATA{ of a multileader
  kLeader,        ///< LEADER{ within it
  kLeaderLine,    ///< LEADER_LINE{ within that
  kPolylinePath,  ///< a boundary of a hatch that is a polyline; the others are chains of edges:
  kEdgePath,
  kLineEdge,
  kCurveEdge,  ///< its second points are relative to the first, or it has none
  kSplineEdge,
  kBehindPaths,
};

/// Groups that play a role. Of rows that hold for the same group the first counts.
struct Row {
  Role role;
  std::array<int, 6> codes;         ///< 0: none
  std::optional<Scope> scope = {};  ///< none: everywhere but in embedded objects
};
using Rows = std::span<const Row>;

constexpr Row kWorldPoint[] = {{Role::kWorld, {10}}};
constexpr Row kTwoWorldPoints[] = {{Role::kWorld, {10, 11}}};
constexpr Row kFourWorldPoints[] = {{Role::kWorld, {10, 11, 12, 13}}};
constexpr Row kPlanePoint[] = {{Role::kPlane, {10}}};
constexpr Row kTwoPlanePoints[] = {{Role::kPlane, {10, 11}}};
constexpr Row kFourPlanePoints[] = {{Role::kPlane, {10, 11, 12, 13}}};
constexpr Row kAttributePoints[] = {
    {Role::kPlane, {10, 11}},
    {Role::kWorld, {10}, Scope::kEmbedded},
    {Role::kWorld, {11}, Scope::kTurnedObject},
};
constexpr Row kMTextPoints[] = {
    {Role::kWorld, {10}},
    {Role::kWorld, {11}, Scope::kTurnedObject},
};
constexpr Row kLwPolylinePoints[] = {{Role::kFlat, {10}}};
constexpr Row kPolylinePoints[] = {{Role::kHeight, {10}}};
// 12, which displaces the block that draws a dimension, is the mover's business.
constexpr Row kDimensionPoints[] = {
    {Role::kWorld, {10, 13, 14, 15}},
    {Role::kPlane, {11, 16}},
};
constexpr Row kArcDimensionPoints[] = {
    {Role::kWorld, {10, 13, 14, 15, 16, 17}},
    {Role::kPlane, {11}},
};
constexpr Row kHatchPoints[] = {
    {Role::kHeight, {10}, Scope::kNone},
    {Role::kFlat, {10}},
    {Role::kFlat, {11}, Scope::kLineEdge},
    {Role::kFlat, {11}, Scope::kSplineEdge},
    {Role::kPatternBase, {43}, Scope::kBehindPaths},
};
constexpr Row kTablePoints[] = {{Role::kWorld, {10}, Scope::kReference}};
constexpr Row kMultiLeaderPoints[] = {
    {Role::kWorld, {10, 12, 15, 110}, Scope::kContext},
    {Role::kMatrix, {47}, Scope::kContext},
    {Role::kWorld, {10, 12, 13}, Scope::kLeader},
    {Role::kWorld, {10, 11, 12}, Scope::kLeaderLine},
};
constexpr Row kSectionPoints[] = {{Role::kWorld, {11, 12}}};

struct Kind {
  std::string_view name;
  Rows rows;
};

/// Every type of entity whose place is known.
constexpr Kind kKinds[] = {
    {"LINE", kTwoWorldPoints},
    {"INSERT", kPlanePoint},
    {"ATTRIB", kAttributePoints},
    {"TEXT", kTwoPlanePoints},
    {"MTEXT", kMTextPoints},
    {"LWPOLYLINE", kLwPolylinePoints},
    {"POLYLINE", kPolylinePoints},
    {"VERTEX", kPlanePoint},
    {"CIRCLE", kPlanePoint},
    {"ARC", kPlanePoint},
    {"POINT", kWorldPoint},
    {"ELLIPSE", kWorldPoint},
    {"SPLINE", kTwoWorldPoints},
    {"HATCH", kHatchPoints},
    {"SOLID", kFourPlanePoints},
    {"TRACE", kFourPlanePoints},
    {"3DFACE", kFourWorldPoints},
    {"ATTDEF", kAttributePoints},
    {"DIMENSION", kDimensionPoints},
    {"LARGE_RADIAL_DIMENSION", kDimensionPoints},
    {"ARC_DIMENSION", kArcDimensionPoints},
    {"LEADER", kWorldPoint},
    {"MULTILEADER", kMultiLeaderPoints},
    {"MLEADER", kMultiLeaderPoints},
    {"TOLERANCE", kWorldPoint},
    {"ACAD_TABLE", kTablePoints},
    {"IMAGE", kWorldPoint},
    {"WIPEOUT", kWorldPoint},
    {"PDFUNDERLAY", kPlanePoint},
    {"DWFUNDERLAY", kPlanePoint},
    {"DGNUNDERLAY", kPlanePoint},
    {"VIEWPORT", kWorldPoint},
    {"RAY", kWorldPoint},
    {"XLINE", kWorldPoint},
    {"MLINE", kTwoWorldPoints},
    {"SHAPE", kPlanePoint},
    {"HELIX", kTwoWorldPoints},
    {"MESH", kWorldPoint},
    {"LIGHT", kTwoWorldPoints},
    {"SECTIONOBJECT", kSectionPoints},
};

/// World positions in the data of applications.
constexpr Row kXDataRow{Role::kWorld, {1011}};
/// Old drawings keep the height of entities whose points have none here, R2000 that of polylines.
constexpr Row kElevationRow{Role::kElevation, {38}};

/// None for a type whose place isn't known.
Rows rowsOf(std::string_view typeName) {
  for (const Kind& kind : kKinds)
    if (kind.name == typeName) return kind.rows;
  return {};
}

/// The texts of a multileader may be anything, so its braces count only where they may stand.
Scope multiLeaderScope(Scope scope, int code, std::string_view text) {
  if (code == 300 && text == "CONTEXT_DATA{") return Scope::kContext;
  if (code == 302 && scope == Scope::kContext) return Scope::kLeader;
  if (code == 304 && scope == Scope::kLeader) return Scope::kLeaderLine;
  if (code == 305 && scope == Scope::kLeaderLine) return Scope::kLeader;
  if (code == 303 && scope == Scope::kLeader) return Scope::kContext;
  return code == 301 && scope == Scope::kContext ? Scope::kNone : scope;
}

/// 92 begins a boundary, 72 an edge of it (or says whether a polyline has arcs); 75 to 78 are of
/// the pattern, behind them all.
Scope hatchScope(Scope scope, int code, std::int64_t value) {
  constexpr std::int64_t kIsPolyline = 2;
  if (scope == Scope::kBehindPaths) return scope;
  if (code >= 75 && code <= 78) return Scope::kBehindPaths;
  if (code == 91 && scope == Scope::kNone) return Scope::kEdgePath;
  if (code == 92) return (value & kIsPolyline) != 0 ? Scope::kPolylinePath : Scope::kEdgePath;
  if (code != 72 || scope == Scope::kPolylinePath || scope == Scope::kNone) return scope;
  if (value == 1) return Scope::kLineEdge;
  return value == 4 ? Scope::kSplineEdge : Scope::kCurveEdge;
}

/// That of the groups in an embedded object: a text's columns, or the text of an attribute.
Scope embeddedScope(const dxf::RecordDraft& draft) {
  if (draft.embedded().empty()) return Scope::kEmbedded;
  const bool isTurned = draft.kind() == RecordKind::kMText || embeddedPlaceCode(draft) == 11;
  return isTurned ? Scope::kTurnedObject : Scope::kEmbedded;
}

/// The scope of a data group, by that of the group before.
Scope scopeAt(const dxf::RecordDraft& draft, std::size_t group, Rows rows, Scope before) {
  const int code = draft.code(group);
  if (code == 100) return draft.text(group) == kReferencePart ? Scope::kReference : Scope::kNone;
  if (rows.data() == kHatchPoints)
    return hatchScope(before, code, code >= 72 && code <= 92 ? draft.integer(group) : 0);
  if (rows.data() == kMultiLeaderPoints)
    return multiLeaderScope(before, code, code == 300 ? draft.text(group) : std::string_view());
  return before;
}

/// Whether it has three coordinates.
bool isSpatial(Role role) {
  return role == Role::kWorld || role == Role::kPlane || role == Role::kHeight;
}

/// Which coordinate of one of a row's points a code is: 0 to 2.
std::optional<int> coordinateOf(const Row& row, int code) {
  if (row.role == Role::kElevation) return code == row.codes[0] ? std::optional(2) : std::nullopt;
  if (row.role == Role::kMatrix) return code == row.codes[0] ? std::optional(0) : std::nullopt;
  const int step = row.role == Role::kPatternBase ? 1 : 10;
  const int coordinates = isSpatial(row.role) ? 3 : 2;
  for (const int x : row.codes)
    for (int i = 0; x != 0 && i < coordinates; ++i)
      if (code == x + i * step) return i;
  return std::nullopt;
}

/// Shifts the points of one record, group by group.
class Shifting {
 public:
  Shifting(dxf::RecordDraft& draft, const Displacement& by)
      : draft_(draft),
        by_(by),
        rows_(rowsOf(draft.typeName())),
        hasElevation_(draft.find(kElevationRow.codes[0]) != dxf::kNoGroup),
        embedded_(embeddedScope(draft)) {}

  void run() {
    for (std::size_t group = 1; group < draft_.size(); ++group) {
      const dxf::GroupPart part = draft_.part(group);
      if (part == dxf::GroupPart::kAppGroup) continue;
      scope_ =
          part == dxf::GroupPart::kEmbedded ? embedded_ : scopeAt(draft_, group, rows_, scope_);
      if (const Row* row = rowFor(group); row != nullptr) shift(group, *row);
    }
    if (!heightSeen_ && by_.plane.z != 0) addHeight();
  }

 private:
  const Row* rowFor(std::size_t group) const {
    const int code = draft_.code(group);
    if (dxf::valueType(code) != dxf::ValueType::kReal) return nullptr;
    const dxf::GroupPart part = draft_.part(group);
    if (part == dxf::GroupPart::kXData) return coordinateOf(kXDataRow, code) ? &kXDataRow : nullptr;
    const bool embedded = part == dxf::GroupPart::kEmbedded;
    for (const Row& row : rows_)
      if ((row.scope ? *row.scope == scope_ : !embedded) && coordinateOf(row, code)) return &row;
    return !embedded && coordinateOf(kElevationRow, code) ? &kElevationRow : nullptr;
  }

  void shift(std::size_t group, const Row& row) {
    const auto coordinate = static_cast<unsigned>(*coordinateOf(row, draft_.code(group)));
    if (row.role == Role::kMatrix) {
      // The fourth number of each of the first three rows is the matrix's own displacement.
      if (matrixNumber_ % 4 == 3 && matrixNumber_ < 12) add(group, by_.world, matrixNumber_ / 4);
      ++matrixNumber_;
      return;
    }
    const AcGeVector3d& by = row.role == Role::kWorld ? by_.world : by_.plane;
    if (row.role == Role::kHeight || row.role == Role::kElevation) heightSeen_ = true;
    if (coordinate == 0 && by.z != 0 && isSpatial(row.role)) ensureHeight(group);
    if (row.role != Role::kHeight || coordinate == 2) add(group, by, coordinate);
  }

  void add(std::size_t group, const AcGeVector3d& by, unsigned coordinate) {
    if (by[coordinate] == 0) return;
    const double value = draft_.real(group);
    const bool isPoint = by_.fromTo && value == by_.fromTo->first[coordinate];
    draft_.setReal(group, isPoint ? by_.fromTo->second[coordinate] : value + by[coordinate]);
  }

  /// Gives a point that has no z one, behind its y, unless the record has a height for all.
  void ensureHeight(std::size_t x) {
    if (hasElevation_) return;
    const int code = draft_.code(x);
    std::size_t last = x;
    for (std::size_t i = x + 1; i < draft_.size() && draft_.code(i) != code; ++i) {
      if (draft_.part(i) != draft_.part(x)) break;
      if (draft_.code(i) == code + 10) last = i;
      if (draft_.code(i) == code + 20) return;
    }
    draft_.insertReal(last + 1, code + 20, 0);
  }

  /// A polyline without any group for its height lies in the plane itself.
  void addHeight() {
    const std::size_t vertex = draft_.find(10);
    if (draft_.kind() == RecordKind::kLwPolyline && vertex != dxf::kNoGroup)
      draft_.insertReal(vertex, kElevationRow.codes[0], by_.plane.z);
    if (draft_.kind() == RecordKind::kPolyline)
      RecordEdit(draft_, nullptr, dxf::kNoRecord)
          .setPoint({"AcDb2dPolyline", 10}, AcGePoint3d(0, 0, by_.plane.z));
  }

  dxf::RecordDraft& draft_;
  const Displacement& by_;
  Rows rows_;
  bool hasElevation_;
  Scope embedded_;
  Scope scope_ = Scope::kNone;
  unsigned matrixNumber_ = 0;
  bool heightSeen_ = false;
};

}  // namespace

Displacement displacementBy(const AcGeVector3d& vector) {
  return {vector, vector, std::nullopt};
}

Displacement displacementOf(const AcGePoint3d& from, const AcGePoint3d& to) {
  Displacement displacement = displacementBy(to - from);
  displacement.fromTo = {from, to};
  return displacement;
}

Displacement displacementIn(const AcGeVector3d& normal, const Displacement& world) {
  Displacement by = world;
  const bool turned = normal.x != 0 || normal.y != 0 || !(normal.z > 0);
  if (turned) by.plane.transformBy(wcsToOcs(normal));
  // What rounding leaves of a displacement along an axis would become a height of its own.
  const double noise = 1e-15 * world.world.length();
  for (unsigned i = 0; i < 3; ++i)
    if (std::fabs(by.plane[i]) <= noise) by.plane[i] = 0;
  if (turned) by.fromTo.reset();
  return by;
}

bool hasKnownPoints(std::string_view typeName) {
  return !rowsOf(typeName).empty();
}

bool hasOcsPoints(const dxf::RecordDraft& draft) {
  const Rows rows = rowsOf(draft.typeName());
  return !rows.empty() && (rows[0].role == Role::kPlane || rows[0].role == Role::kFlat);
}

void shiftPoints(dxf::RecordDraft& draft, const Displacement& by) {
  Shifting(draft, by).run();
}

}  // namespace kovra::arx
