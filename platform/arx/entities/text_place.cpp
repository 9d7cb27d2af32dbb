// Where a text is: its position from its alignment point, its extents, its transformation.
#include <cmath>
#include <optional>

#include "platform/arx/database/database.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/database/text_styles.h"
#include "platform/arx/entities/text.h"
#include "platform/arx/entities/text_align.h"
#include "platform/arx/entities/text_groups.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/arx/geometry/text_metrics.h"
#include "platform/dxf/record_store.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

namespace {

constexpr std::uint8_t kHeldPosition = 1;
constexpr std::uint8_t kHeldAlignment = 2;

bool isPosition(const Property& property) {
  return property.code == kTextPosition.code;
}

TextNumbers readNumbers(const dxf::RecordDraft& draft) {
  TextNumbers numbers;
  numbers.shape = textShape(draft);
  numbers.normal = textNormal(draft);
  numbers.inWorldPlane = samePoint(numbers.normal.asPoint(), {0, 0, 1});
  numbers.hasPosition = findProperty(draft, kTextPosition) != dxf::kNoGroup;
  numbers.hasAlignment = findProperty(draft, kTextAlignment) != dxf::kNoGroup;
  numbers.elevated = readReal(draft, {kEntityPart, 38}, 0) != 0;
  return numbers;
}

/// Old drawings give z by the elevation alone: there a 0 stands for it, so a z that is really 0
/// ends it.
bool setElevated(RecordEdit& edit, const Property& property, AcGePoint3d inPlane) {
  const Property elevation{kEntityPart, 38};
  const double height = readReal(edit.draft(), elevation, 0);
  const std::optional<AcGePoint3d> stored = readPoint(edit.draft(), property);
  bool changed = false;
  if (height != 0 && inPlane.z == 0) changed = edit.setReal(elevation, 0);
  if (height != 0 && inPlane.z == height && stored && stored->z == 0) inPlane.z = 0;
  return edit.setPoint(property, inPlane) || changed;
}

/// What follows from the two points of an aligned or fitted text, as another record has it.
bool takeShape(const dxf::RecordDraft& from, RecordEdit& edit) {
  bool changed = edit.setReal(kTextHeight, readReal(from, kTextHeight, 0));
  changed |= edit.setReal(kTextWidthFactor, readReal(from, kTextWidthFactor, 1), 1);
  changed |= edit.setReal(kTextRotation, readReal(from, kTextRotation, 0), 0);
  return changed;
}

AcGePoint3d toWorld(const TextNumbers& numbers, const AcGePoint3d& inPlane) {
  return numbers.inWorldPlane ? inPlane : ocsToWcs(inPlane, numbers.normal);
}

}  // namespace

TextNumbers& AcDbText::numbers() const {
  ObjectBody& body = ensureBody();
  if (!body.numbersKnown) {
    body.numbers = readNumbers(groups());
    body.numbersKnown = true;
  }
  return body.numbers;
}

void AcDbText::writeHeldBack(ObjectBody& body) const {
  RecordEdit edit(body.draft, nullptr, recordIndex());
  const TextShape& shape = body.numbers.shape;
  if ((body.heldBack & kHeldPosition) != 0) edit.setPoint(kTextPosition, shape.position);
  if ((body.heldBack & kHeldAlignment) != 0) edit.setPoint(kTextAlignment, shape.alignment);
}

AcGeVector3d AcDbText::normal() const {
  return ensureBody().numbersKnown ? numbers().normal : textNormal(groups());
}

double AcDbText::rotation() const {
  return ensureBody().numbersKnown ? numbers().shape.rotation : textRotation(groups());
}

AcDb::TextHorzMode AcDbText::horizontalMode() const {
  return ensureBody().numbersKnown ? numbers().shape.horizontal : textHorizontalMode(groups());
}

AcDb::TextVertMode AcDbText::verticalMode() const {
  return ensureBody().numbersKnown ? numbers().shape.verticalMode : textVerticalMode(groups());
}

AcGePoint3d AcDbText::position() const {
  if (ensureBody().numbersKnown) return toWorld(numbers(), numbers().shape.position);
  return ocsToWcs(textPoint(groups(), kTextPosition), normal());
}

AcGePoint3d AcDbText::alignmentPoint() const {
  if (ensureBody().numbersKnown) return toWorld(numbers(), numbers().shape.alignment);
  return ocsToWcs(textPoint(groups(), kTextAlignment), normal());
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& point) {
  return setPoint(kTextPosition, point);
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point) {
  return setPoint(kTextAlignment, point);
}

Acad::ErrorStatus AcDbText::setPoint(const Property& property, const AcGePoint3d& point) {
  if (!isFinite(point)) return Acad::eInvalidInput;
  if (!canWrite()) return Acad::eNotOpenForWrite;
  const TextNumbers& known = numbers();
  const bool isStored = isPosition(property) ? known.hasPosition : known.hasAlignment;
  const AcGePoint3d& present = isPosition(property) ? known.shape.position : known.shape.alignment;
  if (samePoint(toWorld(known, present), point) && (isStored || isDefaultAlignment()))
    return Acad::eOk;
  return putPoint(property, known.inWorldPlane ? point : inPlaneOf(property, point));
}

/// A point that is again where the file has it gets the file's numbers, to the last digit.
AcGePoint3d AcDbText::inPlaneOf(const Property& property, const AcGePoint3d& point) {
  const AcGeVector3d normal = numbers().normal;
  const AcDbDatabase* own = database();
  if (own != nullptr && recordIndex() < own->store().originalCount()) {
    dxf::RecordDraft file;
    file.decode(own->store().originalBytes(recordIndex()), own->store().dialect());
    const std::optional<AcGePoint3d> stored = readPoint(file, property);
    const bool sameNormal = samePoint(textNormal(file).asPoint(), normal.asPoint());
    if (stored && sameNormal && samePoint(ocsToWcs(*stored, normal), point)) return *stored;
  }
  return wcsToOcs(point, normal);
}

/// Where the record has the point already, the change is held back: a drag moves its texts far more
/// often than anybody reads their groups.
Acad::ErrorStatus AcDbText::putPoint(const Property& property, const AcGePoint3d& inPlane) {
  TextNumbers& known = numbers();
  const bool isStored = isPosition(property) ? known.hasPosition : known.hasAlignment;
  // A missing alignment point that is used is the position.
  const bool isShared = !known.hasAlignment && !isDefaultAlignment();
  if (!isStored || isShared || known.elevated)
    return applyPlaced([&](RecordEdit& edit) { return setElevated(edit, property, inPlane); },
                       Touched::kNumbers);
  AcGePoint3d& present = isPosition(property) ? known.shape.position : known.shape.alignment;
  if (samePoint(present, inPlane)) return Acad::eOk;
  present = inPlane;
  placeChanged_ = true;
  holdBack(isPosition(property) ? kHeldPosition : kHeldAlignment);
  return Acad::eOk;
}

TextShape AcDbText::shape(const AcDbDatabase* given) const {
  TextShape result = numbers().shape;
  result.text = cachedText(TextSlot::kText, kTextValue);
  result.size = textSize();
  const AcDbDatabase* names = given != nullptr ? given : databaseForNames();
  if (names != nullptr && names->hasDrawing())
    result.vertical = names->textStyles().find(textStyleName()).vertical;
  return result;
}

Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase* given) {
  if (!canWrite()) return Acad::eNotOpenForWrite;
  const TextShape line = shape(given);
  if (!usesAlignmentPoint(line.horizontal, line.verticalMode)) return Acad::eOk;
  // Until now the position stood for it, which is about to become another point.
  if (!numbers().hasAlignment) putPoint(kTextAlignment, line.alignment);
  const TextPlacement place = placeText(line);
  if (!isBetweenPoints(line)) return putPoint(kTextPosition, place.position);
  return applyPlaced(
      [&](RecordEdit& edit) {
        dxf::RecordDraft file;
        if (edit.loadOriginal(file) && sameBetweenPoints(file, edit.draft()))
          return takeShape(file, edit);
        bool changed = edit.setReal(kTextHeight, place.height);
        changed |= edit.setReal(kTextWidthFactor, place.widthFactor, 1);
        if (place.rotation != textRotation(edit.draft()))
          changed |= edit.setReal(kTextRotation, degreesOf(place.rotation), 0);
        return changed;
      },
      Touched::kNumbers);
}

void AcDbText::subAppend(const AcDbDatabase& target) {
  const AcDbObjectId style = target.textstyle();
  if (findProperty(groups(), kTextStyle) == dxf::kNoGroup && !style.isNull()) setTextStyle(style);
  if (height() > 0) return;
  const double fixed = target.textStyles().find(textStyleName()).fixedHeight;
  setHeight(fixed > 0 ? fixed : target.textsize());
}

void AcDbText::subClose() {
  if (!placeChanged_) return;
  placeChanged_ = false;
  const bool usesPoint = !isDefaultAlignment();
  if (usesPoint) apply([&](RecordEdit& edit) { return alignText(edit, *database()); });
  // One group is looked up here: all numbers of a text cost more than the rest of its change.
  const bool unusedPoint = !usesPoint && findProperty(groups(), kTextAlignment) != dxf::kNoGroup;
  if (!unusedPoint && groups().embedded().empty()) return;
  dxf::RecordDraft before;
  database()->store().load(recordIndex(), before);
  if (unusedPoint) apply([&](RecordEdit& edit) { return restoreUnusedPoint(edit, before); });
  if (groups().embedded().empty()) return;
  apply([&](RecordEdit& edit) {
    syncEmbedded(edit.draft(), before);
    return true;
  });
}

Acad::ErrorStatus AcDbText::getGeomExtents(AcDbExtents& extents) const {
  const TextShape line = shape(nullptr);
  extents = AcDbExtents();
  for (const AcGePoint3d& corner : textCorners(line, placeText(line)))
    extents.addPoint(ocsToWcs(corner, normal()));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::transformBy(const AcGeMatrix3d& matrix) {
  if (!canWrite()) return Acad::eNotOpenForWrite;
  const AcGeVector3d oldNormal = normal();
  const AcGeMatrix3d plane = ocsToWcs(oldNormal);
  const double angle = rotation();
  AcGeVector3d along = AcGeVector3d(std::cos(angle), std::sin(angle), 0).transformBy(plane);
  AcGeVector3d up = AcGeVector3d(-std::sin(angle), std::cos(angle), 0).transformBy(plane);
  along.transformBy(matrix);
  up.transformBy(matrix);
  const AcGeVector3d across = along.crossProduct(up);
  if (across.isZeroLength()) return Acad::eInvalidInput;
  const double stretch = along.length();
  const bool isTurned = !across.normal().isEqualTo(oldNormal.normal());
  const AcGeVector3d newNormal = isTurned ? across.normal() : oldNormal;
  const AcGePoint3d place = position().transformBy(matrix);
  const AcGePoint3d alignment = alignmentPoint().transformBy(matrix);
  const bool hasAlignment = findProperty(groups(), kTextAlignment) != dxf::kNoGroup;

  if (isTurned) setNormal(newNormal);
  setPosition(place);
  if (hasAlignment) setAlignmentPoint(alignment);
  const AcGeVector3d inPlane = along.transformBy(wcsToOcs(newNormal));
  const double turned = normalizedAngle(std::atan2(inPlane.y, inPlane.x));
  if (std::fabs(turned - rotation()) > 1e-12) setRotation(turned);
  // The height is what stands across the line; the rest of a stretch goes into the width factor.
  const double heightScale = across.length() / stretch;
  if (std::fabs(heightScale - 1) > 1e-12) setHeight(height() * heightScale);
  const double widthScale = stretch / heightScale;
  if (std::fabs(widthScale - 1) > 1e-12) setWidthFactor(widthFactor() * widthScale);
  return Acad::eOk;
}
