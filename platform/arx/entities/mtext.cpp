#include "platform/arx/entities/mtext.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/arx/base/ads.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/record_edit.h"
#include "platform/arx/entities/mtext_lines.h"
#include "platform/arx/geometry/text_metrics.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;
using namespace kovra::arx;

ACRX_DEFINE_MEMBERS(AcDbMText, AcDbEntity, L"MTEXT")

namespace {

constexpr Property kLocation{kMTextPart, 10};
constexpr Property kDirection{kMTextPart, 11};
constexpr Property kNormal{kMTextPart, 210};
constexpr Property kHeight{kMTextPart, 40};
constexpr Property kWidth{kMTextPart, 41};
constexpr Property kRotation{kMTextPart, 50};
constexpr Property kAttachment{kMTextPart, 71};
constexpr Property kStyle{kMTextPart, 7};
constexpr Property kSpacing{kMTextPart, 44};
constexpr Property kContents{kMTextPart, 1};
constexpr int kChunkCode = 3;
constexpr std::size_t kChunkLength = 250;

bool isFinite(const AcGePoint3d& p) {
  return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

/// A chunk may not end between a caret and the character that belongs to it.
std::size_t chunkLength(std::wstring_view text) {
  std::size_t length = std::min(text.size(), kChunkLength);
  while (length < text.size() && length > 1 && text[length - 1] == L'^') --length;
  return length;
}

bool writeContents(dxf::RecordDraft& draft, std::wstring_view text, const dxf::TextCodec& codec) {
  for (std::size_t chunk = draft.find(kMTextPart, kChunkCode); chunk != dxf::kNoGroup;
       chunk = draft.find(kMTextPart, kChunkCode))
    draft.erase(chunk);
  std::size_t last = draft.find(kMTextPart, kContents.code);
  if (last == dxf::kNoGroup) {
    last = placeOf(draft, kContents);
    draft.insertText(last, kContents.code, std::string_view());
  }
  while (text.size() > kChunkLength) {
    const std::size_t length = chunkLength(text);
    draft.insertText(last++, kChunkCode, text.substr(0, length), codec);
    text.remove_prefix(length);
  }
  draft.setText(last, text, codec);
  return true;
}

AcGeVector3d normalOf(const dxf::RecordDraft& draft) {
  const std::optional<AcGePoint3d> normal = readPoint(draft, kNormal);
  return normal && !normal->asVector().isZeroLength() ? normal->asVector() : AcGeVector3d(0, 0, 1);
}

/// The unit vector at an angle; right angles give whole numbers.
AcGeVector3d unitAt(double angle) {
  const auto whole = [](double value) { return std::fabs(value) < 1e-15 ? 0 : value; };
  return AcGeVector3d(whole(std::cos(angle)), whole(std::sin(angle)), 0);
}

// The direction outranks the rotation, whichever stands last.
AcGeVector3d directionOf(const dxf::RecordDraft& draft) {
  const std::optional<AcGePoint3d> direction = readPoint(draft, kDirection);
  if (direction && !direction->asVector().isZeroLength()) return direction->asVector().normal();
  const double angle = readReal(draft, kRotation, 0) * std::numbers::pi / 180;
  return unitAt(angle).transformBy(AcGeMatrix3d::planeToWorld(normalOf(draft)));
}

AcDbMText::AttachmentPoint attachmentOf(const dxf::RecordDraft& draft) {
  const std::int64_t code = readInteger(draft, kAttachment, AcDbMText::kTopLeft);
  const bool known = code >= AcDbMText::kTopLeft && code <= AcDbMText::kBottomRight;
  return known ? static_cast<AcDbMText::AttachmentPoint>(code) : AcDbMText::kTopLeft;
}

}  // namespace

std::string kovra::arx::mtextBytes(const dxf::RecordDraft& draft) {
  std::string bytes;
  std::size_t last = dxf::kNoGroup;
  for (std::size_t i = 1; i < draft.size(); ++i) {
    if (draft.part(i) != dxf::GroupPart::kData) continue;
    if (draft.code(i) == kChunkCode) bytes += draft.text(i);
    if (draft.code(i) == kContents.code && last == dxf::kNoGroup) last = i;
  }
  if (last != dxf::kNoGroup) bytes += draft.text(last);
  return bytes;
}

std::wstring kovra::arx::mtextContents(const dxf::RecordDraft& draft, const dxf::TextCodec& codec) {
  return codec.decode(mtextBytes(draft));
}

MTextLayout kovra::arx::layOutMText(const dxf::RecordDraft& draft, const dxf::TextCodec& codec) {
  MTextLayout place;
  place.textHeight = readReal(draft, kHeight, 0);
  const std::optional<MTextColumns> columns = readColumns(draft);
  place.lines = mtextLines(mtextContents(draft, codec), place.textHeight,
                           columns ? columns->width : readReal(draft, kWidth, 0));
  const int code = attachmentOf(draft) - AcDbMText::kTopLeft;
  placeLines(place, columns, kLineAdvance * readReal(draft, kSpacing, 1) * place.textHeight,
             (code % 3) / 2.0, (code / 3) / 2.0);
  place.location = readPoint(draft, kLocation).value_or(AcGePoint3d());
  place.normal = normalOf(draft).normal();
  place.along = directionOf(draft);
  place.up = place.normal.crossProduct(place.along);
  return place;
}

AcDbMText::AcDbMText(Stored stored) : AcDbEntity(stored) {}

AcDbMText::AcDbMText() : AcDbEntity(Stored{}) {
  dxf::RecordDraft& draft = startGroups("MTEXT");
  draft.appendMarker(kEntityPart);
  draft.appendText(8, std::string_view("0"));
  draft.appendMarker(kMTextPart);
  for (const int code : {10, 20, 30, 40, 41}) draft.appendReal(code, 0);
  draft.appendInteger(71, kTopLeft);
  draft.appendInteger(72, 5);
  draft.appendText(1, std::string_view());
}

AcGePoint3d AcDbMText::location() const {
  return readPoint(groups(), kLocation).value_or(AcGePoint3d());
}

Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& point) {
  if (!isFinite(point)) return Acad::eInvalidInput;
  const AcGePoint3d former = location();
  return apply([&](RecordEdit& edit) {
    if (!edit.setPoint(kLocation, point)) return false;
    moveEmbedded(edit.draft(), former, point);
    return true;
  });
}

AcGeVector3d AcDbMText::normal() const {
  return normalOf(groups());
}

Acad::ErrorStatus AcDbMText::setNormal(const AcGeVector3d& given) {
  if (!isFinite(given.asPoint()) || given.isZeroLength()) return Acad::eInvalidInput;
  if (normal().isEqualTo(given.normal())) return canWrite() ? Acad::eOk : Acad::eNotOpenForWrite;
  return apply([&](RecordEdit& edit) { return edit.setPoint(kNormal, given.normal().asPoint()); });
}

AcGeVector3d AcDbMText::direction() const {
  return directionOf(groups());
}

Acad::ErrorStatus AcDbMText::setDirection(const AcGeVector3d& given) {
  if (!isFinite(given.asPoint()) || given.isZeroLength()) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) {
    const bool changed = edit.setPoint(kDirection, given.normal().asPoint());
    // A rotation that stays behind would say something else to readers that take the last one.
    const std::size_t rotation = findProperty(edit.draft(), kRotation);
    if (changed && rotation != dxf::kNoGroup) edit.draft().erase(rotation);
    if (changed) turnEmbedded(edit.draft(), directionOf(edit.draft()));
    return changed;
  });
}

double AcDbMText::rotation() const {
  AcGeVector3d along = direction();
  along.transformBy(AcGeMatrix3d::worldToPlane(normal()));
  return normalizedAngle(std::atan2(along.y, along.x));
}

Acad::ErrorStatus AcDbMText::setRotation(double angle) {
  if (!std::isfinite(angle)) return Acad::eInvalidInput;
  if (std::fabs(normalizedAngle(angle) - rotation()) < 1e-12)
    return canWrite() ? Acad::eOk : Acad::eNotOpenForWrite;
  if (findProperty(groups(), kDirection) == dxf::kNoGroup)
    return apply([&](RecordEdit& edit) {
      if (!edit.setReal(kRotation, degreesOf(angle), 0)) return false;
      turnEmbedded(edit.draft(), directionOf(edit.draft()));
      return true;
    });
  return setDirection(unitAt(angle).transformBy(AcGeMatrix3d::planeToWorld(normal())));
}

double AcDbMText::textHeight() const {
  return readReal(groups(), kHeight, 0);
}

Acad::ErrorStatus AcDbMText::setTextHeight(double height) {
  if (!std::isfinite(height) || height <= 0) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return edit.setReal(kHeight, height); });
}

double AcDbMText::width() const {
  return readReal(groups(), kWidth, 0);
}

AcDbMText::AttachmentPoint AcDbMText::attachment() const {
  return attachmentOf(groups());
}

Acad::ErrorStatus AcDbMText::setAttachment(AttachmentPoint attachment) {
  if (attachment < kTopLeft || attachment > kBottomRight) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) {
    if (!edit.setInteger(kAttachment, attachment, kTopLeft)) return false;
    attachEmbedded(edit.draft(), attachment);
    return true;
  });
}

ACHAR* AcDbMText::contents() const {
  ACHAR* copy = nullptr;
  acutNewString(mtextContents(groups(), codec()).c_str(), copy);
  return copy;
}

Acad::ErrorStatus AcDbMText::setContents(const ACHAR* text) {
  if (text == nullptr) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) {
    return mtextContents(edit.draft(), codec()) != text &&
           writeContents(edit.draft(), text, codec());
  });
}

const ACHAR* AcDbMText::textStyleName() const {
  const std::wstring& name = cachedText(TextSlot::kStyle, kStyle);
  return name.empty() ? L"Standard" : name.c_str();
}

AcDbObjectId AcDbMText::textStyle() const {
  const AcDbDatabase* names = databaseForNames();
  if (names == nullptr || !names->hasDrawing()) return AcDbObjectId::kNull;
  const dxf::RecordIndex entry =
      names->structure().findEntry(dxf::TableKind::kStyle, textStyleName());
  return entry == dxf::kNoRecord ? AcDbObjectId::kNull : names->idOf(entry);
}

Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId style) {
  const AcDbDatabase* owner = style.database();
  if (owner == nullptr) return Acad::eNullObjectId;
  if (style.objectClass() != AcDbTextStyleTableRecord::desc()) return Acad::eInvalidTextStyle;
  if (style.isErased()) return Acad::eWasErased;
  const std::wstring name = owner->structure().entryName(style.index());
  if (dxf::equalNames(textStyleName(), name))
    return canWrite() ? Acad::eOk : Acad::eNotOpenForWrite;
  return apply([&](RecordEdit& edit) { return edit.setText(kStyle, name, codec()); });
}

double AcDbMText::actualWidth() const {
  return layOutMText(groups(), codec()).width;
}
double AcDbMText::actualHeight() const {
  return layOutMText(groups(), codec()).height;
}

Acad::ErrorStatus AcDbMText::getGeomExtents(AcDbExtents& extents) const {
  const MTextLayout place = layOutMText(groups(), codec());
  extents = AcDbExtents();
  for (const double u : {place.left, place.left + place.width})
    for (const double v : {place.top, place.top - place.height})
      extents.addPoint(place.location + place.along * u + place.up * v);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::transformBy(const AcGeMatrix3d& matrix) {
  if (!canWrite()) return Acad::eNotOpenForWrite;
  AcGeVector3d along = direction();
  AcGeVector3d across = normal().normal().crossProduct(along);
  const AcGePoint3d place = location().transformBy(matrix);
  along.transformBy(matrix);
  across.transformBy(matrix);
  const AcGeVector3d up = along.crossProduct(across);
  if (up.isZeroLength()) return Acad::eInvalidInput;
  const double heightScale = up.length() / along.length();
  setLocation(place);
  if (!up.normal().isEqualTo(normal().normal())) setNormal(up);
  if (!along.normal().isEqualTo(direction())) setDirection(along);
  if (std::fabs(heightScale - 1) > 1e-12) setTextHeight(textHeight() * heightScale);
  if (std::fabs(along.length() - 1) > 1e-12 && width() > 0)
    return apply([&](RecordEdit& edit) { return edit.setReal(kWidth, width() * along.length()); });
  return Acad::eOk;
}
