#include "platform/arx/entities/text.h"

#include <cmath>
#include <numbers>

#include "platform/arx/base/ads.h"
#include "platform/arx/database/database.h"
#include "platform/arx/entities/text_groups.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/arx/geometry/text_metrics.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

ACRX_DEFINE_MEMBERS(AcDbText, AcDbEntity, L"TEXT")

namespace {

ACHAR* copyOf(const wchar_t* text) {
  ACHAR* copy = nullptr;
  acutNewString(text, copy);
  return copy;
}

bool isPositive(double value) {
  return std::isfinite(value) && value > 0;
}

}  // namespace

AcDbText::AcDbText(Stored stored) : AcDbEntity(stored) {}

AcDbText::AcDbText() : AcDbText(Stored{}) {
  startText("TEXT");
}

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style,
                   double height, double rotation)
    : AcDbText() {
  setPosition(position);
  setTextString(text);
  if (!style.isNull()) setTextStyle(style);
  if (height != 0) setHeight(height);
  setRotation(rotation);
}

dxf::RecordDraft& AcDbText::startText(const char* typeName) {
  dxf::RecordDraft& draft = startGroups(typeName);
  draft.appendMarker(kEntityPart);
  draft.appendText(8, std::string_view("0"));
  draft.appendMarker(kTextPart);
  draft.appendReal(10, 0);
  draft.appendReal(20, 0);
  draft.appendReal(30, 0);
  draft.appendReal(40, 0);
  draft.appendText(1, std::string_view());
  if (draft.kind() == dxf::RecordKind::kText) draft.appendMarker(kTextPart);
  return draft;
}

Acad::ErrorStatus AcDbText::applyPlaced(const std::function<bool(RecordEdit&)>& change,
                                        Touched touched) {
  bool changed = false;
  const Acad::ErrorStatus status = apply(change, &changed, touched);
  placeChanged_ |= changed;
  return status;
}

Acad::ErrorStatus AcDbText::applyGroups(const std::function<bool(RecordEdit&)>& change) {
  return applyPlaced(change);
}

Adesk::Boolean AcDbText::isDefaultAlignment() const {
  return horizontalMode() == AcDb::kTextLeft && verticalMode() == AcDb::kTextBase;
}

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal) {
  if (!isFinite(normal.asPoint()) || normal.isZeroLength()) return Acad::eInvalidInput;
  if (!canWrite()) return Acad::eNotOpenForWrite;
  const AcGePoint3d unit = normal.normal().asPoint();
  if (samePoint(textNormal(groups()).asPoint(), unit)) return Acad::eOk;
  // The points stay where they are in the world.
  const AcGePoint3d place = wcsToOcs(position(), normal);
  const bool hasAlignment = findProperty(groups(), kTextAlignment) != dxf::kNoGroup;
  const AcGePoint3d alignment = wcsToOcs(alignmentPoint(), normal);
  return applyPlaced([&](RecordEdit& edit) {
    bool changed = edit.setPoint(kTextNormal, unit);
    changed |= edit.setPoint(kTextPosition, place);
    if (hasAlignment) changed |= edit.setPoint(kTextAlignment, alignment);
    return changed;
  });
}

double AcDbText::thickness() const {
  return readReal(groups(), kTextThickness, 0);
}

Acad::ErrorStatus AcDbText::setThickness(double thickness) {
  if (!std::isfinite(thickness)) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return edit.setReal(kTextThickness, thickness, 0); });
}

double AcDbText::oblique() const {
  return readReal(groups(), kTextOblique, 0) * std::numbers::pi / 180;
}

Acad::ErrorStatus AcDbText::setOblique(double angle) {
  constexpr double kLimit = kSteepestOblique * std::numbers::pi / 180;
  if (!std::isfinite(angle) || std::fabs(angle) > kLimit + 1e-9) return Acad::eInvalidInput;
  if (angle == oblique()) return canWrite() ? Acad::eOk : Acad::eNotOpenForWrite;
  const double degrees = exactDegrees(angle);
  return applyPlaced([&](RecordEdit& edit) { return edit.setReal(kTextOblique, degrees, 0); });
}

Acad::ErrorStatus AcDbText::setRotation(double angle) {
  if (!std::isfinite(angle)) return Acad::eInvalidInput;
  if (normalizedAngle(angle) == rotation()) return canWrite() ? Acad::eOk : Acad::eNotOpenForWrite;
  return applyPlaced([&](RecordEdit& edit) {
    // Turned back to what the file has it gets the file's degrees, to the last digit.
    dxf::RecordDraft file;
    const bool asInFile = edit.loadOriginal(file) && textRotation(file) == normalizedAngle(angle);
    const double degrees = asInFile ? readReal(file, kTextRotation, 0) : degreesOf(angle);
    return edit.setReal(kTextRotation, degrees, 0);
  });
}

double AcDbText::height() const {
  return readReal(groups(), kTextHeight, 0);
}

Acad::ErrorStatus AcDbText::setHeight(double height) {
  if (!isPositive(height)) return Acad::eInvalidInput;
  return applyPlaced([&](RecordEdit& edit) { return edit.setReal(kTextHeight, height); });
}

double AcDbText::widthFactor() const {
  return readReal(groups(), kTextWidthFactor, 1);
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
  if (!isPositive(factor)) return Acad::eInvalidInput;
  return applyPlaced([&](RecordEdit& edit) { return edit.setReal(kTextWidthFactor, factor, 1); });
}

const ACHAR* AcDbText::textStringConst() const {
  return cachedText(TextSlot::kText, kTextValue).c_str();
}

ACHAR* AcDbText::textString() const {
  return copyOf(textStringConst());
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
  if (text == nullptr) return Acad::eInvalidInput;
  if (!canWrite()) return Acad::eNotOpenForWrite;
  if (cachedText(TextSlot::kText, kTextValue) == text) return Acad::eOk;
  return applyPlaced(
      [&](RecordEdit& edit) { return edit.setText(kTextValue, dxf::encodeCarets(text), codec()); });
}

const ACHAR* AcDbText::textStyleName() const {
  const std::wstring& name = cachedText(TextSlot::kStyle, kTextStyle);
  return name.empty() ? L"Standard" : name.c_str();
}

AcDbObjectId AcDbText::textStyle() const {
  const AcDbDatabase* names = databaseForNames();
  if (names == nullptr || !names->hasDrawing()) return AcDbObjectId::kNull;
  const dxf::RecordIndex entry =
      names->structure().findEntry(dxf::TableKind::kStyle, textStyleName());
  return entry == dxf::kNoRecord ? AcDbObjectId::kNull : names->idOf(entry);
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style) {
  const AcDbDatabase* owner = style.database();
  if (owner == nullptr) return Acad::eNullObjectId;
  if (style.objectClass() != AcDbTextStyleTableRecord::desc()) return Acad::eInvalidTextStyle;
  if (style.isErased()) return Acad::eWasErased;
  if (database() != nullptr && owner != database()) return Acad::eInvalidTextStyle;
  const std::wstring name = owner->structure().entryName(style.index());
  if (dxf::equalNames(textStyleName(), name))
    return canWrite() ? Acad::eOk : Acad::eNotOpenForWrite;
  return applyPlaced([&](RecordEdit& edit) { return edit.setText(kTextStyle, name, codec()); });
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode) {
  if (mode < AcDb::kTextLeft || mode > AcDb::kTextFit) return Acad::eInvalidInput;
  return applyPlaced([&](RecordEdit& edit) { return edit.setInteger(kTextHorizontal, mode, 0); });
}

Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode) {
  if (mode < AcDb::kTextBase || mode > AcDb::kTextTop) return Acad::eInvalidInput;
  const Property property = verticalModeProperty(groups().kind());
  return applyPlaced([&](RecordEdit& edit) { return edit.setInteger(property, mode, 0); });
}

Adesk::Boolean AcDbText::isMirroredInX() const {
  return (readInteger(groups(), kTextFlags, 0) & kMirroredInX) != 0;
}

Adesk::Boolean AcDbText::isMirroredInY() const {
  return (readInteger(groups(), kTextFlags, 0) & kMirroredInY) != 0;
}

Acad::ErrorStatus AcDbText::setFlag(std::int64_t flag, bool on) {
  const std::int64_t flags = readInteger(groups(), kTextFlags, 0);
  return applyPlaced([&](RecordEdit& edit) {
    return edit.setInteger(kTextFlags, on ? flags | flag : flags & ~flag, 0);
  });
}

Acad::ErrorStatus AcDbText::mirrorInX(Adesk::Boolean mirrored) {
  return setFlag(kMirroredInX, mirrored);
}

Acad::ErrorStatus AcDbText::mirrorInY(Adesk::Boolean mirrored) {
  return setFlag(kMirroredInY, mirrored);
}
