#include "platform/arx/entities/text_groups.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/arx/geometry/ocs.h"

namespace kovra::arx {

Property verticalModeProperty(dxf::RecordKind kind) {
  return kind == dxf::RecordKind::kText ? Property{kTextPart, 73}
                                        : Property{attributePart(kind), 74};
}

std::string_view attributePart(dxf::RecordKind kind) {
  return kind == dxf::RecordKind::kAttDef ? kDefinitionPart : kAttributePart;
}

namespace {

AcDb::TextHorzMode horizontalOf(std::int64_t mode) {
  return mode >= 0 && mode <= AcDb::kTextFit ? static_cast<AcDb::TextHorzMode>(mode)
                                             : AcDb::kTextLeft;
}

AcDb::TextVertMode verticalOf(std::int64_t mode) {
  return mode >= 0 && mode <= AcDb::kTextTop ? static_cast<AcDb::TextVertMode>(mode)
                                             : AcDb::kTextBase;
}

}  // namespace

AcDb::TextHorzMode textHorizontalMode(const dxf::RecordDraft& draft) {
  return horizontalOf(readInteger(draft, kTextHorizontal, 0));
}

AcDb::TextVertMode textVerticalMode(const dxf::RecordDraft& draft) {
  return verticalOf(readInteger(draft, verticalModeProperty(draft.kind()), 0));
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

namespace {

/// Positions of the groups that decide where a text is drawn, found in one pass; the same that
/// findProperty would give one by one.
struct PlacementGroups {
  std::size_t position = dxf::kNoGroup;
  std::size_t alignment = dxf::kNoGroup;
  std::size_t height = dxf::kNoGroup;
  std::size_t widthFactor = dxf::kNoGroup;
  std::size_t rotation = dxf::kNoGroup;
  std::size_t oblique = dxf::kNoGroup;
  std::size_t flags = dxf::kNoGroup;
  std::size_t horizontal = dxf::kNoGroup;
  std::size_t vertical = dxf::kNoGroup;  ///< of TEXT; elsewhere 73 means something else

  std::size_t* of(int code) {
    switch (code) {
      case 10:
        return &position;
      case 11:
        return &alignment;
      case 40:
        return &height;
      case 41:
        return &widthFactor;
      case 50:
        return &rotation;
      case 51:
        return &oblique;
      case 71:
        return &flags;
      case 72:
        return &horizontal;
      case 73:
        return &vertical;
      default:
        return nullptr;
    }
  }
};

PlacementGroups locatePlacement(const dxf::RecordDraft& draft) {
  PlacementGroups groups;
  bool inside = draft.find(100) == dxf::kNoGroup;
  for (std::size_t i = 1; i < draft.size(); ++i) {
    if (draft.part(i) != dxf::GroupPart::kData) continue;
    const int code = draft.code(i);
    if (code == 100) inside = draft.text(i) == kTextPart;
    if (!inside) continue;
    if (std::size_t* place = groups.of(code); place != nullptr && *place == dxf::kNoGroup)
      *place = i;
  }
  if (draft.kind() == dxf::RecordKind::kText) return groups;
  // Groups that some writers put below the attribute's own marker.
  const auto lookElsewhere = [&](std::size_t& place, Property property) {
    if (place == dxf::kNoGroup) place = findProperty(draft, property);
  };
  lookElsewhere(groups.alignment, kTextAlignment);
  lookElsewhere(groups.widthFactor, kTextWidthFactor);
  lookElsewhere(groups.rotation, kTextRotation);
  lookElsewhere(groups.oblique, kTextOblique);
  lookElsewhere(groups.horizontal, kTextHorizontal);
  return groups;
}

double realAt(const dxf::RecordDraft& draft, std::size_t group, double absent) {
  return group == dxf::kNoGroup ? absent : draft.real(group);
}

std::int64_t integerAt(const dxf::RecordDraft& draft, std::size_t group) {
  return group == dxf::kNoGroup ? 0 : draft.integer(group);
}

double radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

}  // namespace

TextShape textShape(const dxf::RecordDraft& draft) {
  const PlacementGroups groups = locatePlacement(draft);
  TextShape shape;
  shape.height = realAt(draft, groups.height, 0);
  shape.widthFactor = realAt(draft, groups.widthFactor, 1);
  shape.oblique =
      radians(std::clamp(realAt(draft, groups.oblique, 0), -kSteepestOblique, kSteepestOblique));
  shape.rotation = normalizedAngle(radians(realAt(draft, groups.rotation, 0)));
  const std::int64_t flags = integerAt(draft, groups.flags);
  shape.mirroredInX = (flags & kMirroredInX) != 0;
  shape.mirroredInY = (flags & kMirroredInY) != 0;
  shape.horizontal = horizontalOf(integerAt(draft, groups.horizontal));
  shape.verticalMode = draft.kind() == dxf::RecordKind::kText
                           ? verticalOf(integerAt(draft, groups.vertical))
                           : textVerticalMode(draft);
  const double elevation = readReal(draft, {kEntityPart, 38}, 0);
  const auto point = [&](std::size_t group) {
    AcGePoint3d found = group == dxf::kNoGroup ? AcGePoint3d() : pointAt(draft, group);
    if (found.z == 0) found.z = elevation;
    return found;
  };
  shape.position = point(groups.position);
  const bool isMissing = groups.alignment == dxf::kNoGroup;
  shape.alignment = isMissing && usesAlignmentPoint(shape.horizontal, shape.verticalMode)
                        ? shape.position
                        : point(groups.alignment);
  return shape;
}

bool samePoint(const AcGePoint3d& a, const AcGePoint3d& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}

bool isFinite(const AcGePoint3d& point) {
  return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

bool samePlacement(const dxf::RecordDraft& a, const dxf::RecordDraft& b) {
  // What changes most often is compared first.
  if (readReal(a, kTextHeight, 0) != readReal(b, kTextHeight, 0) ||
      readReal(a, kTextWidthFactor, 1) != readReal(b, kTextWidthFactor, 1) ||
      readBytes(a, kTextValue) != readBytes(b, kTextValue))
    return false;
  const TextShape left = textShape(a);
  const TextShape right = textShape(b);
  return left.oblique == right.oblique && left.rotation == right.rotation &&
         left.mirroredInX == right.mirroredInX && left.mirroredInY == right.mirroredInY &&
         left.horizontal == right.horizontal && left.verticalMode == right.verticalMode &&
         samePoint(left.alignment, right.alignment) &&
         readBytes(a, kTextStyle) == readBytes(b, kTextStyle);
}

bool sameBetweenPoints(const dxf::RecordDraft& a, const dxf::RecordDraft& b) {
  const TextShape left = textShape(a);
  const TextShape right = textShape(b);
  const bool aligned = left.horizontal == AcDb::kTextAlign;
  const bool sameGiven = aligned
                             ? readReal(a, kTextWidthFactor, 1) == readReal(b, kTextWidthFactor, 1)
                             : readReal(a, kTextHeight, 0) == readReal(b, kTextHeight, 0);
  return sameGiven && readBytes(a, kTextValue) == readBytes(b, kTextValue) &&
         left.oblique == right.oblique && left.mirroredInX == right.mirroredInX &&
         left.mirroredInY == right.mirroredInY && left.horizontal == right.horizontal &&
         left.verticalMode == right.verticalMode && samePoint(left.position, right.position) &&
         samePoint(left.alignment, right.alignment) &&
         readBytes(a, kTextStyle) == readBytes(b, kTextStyle);
}

namespace {

/// Where a text stands, in world coordinates: the alignment point where it uses one, else the
/// position.
struct TextAnchor {
  AcGePoint3d point;
  AcGePoint3d position;
};

TextAnchor textAnchor(const dxf::RecordDraft& draft) {
  const bool aligned = usesAlignmentPoint(textHorizontalMode(draft), textVerticalMode(draft));
  const AcGeVector3d normal = textNormal(draft);
  const AcGePoint3d position = ocsToWcs(textPoint(draft, kTextPosition), normal);
  return {aligned ? ocsToWcs(textPoint(draft, kTextAlignment), normal) : position, position};
}

/// The attachment of several lines that stand where a text's modes put its one line. The lowest
/// base is the bottom of several lines, so the base line stands for it.
int attachmentOfModes(const dxf::RecordDraft& draft) {
  constexpr int kMiddleCenter = 5;
  const AcDb::TextHorzMode horizontal = textHorizontalMode(draft);
  const AcDb::TextVertMode vertical = textVerticalMode(draft);
  if (horizontal == AcDb::kTextMid) return kMiddleCenter;
  const int column = horizontal <= AcDb::kTextRight ? horizontal : 0;
  const int row = vertical == AcDb::kTextBase ? 2 : AcDb::kTextTop - vertical;
  return 3 * row + column + 1;
}

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

/// What both have and what was equal stays equal.
void syncForm(dxf::RecordDraft& draft, const dxf::RecordDraft& before) {
  const std::size_t height = draft.findIn(draft.embedded(), 40);
  if (height != dxf::kNoGroup && draft.real(height) == readReal(before, kTextHeight, 0))
    draft.setReal(height, readReal(draft, kTextHeight, 0));
  const std::size_t style = draft.findIn(draft.embedded(), 7);
  const std::size_t present = findProperty(draft, kTextStyle);
  if (style != dxf::kNoGroup && present != dxf::kNoGroup &&
      draft.text(style) == readBytes(before, kTextStyle))
    draft.setText(style, std::string(draft.text(present)));
}

/// An attachment that is missing is the top left one. Says whether the modes decide it anew; one
/// that was changed with them stays.
bool syncAttachment(dxf::RecordDraft& draft, const dxf::RecordDraft& before) {
  constexpr int kAttachment = 71;
  const int wanted = attachmentOfModes(draft);
  const std::size_t group = draft.findIn(draft.embedded(), kAttachment);
  const std::size_t former = before.findIn(before.embedded(), kAttachment);
  const bool isGiven = draft.integer(group) != before.integer(former);
  if (attachmentOfModes(before) == wanted || before.embedded().empty() || isGiven) return false;
  if (group == dxf::kNoGroup) {
    draft.insertInteger(draft.embedded().end, kAttachment, wanted);
  } else {
    draft.setInteger(group, wanted);
  }
  return true;
}

}  // namespace

void syncEmbedded(dxf::RecordDraft& draft, const dxf::RecordDraft& before) {
  if (draft.embedded().empty()) return;
  syncForm(draft, before);
  const double formerRotation = textRotation(before);
  const double rotation = textRotation(draft);
  syncRotation(draft, formerRotation, rotation);
  const TextAnchor former = textAnchor(before);
  const TextAnchor now = textAnchor(draft);
  const bool isAttachedAnew = syncAttachment(draft, before);
  // Writers differ in which of the two is the place and which the direction.
  for (const int code : {10, 11}) {
    const EmbeddedPoint place = embeddedPoint(draft, code);
    if (!place.exists()) continue;
    if (place.isNear(former.point) || place.isNear(former.position)) {
      const AcGePoint3d moved = place.point + (now.point - former.point);
      setEmbeddedPoint(draft, place, isAttachedAnew ? now.point : moved);
    } else if (place.isNear(direction(formerRotation)) && formerRotation != rotation) {
      setEmbeddedPoint(draft, place, direction(rotation));
    }
  }
}

int embeddedPlaceCode(const dxf::RecordDraft& draft) {
  const TextAnchor anchor = textAnchor(draft);
  const auto isPlace = [&](int code) {
    const EmbeddedPoint point = embeddedPoint(draft, code);
    return point.exists() && (point.isNear(anchor.point) || point.isNear(anchor.position));
  };
  return isPlace(11) && !isPlace(10) ? 11 : 10;
}

}  // namespace kovra::arx
