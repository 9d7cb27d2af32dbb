// Multi-line texts.
#pragma once
#include "platform/arx/database/entity.h"

/// MTEXT. World coordinates, drawing units, radians.
class AcDbMText : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbMText)
  explicit AcDbMText(kovra::arx::Stored);
  /// Group 71.
  enum AttachmentPoint {
    kTopLeft = 1,
    kTopCenter = 2,
    kTopRight = 3,
    kMiddleLeft = 4,
    kMiddleCenter = 5,
    kMiddleRight = 6,
    kBottomLeft = 7,
    kBottomCenter = 8,
    kBottomRight = 9,
  };
  AcDbMText();

  AcGePoint3d location() const;
  Acad::ErrorStatus setLocation(const AcGePoint3d& point);
  AcGeVector3d normal() const;
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  /// The unit vector along the lines.
  AcGeVector3d direction() const;
  Acad::ErrorStatus setDirection(const AcGeVector3d& direction);
  double rotation() const;
  Acad::ErrorStatus setRotation(double angle);
  double textHeight() const;
  Acad::ErrorStatus setTextHeight(double height);
  double width() const;
  AttachmentPoint attachment() const;
  Acad::ErrorStatus setAttachment(AttachmentPoint attachment);
  /// The text with its formatting codes, released with acutDelString.
  ACHAR* contents() const;
  Acad::ErrorStatus setContents(const ACHAR* text);
  AcDbObjectId textStyle() const;
  Acad::ErrorStatus setTextStyle(AcDbObjectId style);
  const ACHAR* textStyleName() const;
  /// Extents of the lines by the text metrics.
  double actualWidth() const;
  double actualHeight() const;
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
  Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
};
