// What all drawn objects have in common.
#pragma once
#include "platform/arx/database/object.h"
#include "platform/arx/geometry/extents.h"
#include "platform/arx/geometry/geometry.h"

/// An entity. Types without a class of their own open as this one and keep all their groups.
class AcDbEntity : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbEntity)
  explicit AcDbEntity(kovra::arx::Stored);

  /// The space or block that holds the entity; for an attribute that of its block reference.
  AcDbObjectId blockId() const;

  /// The layer's name as the entity has it; the caller releases it with acutDelString.
  ACHAR* layer() const;
  /// The same without a copy; valid until the object changes or closes.
  const ACHAR* layerName() const;
  AcDbObjectId layerId() const;
  /// Stores the layer table's spelling of the name. eInvalidLayer for null or an empty name,
  /// eKeyNotFound for a name that the table lacks. Attributes of a block reference are entities of
  /// their own and keep their layers, whatever doSubents says.
  virtual Acad::ErrorStatus setLayer(const ACHAR* name, Adesk::Boolean doSubents = true,
                                     bool allowHiddenLayer = false);
  virtual Acad::ErrorStatus setLayer(AcDbObjectId layerId, Adesk::Boolean doSubents = true,
                                     bool allowHiddenLayer = false);

  /// 0 by block, 256 by layer (also when the entity says nothing), else the color's number.
  Adesk::UInt16 colorIndex() const;
  virtual Acad::ErrorStatus setColorIndex(Adesk::UInt16 color, Adesk::Boolean doSubents = true);
  /// The line type's name, "ByLayer" when the entity says nothing; released with acutDelString.
  ACHAR* linetype() const;
  virtual Acad::ErrorStatus setLinetype(const ACHAR* name, Adesk::Boolean doSubents = true);
  double linetypeScale() const;
  virtual Acad::ErrorStatus setLinetypeScale(double scale, Adesk::Boolean doSubents = true);
  AcDb::Visibility visibility() const;
  virtual Acad::ErrorStatus setVisibility(AcDb::Visibility visibility,
                                          Adesk::Boolean doSubents = true);

  /// Takes layer, color and line type for new entities from the database, or from the working
  /// database. eNoDatabase when there is neither.
  Acad::ErrorStatus setDatabaseDefaults(AcDbDatabase* database = nullptr);

  /// eNotApplicable for an entity type without a class of its own.
  virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix);
  /// In world coordinates. eInvalidExtents when nothing is known of the type.
  virtual Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;

 protected:
  /// For drawables of an application's own, which never enter a drawing.
  AcDbEntity() : AcDbEntity(kovra::arx::Stored{}) {}
  friend class AcDbBlockTableRecord;
  /// Takes from a database what a new entity leaves to it, before it goes there.
  virtual void subAppend(const AcDbDatabase&) {}
  /// The entity's database, or the working database for one that isn't in any.
  AcDbDatabase* databaseForNames() const;
};
