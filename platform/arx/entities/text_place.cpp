// Where a text is: its position from its alignment point, its extents, its transformation.
#include <cmath>

#include "platform/arx/database/database.h"
#include "platform/arx/database/text_styles.h"
#include "platform/arx/entities/text.h"
#include "platform/arx/entities/text_align.h"
#include "platform/arx/entities/text_groups.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/arx/geometry/text_metrics.h"
#include "platform/dxf/record_store.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

TextShape AcDbText::shape(const AcDbDatabase* given) const {
  TextShape result = textShape(groups());
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
  const TextPlacement place = placeText(line);
  return applyPlaced(
      [&](RecordEdit& edit) {
        if (line.horizontal == AcDb::kTextAlign || line.horizontal == AcDb::kTextFit) {
          bool changed = edit.setReal(kTextHeight, place.height);
          changed |= edit.setReal(kTextWidthFactor, place.widthFactor, 1);
          if (place.rotation != textRotation(edit.draft()))
            changed |= edit.setReal(kTextRotation, degreesOf(place.rotation), 0);
          return changed;
        }
        return edit.setPoint(kTextPosition, place.position);
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
  apply([&](RecordEdit& edit) { return alignText(edit, *database()); });
  if (groups().embedded().empty()) return;
  dxf::RecordDraft before;
  database()->store().load(recordIndex(), before);
  const TextAnchor anchor = textAnchor(before);
  apply([&](RecordEdit& edit) {
    syncEmbedded(edit.draft(), anchor);
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
