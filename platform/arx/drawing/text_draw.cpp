#include "platform/arx/drawing/text_draw.h"

#include "platform/arx/database/database.h"
#include "platform/arx/database/text_styles.h"
#include "platform/arx/drawing/drawing_looks.h"
#include "platform/arx/entities/mtext_lines.h"
#include "platform/arx/entities/text.h"
#include "platform/arx/entities/text_groups.h"
#include "platform/arx/geometry/gi.h"
#include "platform/arx/geometry/ocs.h"
#include "platform/dxf/record_store.h"

Adesk::Boolean AcDbText::subWorldDraw(AcGiWorldDraw* context) {
  if (visibility() == AcDb::kInvisible) return true;
  if (database() != nullptr) {
    const auto color = kovra::arx::plottedColor(*database(), groups());
    if (!color) return true;
    context->subEntityTraits().setTrueColor(*color);
  }
  AcGiGeometry& geometry = context->geometry();
  geometry.pushModelTransform(kovra::arx::ocsToWcs(normal()));
  kovra::arx::drawText(geometry, shape(nullptr));
  geometry.popModelTransform();
  return true;
}

namespace kovra::arx {
namespace {

/// The characters stand one below the other, each in the middle of a full-width one's place.
void drawVertical(AcGiGeometry& geometry, const TextShape& shape, const TextPlacement& place,
                  const TextFrame& frame, const AcGeVector3d& normal) {
  double below = 0;
  TextCharacters characters(shape.text);
  for (TextCharacter c; characters.next(c);) {
    const double indent = (kFullWidthAdvance - c.advance) / 2 * place.height * place.widthFactor;
    const AcGePoint3d at = frame.origin + frame.along * indent - frame.up * below;
    const ACHAR single[] = {c.character, 0};
    geometry.text(at, normal, frame.along, place.height, place.widthFactor, shape.oblique, single);
    below += kVerticalAdvance * place.height;
  }
}

}  // namespace

TextShape readTextShape(const AcDbDatabase& database, const dxf::RecordDraft& draft,
                        std::wstring& text) {
  const bool definition = draft.kind() == dxf::RecordKind::kAttDef;
  const Property value = definition ? Property{kDefinitionPart, 2} : kTextValue;
  database.store().codec().decode(readBytes(draft, value), text);
  if (text.find(L'^') != std::wstring::npos) text = dxf::decodeCarets(text);
  TextShape shape = textShape(draft);
  shape.text = text;
  shape.vertical = database.textStyles().findBytes(readBytes(draft, kTextStyle)).vertical;
  return shape;
}

void drawText(AcGiGeometry& geometry, const TextShape& shape) {
  const TextPlacement place = placeText(shape);
  const TextFrame frame = textFrame(shape, place);
  const AcGeVector3d normal = frame.along.crossProduct(frame.up);
  if (shape.vertical) return drawVertical(geometry, shape, place, frame, normal);
  const std::wstring message(shape.text);
  geometry.text(frame.origin, normal, frame.along, place.height, place.widthFactor, shape.oblique,
                message.c_str());
}

void drawMText(AcGiGeometry& geometry, const AcDbDatabase& database,
               const dxf::RecordDraft& draft) {
  const MTextLayout layout = layOutMText(draft, database.store().codec());
  for (const MTextLine& line : layout.lines)
    geometry.text(layout.location + layout.along * line.left + layout.up * line.base, layout.normal,
                  layout.along, layout.textHeight, 1, 0, line.text.c_str());
}

}  // namespace kovra::arx
