// Block references and their attributes.
#pragma once
#include "platform/arx/database/entity.h"
#include "platform/arx/database/object_iterator.h"

class AcDbAttribute;

/// INSERT.
class AcDbBlockReference : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockReference)
  explicit AcDbBlockReference(kovra::arx::Stored);
  AcDbBlockReference();

  /// The block that is shown, null when the drawing lacks it.
  AcDbObjectId blockTableRecord() const;
  AcGePoint3d position() const;
  Acad::ErrorStatus setPosition(const AcGePoint3d& point);
  double rotation() const;
  Acad::ErrorStatus setRotation(double angle);
  AcGeScale3d scaleFactors() const;
  AcGeVector3d normal() const;
  /// From the block's coordinates to the coordinates of the reference's space.
  AcGeMatrix3d blockTransform() const;

  /// Walks the attributes in file order; the caller deletes it.
  AcDbObjectIterator* attributeIterator() const;
  Acad::ErrorStatus openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                  bool openErased = false) const;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
};
