#include "platform/arx/database/entity.h"

#include "platform/arx/base/ads.h"
#include "platform/arx/database/database.h"
#include "platform/arx/database/drawing_defaults.h"
#include "platform/arx/database/object_table.h"
#include "platform/arx/database/record_edit.h"
#include "platform/dxf/record_store.h"
#include "platform/dxf/structure.h"

namespace dxf = kovra::dxf;
using kovra::arx::kColorByLayer;
using kovra::arx::kEntityPart;
using kovra::arx::Property;
using kovra::arx::RecordEdit;
using kovra::arx::TextSlot;

ACRX_DEFINE_MEMBERS(AcDbEntity, AcDbObject, nullptr)

namespace {

constexpr Property kLayer{kEntityPart, 8};
constexpr Property kLinetype{kEntityPart, 6};
constexpr Property kColor{kEntityPart, 62};
constexpr Property kLinetypeScale{kEntityPart, 48};
constexpr Property kInvisible{kEntityPart, 60};

ACHAR* copyOf(const wchar_t* text) {
  ACHAR* copy = nullptr;
  acutNewString(text, copy);
  return copy;
}

}  // namespace

AcDbEntity::AcDbEntity(kovra::arx::Stored stored) : AcDbObject(stored) {}

AcDbDatabase* AcDbEntity::databaseForNames() const {
  return database() != nullptr ? database() : acdbHostApplicationServices()->workingDatabase();
}

AcDbObjectId AcDbEntity::blockId() const {
  if (database() == nullptr) return AcDbObjectId::kNull;
  const dxf::BlockNumber block = database()->structure().blockOf(recordIndex());
  return block == dxf::kNoBlock ? AcDbObjectId::kNull
                                : database()->idOf(database()->objects().blockObject(block));
}

const ACHAR* AcDbEntity::layerName() const {
  const std::wstring& name = cachedText(TextSlot::kLayer, kLayer);
  return name.empty() ? L"0" : name.c_str();
}

ACHAR* AcDbEntity::layer() const {
  return copyOf(layerName());
}

AcDbObjectId AcDbEntity::layerId() const {
  const AcDbDatabase* names = databaseForNames();
  if (names == nullptr || !names->hasDrawing()) return AcDbObjectId::kNull;
  const dxf::RecordIndex entry = names->structure().findEntry(dxf::TableKind::kLayer, layerName());
  return entry == dxf::kNoRecord ? AcDbObjectId::kNull : names->idOf(entry);
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, Adesk::Boolean /*doSubents*/,
                                       bool /*allowHiddenLayer*/) {
  if (name == nullptr || *name == 0) return Acad::eInvalidLayer;
  if (!canWrite()) return Acad::eNotOpenForWrite;
  const AcDbDatabase* names = databaseForNames();
  if (names == nullptr || !names->hasDrawing()) return Acad::eNoDatabase;
  const dxf::RecordIndex entry = names->structure().findEntry(dxf::TableKind::kLayer, name);
  if (entry == dxf::kNoRecord) return Acad::eKeyNotFound;
  if (dxf::equalNames(cachedText(TextSlot::kLayer, kLayer), name)) return Acad::eOk;
  return apply([&](RecordEdit& edit) {
    return edit.setText(kLayer, names->structure().entryName(entry), codec());
  });
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId layerId, Adesk::Boolean doSubents,
                                       bool allowHiddenLayer) {
  const AcDbDatabase* owner = layerId.database();
  if (owner == nullptr) return Acad::eNullObjectId;
  if (layerId.objectClass() != AcDbLayerTableRecord::desc()) return Acad::eInvalidLayer;
  if (layerId.isErased()) return Acad::eWasErased;
  return setLayer(owner->structure().entryName(layerId.index()).c_str(), doSubents,
                  allowHiddenLayer);
}

Adesk::UInt16 AcDbEntity::colorIndex() const {
  return static_cast<Adesk::UInt16>(kovra::arx::readInteger(groups(), kColor, kColorByLayer));
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 color, Adesk::Boolean /*doSubents*/) {
  if (color > kColorByLayer) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return edit.setInteger(kColor, color, kColorByLayer); });
}

ACHAR* AcDbEntity::linetype() const {
  const std::wstring& name = cachedText(TextSlot::kLinetype, kLinetype);
  return copyOf(name.empty() ? L"ByLayer" : name.c_str());
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, Adesk::Boolean /*doSubents*/) {
  if (name == nullptr || *name == 0) return Acad::eInvalidInput;
  const AcDbDatabase* names = databaseForNames();
  const bool special = dxf::equalNames(name, L"ByLayer") || dxf::equalNames(name, L"ByBlock");
  if (!special) {
    if (names == nullptr || !names->hasDrawing()) return Acad::eNoDatabase;
    if (names->structure().findEntry(dxf::TableKind::kLtype, name) == dxf::kNoRecord)
      return Acad::eKeyNotFound;
  }
  const std::wstring& present = cachedText(TextSlot::kLinetype, kLinetype);
  if (dxf::equalNames(present.empty() ? L"ByLayer" : present, name)) return Acad::eOk;
  return apply([&](RecordEdit& edit) { return edit.setText(kLinetype, name, codec()); });
}

double AcDbEntity::linetypeScale() const {
  return kovra::arx::readReal(groups(), kLinetypeScale, 1);
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, Adesk::Boolean /*doSubents*/) {
  if (!(scale > 0) || scale > 1e99) return Acad::eInvalidInput;
  return apply([&](RecordEdit& edit) { return edit.setReal(kLinetypeScale, scale, 1); });
}

AcDb::Visibility AcDbEntity::visibility() const {
  kovra::arx::ObjectBody& body = ensureBody();
  if (body.invisible < 0)
    body.invisible = kovra::arx::readInteger(groups(), kInvisible, 0) != 0 ? 1 : 0;
  return body.invisible != 0 ? AcDb::kInvisible : AcDb::kVisible;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility wanted, Adesk::Boolean /*doSubents*/) {
  if (wanted != AcDb::kVisible && wanted != AcDb::kInvisible) return Acad::eInvalidInput;
  if (!canWrite()) return Acad::eNotOpenForWrite;
  if (visibility() == wanted) return Acad::eOk;
  const Acad::ErrorStatus status =
      apply([&](RecordEdit& edit) { return edit.setInteger(kInvisible, wanted, 0); });
  ensureBody().invisible = wanted == AcDb::kInvisible ? 1 : 0;
  return status;
}

Acad::ErrorStatus AcDbEntity::setDatabaseDefaults(AcDbDatabase* given) {
  const AcDbDatabase* from = given != nullptr ? given : databaseForNames();
  if (from == nullptr || !from->hasDrawing()) return Acad::eNoDatabase;
  if (!canWrite()) return Acad::eNotOpenForWrite;
  const std::wstring layer = kovra::arx::currentLayer(from->structure());
  const std::wstring linetype = kovra::arx::currentLinetype(from->structure());
  const std::int64_t color = kovra::arx::currentColor(from->structure());
  return apply([&](RecordEdit& edit) {
    bool changed = edit.setText(kLayer, layer, codec());
    if (!dxf::equalNames(linetype, L"ByLayer"))
      changed |= edit.setText(kLinetype, linetype, codec());
    return edit.setInteger(kColor, color, kColorByLayer) || changed;
  });
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& /*matrix*/) {
  return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& /*extents*/) const {
  return Acad::eInvalidExtents;
}
