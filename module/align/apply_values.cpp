#include "module/align/apply_values.h"

#include <optional>

#include "module/align/alignments.h"
#include "module/align/text_anchor.h"
#include "module/drawing/angles.h"
#include "module/drawing/current_database.h"
#include "module/drawing/number_text.h"
#include "module/drawing/open_text.h"
#include "module/drawing/text_styles.h"

namespace kovra {
namespace {

/// What a set of properties means in the drawing.
struct Change {
  TextPropertyFlags flags = {};
  CString layer;
  AcDbObjectId style;  ///< null: the drawing has no style of the name
  double height = 0;
  double widthFactor = 0;
  double rotation = 0;               ///< radians
  std::optional<AnchorModes> modes;  ///< none: the alignment stays
};

Change changeOf(const TextValues& values, const ACHAR* applySet) {
  Change change;
  change.flags = ReadApplySet(applySet);
  change.layer = values[kLayerProperty];
  if (change.flags[kStyleProperty]) GTxtStyId(values[kStyleProperty].GetString(), change.style);
  change.height = _wtof(values[kHeightProperty].GetString());
  change.widthFactor = _wtof(values[kWidthFactorProperty].GetString());
  change.rotation = _wtof(values[kRotationProperty].GetString()) * kPi / 180;
  AnchorModes modes;
  if (change.flags[kAlignmentProperty] &&
      AlignmentModes(values[kAlignmentProperty].GetString(), modes.vertical, modes.horizontal)) {
    change.modes = modes;
  }
  return change;
}

/// The text's position, not its new alignment point, comes to lie on the old anchor.
void realign(AcDbText& text, const AnchorModes& modes, const AcDbDatabase* database) {
  const AcGePoint3d place = TextAnchor(text);
  text.setVerticalMode(static_cast<AcDb::TextVertMode>(modes.vertical));
  text.setHorizontalMode(static_cast<AcDb::TextHorzMode>(modes.horizontal));
  SetTextAnchor(text, modes, place, database);
  AcGeMatrix3d back;
  back.setToTranslation(place - text.position());
  text.transformBy(back);
}

void apply(AcDbText& text, const Change& change, const AcDbDatabase* database) {
  text.setVisibility(AcDb::kInvisible, true);
  if (change.flags[kLayerProperty]) text.setLayer(change.layer.GetString(), true, false);
  if (change.flags[kStyleProperty]) {
    if (change.style.isNull()) return;
    text.setTextStyle(change.style);
  }
  if (change.flags[kHeightProperty]) text.setHeight(change.height);
  if (change.flags[kWidthFactorProperty]) text.setWidthFactor(change.widthFactor);
  if (change.flags[kRotationProperty]) text.setRotation(change.rotation);
  if (change.modes) realign(text, *change.modes, database);
}

TextExtent extentOf(const AcDbText& text) {
  AcDbExtents box;
  if (text.getGeomExtents(box) != Acad::eOk) return {};
  const double anchor = TextAnchor(text).y;
  return {box.maxPoint().y - anchor, anchor - box.minPoint().y};
}

}  // namespace

TextValues TextValuesOf(const AcDbText& text) {
  ACHAR* layer = text.layer();
  ACHAR style[256] = L"";
  GTxtStyName(text.textStyle(), style);
  TextValues values = {layer,
                       style,
                       DecimalText(text.height()),
                       DecimalText(text.widthFactor()),
                       DecimalText(ShownDegrees(text.rotation())),
                       AlignmentLabel(text.verticalMode(), text.horizontalMode())};
  acutDelString(layer);
  return values;
}

TextValues GetCommonTextValues(const AcDbObjectIdArray& ids) {
  CommonValues common;
  for (const AcDbObjectId& id : ids) {
    const OpenText text(id, AcDb::kForRead);
    if (text) common.add(TextValuesOf(*text), {text->height(), text->widthFactor()});
  }
  return common.result(static_cast<std::size_t>(ids.length()));
}

void ApplyTextValues(const AcDbObjectIdArray& ids, const TextValues& values,
                     const ACHAR* applySet) {
  const Change change = changeOf(values, applySet);
  const AcDbDatabase* const database = CurrentDatabase();
  for (const AcDbObjectId& id : ids) {
    const OpenText text(id, AcDb::kForWrite);
    if (text) apply(*text, change, database);
  }
}

std::vector<TextExtent> MeasureTextExtents(const AcDbObjectIdArray& ids) {
  std::vector<TextExtent> extents;
  extents.reserve(static_cast<std::size_t>(ids.length()));
  const AcDbDatabase* const database = CurrentDatabase();
  for (const AcDbObjectId& id : ids) {
    TextExtent& extent = extents.emplace_back();
    OpenText text(id, AcDb::kForWrite);
    if (!text) continue;
    text->setRotation(0.0);
    text->adjustAlignment(database);
    extent = extentOf(*text);
    // The turn was for measuring alone; it must not reach the drawing.
    text.release()->cancel();
  }
  return extents;
}

}  // namespace kovra
