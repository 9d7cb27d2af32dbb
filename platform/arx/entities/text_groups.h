// The groups of TEXT, ATTRIB and ATTDEF, read without opening an object.
#pragma once
#include "platform/arx/database/record_edit.h"
#include "platform/arx/geometry/text_metrics.h"

namespace kovra::dxf {
class TextCodec;
}

namespace kovra::arx {

inline constexpr Property kTextPosition{kTextPart, 10};
inline constexpr Property kTextAlignment{kTextPart, 11};
inline constexpr Property kTextHeight{kTextPart, 40};
inline constexpr Property kTextValue{kTextPart, 1};
inline constexpr Property kTextWidthFactor{kTextPart, 41};
inline constexpr Property kTextRotation{kTextPart, 50};
inline constexpr Property kTextOblique{kTextPart, 51};
inline constexpr Property kTextStyle{kTextPart, 7};
inline constexpr Property kTextFlags{kTextPart, 71};
inline constexpr Property kTextHorizontal{kTextPart, 72};
inline constexpr Property kTextNormal{kTextPart, 210};
inline constexpr Property kTextThickness{kTextPart, 39};

inline constexpr std::int64_t kMirroredInX = 2;
inline constexpr std::int64_t kMirroredInY = 4;

/// 73 of TEXT; 74 below the own marker of ATTRIB and ATTDEF, whose 73 is the field length.
Property verticalModeProperty(dxf::RecordKind kind);
/// The subclass of the tag and the flags; that of ATTRIB for anything but ATTDEF.
std::string_view attributePart(dxf::RecordKind kind);

AcDb::TextHorzMode textHorizontalMode(const dxf::RecordDraft& draft);
AcDb::TextVertMode textVerticalMode(const dxf::RecordDraft& draft);
/// Unit z when the record has no normal or one of no length.
AcGeVector3d textNormal(const dxf::RecordDraft& draft);
/// Group 10 or 11 in the text's plane; z from the elevation (38) of old drawings when the point has
/// none. A text that uses its alignment point but has none is aligned at its position.
AcGePoint3d textPoint(const dxf::RecordDraft& draft, Property property);
/// Radians, from 0 up to a full turn.
double textRotation(const dxf::RecordDraft& draft);

/// All that decides where the text is drawn, but its value and whether its style is vertical, which
/// the caller fills in.
TextShape textShape(const dxf::RecordDraft& draft);
/// Whether both records' groups put their texts in the same place, the style and value included.
bool samePlacement(const dxf::RecordDraft& a, const dxf::RecordDraft& b);
/// Whether two aligned or two fitted texts are the same but for what follows from their two points:
/// the height of an aligned one, the width factor of a fitted one, and the rotation.
bool sameBetweenPoints(const dxf::RecordDraft& a, const dxf::RecordDraft& b);

/// To the last bit.
bool samePoint(const AcGePoint3d& a, const AcGePoint3d& b);
bool isFinite(const AcGePoint3d& point);

/// Brings what a multi-line attribute's embedded object repeats in step with the attribute: height,
/// style, rotation, place, and the attachment where the attribute's modes changed. Nothing without
/// an embedded object.
/// @param before the record before the change
void syncEmbedded(dxf::RecordDraft& draft, const dxf::RecordDraft& before);
/// Code of the x of the embedded object's place, which is in world coordinates; the other one of 10
/// and 11 is its direction.
int embeddedPlaceCode(const dxf::RecordDraft& draft);

}  // namespace kovra::arx
