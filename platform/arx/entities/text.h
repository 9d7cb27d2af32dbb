// Texts and attributes.
#pragma once
#include "platform/arx/database/entity.h"

namespace kovra::arx {
struct TextNumbers;
struct TextShape;
}  // namespace kovra::arx

/// TEXT, and what attributes share with it. Heights and points in drawing units (points in world
/// coordinates), angles in radians. Setters refuse with eInvalidInput and change nothing; an equal
/// value succeeds and changes nothing. The position of a text with an alignment point follows from
/// it and is brought in step when the writer closes, or by adjustAlignment.
class AcDbText : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbText)
  explicit AcDbText(kovra::arx::Stored);
  AcDbText();
  /// Outside a database. A null style becomes the database's current style and a height of 0 its
  /// text size when the text is appended.
  AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId::kNull,
           double height = 0, double rotation = 0);

  AcGePoint3d position() const;
  Acad::ErrorStatus setPosition(const AcGePoint3d& point);
  /// The origin when the text has none.
  AcGePoint3d alignmentPoint() const;
  Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
  Adesk::Boolean isDefaultAlignment() const;
  AcGeVector3d normal() const;
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  double thickness() const;
  Acad::ErrorStatus setThickness(double thickness);

  /// From -pi/2 to pi/2.
  double oblique() const;
  Acad::ErrorStatus setOblique(double angle);
  /// From 0 up to a full turn, in the text's own plane.
  double rotation() const;
  Acad::ErrorStatus setRotation(double angle);
  double height() const;
  /// Above 0 and finite.
  Acad::ErrorStatus setHeight(double height);
  double widthFactor() const;
  /// Above 0 and finite.
  Acad::ErrorStatus setWidthFactor(double factor);

  /// Released with acutDelString.
  ACHAR* textString() const;
  /// Valid until the object changes or closes.
  const ACHAR* textStringConst() const;
  virtual Acad::ErrorStatus setTextString(const ACHAR* text);
  /// Null if the style table lacks the style's name.
  AcDbObjectId textStyle() const;
  Acad::ErrorStatus setTextStyle(AcDbObjectId style);
  const ACHAR* textStyleName() const;

  AcDb::TextHorzMode horizontalMode() const;
  Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
  AcDb::TextVertMode verticalMode() const;
  Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);
  Adesk::Boolean isMirroredInX() const;
  Acad::ErrorStatus mirrorInX(Adesk::Boolean mirrored);
  Adesk::Boolean isMirroredInY() const;
  Acad::ErrorStatus mirrorInY(Adesk::Boolean mirrored);

  /// Computes the position from the alignment point; for an aligned text also the height, for a
  /// fitted one the width factor. The database gives the text style; null means the text's own or
  /// the working one.
  virtual Acad::ErrorStatus adjustAlignment(const AcDbDatabase* database = nullptr);
  Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix) override;
  Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus applyGroups(
      const std::function<bool(kovra::arx::RecordEdit&)>& change) override;

 protected:
  kovra::dxf::RecordDraft& startText(const char* typeName);
  void subClose() override;
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* context) override;
  void subAppend(const AcDbDatabase& database) override;

 private:
  /// As apply, for what the text's place follows from.
  Acad::ErrorStatus applyPlaced(const std::function<bool(kovra::arx::RecordEdit&)>& change,
                                kovra::arx::Touched touched = kovra::arx::Touched::kAll);
  void writeHeldBack(kovra::arx::ObjectBody& body) const override;
  kovra::arx::TextNumbers& numbers() const;
  Acad::ErrorStatus setPoint(const kovra::arx::Property& property, const AcGePoint3d& point);
  Acad::ErrorStatus putPoint(const kovra::arx::Property& property, const AcGePoint3d& inPlane);
  AcGePoint3d inPlaneOf(const kovra::arx::Property& property, const AcGePoint3d& point);
  kovra::arx::TextShape shape(const AcDbDatabase* database) const;
  Acad::ErrorStatus setFlag(std::int64_t flag, bool on);

  /// Whether a change since the open moved what group 10 follows from.
  bool placeChanged_ = false;
};

/// ATTRIB, a value of a block reference.
class AcDbAttribute : public AcDbText {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAttribute)
  explicit AcDbAttribute(kovra::arx::Stored);
  AcDbAttribute();
  AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                AcDbObjectId style = AcDbObjectId::kNull);
  /// Released with acutDelString; null when the attribute has no tag.
  ACHAR* tag() const;
  /// Valid until the object changes or closes.
  const ACHAR* tagConst() const;
  Acad::ErrorStatus setTag(const ACHAR* tag);
  Adesk::Boolean isInvisible() const;
  Acad::ErrorStatus setInvisible(Adesk::Boolean invisible);
  Adesk::Boolean isConstant() const;
  Adesk::Boolean isVerifiable() const;
  Adesk::Boolean isPreset() const;
  bool isMTextAttribute() const;
};

/// ATTDEF, the definition of an attribute in a block or a space.
class AcDbAttributeDefinition : public AcDbText {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition)
  explicit AcDbAttributeDefinition(kovra::arx::Stored);
  AcDbAttributeDefinition();
  AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                          const ACHAR* prompt, AcDbObjectId style = AcDbObjectId::kNull);
  ACHAR* tag() const;
  const ACHAR* tagConst() const;
  Acad::ErrorStatus setTag(const ACHAR* tag);
  ACHAR* prompt() const;
  Acad::ErrorStatus setPrompt(const ACHAR* prompt);
  Adesk::Boolean isInvisible() const;
  Acad::ErrorStatus setInvisible(Adesk::Boolean invisible);
  Adesk::Boolean isConstant() const;
  Adesk::Boolean isVerifiable() const;
  Adesk::Boolean isPreset() const;
  bool isMTextAttributeDefinition() const;
};
