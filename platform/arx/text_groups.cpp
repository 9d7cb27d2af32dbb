#include "platform/arx/text_groups.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kovra::arx {

Property verticalModeProperty(dxf::RecordKind kind) {
  return kind == dxf::RecordKind::kText ? Property{kTextPart, 73}
                                        : Property{attributePart(kind), 74};
}

std::string_view attributePart(dxf::RecordKind kind) {
  return kind == dxf::RecordKind::kAttDef ? kDefinitionPart : kAttributePart;
}

AcDb::TextHorzMode textHorizontalMode(const dxf::RecordDraft& draft) {
  const std::int64_t mode = readInteger(draft, kTextHorizontal, 0);
  return mode >= 0 && mode <= AcDb::kTextFit ? static_cast<AcDb::TextHorzMode>(mode)
                                             : AcDb::kTextLeft;
}

AcDb::TextVertMode textVerticalMode(const dxf::RecordDraft& draft) {
  const std::int64_t mode = readInteger(draft, verticalModeProperty(draft.kind()), 0);
  return mode >= 0 && mode <= AcDb::kTextTop ? static_cast<AcDb::TextVertMode>(mode)
                                             : AcDb::kTextBase;
}

AcGeVector3d textNormal(const dxf::RecordDraft& draft) {
  const std::optional<AcGePoint3d> normal = readPoint(draft, kTextNormal);
  if (!normal || normal->asVector().isZeroLength()) return {0, 0, 1};
  return normal->asVector();
}

AcGePoint3d textPoint(const dxf::RecordDraft& draft, Property property) {
  std::optional<AcGePoint3d> point = readPoint(draft, property);
  if (!point && property.code == kTextAlignment.code &&
      usesAlignmentPoint(textHorizontalMode(draft), textVerticalMode(draft)))
    point = readPoint(draft, kTextPosition);
  if (!point) return {};
  if (point->z == 0) point->z = readReal(draft, {kEntityPart, 38}, 0);
  return *point;
}

double textRotation(const dxf::RecordDraft& draft) {
  return normalizedAngle(readReal(draft, kTextRotation, 0) * std::numbers::pi / 180);
}

TextShape textShape(const dxf::RecordDraft& draft) {
  TextShape shape;
  shape.height = readReal(draft, kTextHeight, 0);
  shape.widthFactor = readReal(draft, kTextWidthFactor, 1);
  shape.oblique = readReal(draft, kTextOblique, 0) * std::numbers::pi / 180;
  shape.rotation = textRotation(draft);
  const std::int64_t flags = readInteger(draft, kTextFlags, 0);
  shape.mirroredInX = (flags & kMirroredInX) != 0;
  shape.mirroredInY = (flags & kMirroredInY) != 0;
  shape.horizontal = textHorizontalMode(draft);
  shape.verticalMode = textVerticalMode(draft);
  shape.position = textPoint(draft, kTextPosition);
  shape.alignment = textPoint(draft, kTextAlignment);
  return shape;
}

namespace {

bool samePoint(const AcGePoint3d& a, const AcGePoint3d& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}

}  // namespace

bool samePlacement(const dxf::RecordDraft& a, const dxf::RecordDraft& b) {
  const TextShape left = textShape(a);
  const TextShape right = textShape(b);
  return left.height == right.height && left.widthFactor == right.widthFactor &&
         left.oblique == right.oblique && left.rotation == right.rotation &&
         left.mirroredInX == right.mirroredInX && left.mirroredInY == right.mirroredInY &&
         left.horizontal == right.horizontal && left.verticalMode == right.verticalMode &&
         samePoint(left.alignment, right.alignment) &&
         readBytes(a, kTextValue) == readBytes(b, kTextValue) &&
         readBytes(a, kTextStyle) == readBytes(b, kTextStyle);
}

TextAnchor textAnchor(const dxf::RecordDraft& draft) {
  const bool aligned = usesAlignmentPoint(textHorizontalMode(draft), textVerticalMode(draft));
  return {textPoint(draft, aligned ? kTextAlignment : kTextPosition),
          textPoint(draft, kTextPosition), readReal(draft, kTextHeight, 0), textRotation(draft)};
}

namespace {

/// A point of an embedded object: its three groups, and where it is.
struct EmbeddedPoint {
  std::size_t groups[3] = {dxf::kNoGroup, dxf::kNoGroup, dxf::kNoGroup};
  AcGePoint3d point;

  bool exists() const { return groups[0] != dxf::kNoGroup && groups[1] != dxf::kNoGroup; }
  bool isNear(const AcGePoint3d& other) const {
    constexpr double kRelative = 1e-9;
    const double size = std::max({1.0, std::fabs(other.x), std::fabs(other.y)});
    return std::hypot(point.x - other.x, point.y - other.y) <= kRelative * size;
  }
};

EmbeddedPoint embeddedPoint(const dxf::RecordDraft& draft, int code) {
  EmbeddedPoint found;
  for (int i = 0; i < 3; ++i) {
    const std::size_t group = draft.findIn(draft.embedded(), code + 10 * i);
    found.groups[i] = group;
    if (group != dxf::kNoGroup) found.point[static_cast<unsigned>(i)] = draft.real(group);
  }
  return found;
}

void setEmbeddedPoint(dxf::RecordDraft& draft, const EmbeddedPoint& place,
                      const AcGePoint3d& point) {
  for (unsigned i = 0; i < 3; ++i)
    if (place.groups[i] != dxf::kNoGroup) draft.setReal(place.groups[i], point[i]);
}

AcGePoint3d direction(double rotation) {
  return {std::cos(rotation), std::sin(rotation), 0};
}

/// Group 50 in degrees, as texts have it; writers that put radians there are followed.
void syncRotation(dxf::RecordDraft& draft, double before, double after) {
  const std::size_t group = draft.findIn(draft.embedded(), 50);
  if (group == dxf::kNoGroup || before == after) return;
  const bool radians = before != 0 && std::fabs(draft.real(group) - before) < 1e-9;
  draft.setReal(group, radians ? after : degreesOf(after));
}

}  // namespace

void syncEmbedded(dxf::RecordDraft& draft, const TextAnchor& before) {
  if (draft.embedded().empty()) return;
  const TextAnchor now = textAnchor(draft);
  const std::size_t height = draft.findIn(draft.embedded(), 40);
  if (height != dxf::kNoGroup && draft.real(height) == before.height)
    draft.setReal(height, now.height);
  syncRotation(draft, before.rotation, now.rotation);
  // Writers differ in which of the two is the place and which the direction.
  for (const int code : {10, 11}) {
    const EmbeddedPoint place = embeddedPoint(draft, code);
    if (!place.exists()) continue;
    if (place.isNear(before.point) || place.isNear(before.position)) {
      setEmbeddedPoint(draft, place, place.point + (now.point - before.point));
    } else if (place.isNear(direction(before.rotation)) && before.rotation != now.rotation) {
      setEmbeddedPoint(draft, place, direction(now.rotation));
    }
  }
}

}  // namespace kovra::arx
