// Layers and text styles.
#include <cmath>
#include <numbers>

#include "platform/arx/base/table_flags.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/record_edit.h"
#include "platform/arx/database/symbol_table.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

ACRX_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, L"LAYER")
ACRX_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, L"STYLE")

namespace {

constexpr Property kLayerFlags{kLayerPart, 70};
/// Negative for a layer that is off.
constexpr Property kLayerColor{kLayerPart, 62};
constexpr std::int64_t kWhite = 7;

constexpr Property kStyleFlags{kStylePart, 70};
constexpr Property kFixedHeight{kStylePart, 40};
constexpr Property kStyleWidth{kStylePart, 41};
constexpr Property kStyleOblique{kStylePart, 50};
constexpr Property kLastHeight{kStylePart, 42};
constexpr Property kFont{kStylePart, 3};
constexpr Property kBigFont{kStylePart, 4};

bool setBit(RecordEdit& edit, Property property, std::int64_t bit, bool on) {
  const std::int64_t flags = readInteger(edit.draft(), property, 0);
  return edit.setInteger(property, on ? flags | bit : flags & ~bit, 0);
}

dxf::RecordDraft& startEntry(dxf::RecordDraft& draft, std::string_view subclass) {
  draft.appendMarker("AcDbSymbolTableRecord");
  draft.appendMarker(subclass);
  draft.appendText(2, std::string_view());
  draft.appendInteger(70, 0);
  return draft;
}

}  // namespace

AcDbLayerTableRecord::AcDbLayerTableRecord(Stored stored) : AcDbSymbolTableRecord(stored) {}

AcDbLayerTableRecord::AcDbLayerTableRecord() : AcDbSymbolTableRecord(Stored{}) {
  dxf::RecordDraft& draft = startEntry(startGroups("LAYER"), kLayerPart);
  draft.appendInteger(62, kWhite);
  draft.appendText(6, std::string_view("Continuous"));
}

bool AcDbLayerTableRecord::isOff() const {
  return readInteger(groups(), kLayerColor, kWhite) < 0;
}

void AcDbLayerTableRecord::setIsOff(bool off) {
  apply([&](RecordEdit& edit) {
    const std::int64_t color = std::abs(readInteger(edit.draft(), kLayerColor, kWhite));
    return edit.setInteger(kLayerColor, off ? -color : color, kWhite);
  });
}

bool AcDbLayerTableRecord::isFrozen() const {
  return (readInteger(groups(), kLayerFlags, 0) & kLayerFrozen) != 0;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
  if (frozen && !isFrozen() && database() != nullptr && database()->clayer() == objectId())
    return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return setBit(edit, kLayerFlags, kLayerFrozen, frozen); });
}

bool AcDbLayerTableRecord::isLocked() const {
  return (readInteger(groups(), kLayerFlags, 0) & kLayerLocked) != 0;
}

void AcDbLayerTableRecord::setIsLocked(bool locked) {
  apply([&](RecordEdit& edit) { return setBit(edit, kLayerFlags, kLayerLocked, locked); });
}

Adesk::UInt16 AcDbLayerTableRecord::colorIndex() const {
  return static_cast<Adesk::UInt16>(std::abs(readInteger(groups(), kLayerColor, kWhite)));
}

Acad::ErrorStatus AcDbLayerTableRecord::setColorIndex(Adesk::UInt16 color) {
  if (color < 1 || color > 255) return Acad::eInvalidInput;
  const std::int64_t sign = isOff() ? -1 : 1;
  return apply(
      [&](RecordEdit& edit) { return edit.setInteger(kLayerColor, sign * color, kWhite); });
}

AcDbTextStyleTableRecord::AcDbTextStyleTableRecord(Stored stored) : AcDbSymbolTableRecord(stored) {}

AcDbTextStyleTableRecord::AcDbTextStyleTableRecord() : AcDbSymbolTableRecord(Stored{}) {
  dxf::RecordDraft& draft = startEntry(startGroups("STYLE"), kStylePart);
  draft.appendReal(40, 0);
  draft.appendReal(41, 1);
  draft.appendReal(50, 0);
  draft.appendInteger(71, 0);
  draft.appendReal(42, 2.5);
  draft.appendText(3, std::string_view("txt"));
  draft.appendText(4, std::string_view());
}

double AcDbTextStyleTableRecord::textSize() const {
  return readReal(groups(), kFixedHeight, 0);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
  if (!std::isfinite(size) || size < 0) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return edit.setReal(kFixedHeight, size, 0); });
}

double AcDbTextStyleTableRecord::xScale() const {
  return readReal(groups(), kStyleWidth, 1);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double factor) {
  if (!std::isfinite(factor) || factor <= 0) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return edit.setReal(kStyleWidth, factor, 1); });
}

double AcDbTextStyleTableRecord::obliquingAngle() const {
  return readReal(groups(), kStyleOblique, 0) * std::numbers::pi / 180;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double angle) {
  if (!std::isfinite(angle)) return Acad::eInvalidInput;
  if (angle == obliquingAngle()) return canWrite() ? Acad::eOk : Acad::eNotOpenForWrite;
  const double degrees = exactDegrees(angle);
  return apply([&](RecordEdit& edit) { return edit.setReal(kStyleOblique, degrees, 0); });
}

Adesk::Boolean AcDbTextStyleTableRecord::isVertical() const {
  return (readInteger(groups(), kStyleFlags, 0) & kStyleVertical) != 0;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setIsVertical(Adesk::Boolean vertical) {
  return apply(
      [&](RecordEdit& edit) { return setBit(edit, kStyleFlags, kStyleVertical, vertical); });
}

double AcDbTextStyleTableRecord::priorSize() const {
  return readReal(groups(), kLastHeight, 0);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setPriorSize(double size) {
  if (!std::isfinite(size) || size <= 0) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return edit.setReal(kLastHeight, size); });
}

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(const ACHAR*& name) const {
  name = cachedText(TextSlot::kText, kFont).c_str();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* name) {
  if (name == nullptr) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return edit.setText(kFont, name, codec()); });
}

Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(const ACHAR*& name) const {
  name = cachedText(TextSlot::kPrompt, kBigFont).c_str();
  return Acad::eOk;
}
