#include "platform/arx/entities/text_align.h"

#include <algorithm>
#include <cmath>

#include "platform/arx/database/database.h"
#include "platform/arx/database/text_styles.h"
#include "platform/arx/entities/text_groups.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

AcGePoint3d positionOf(const dxf::RecordDraft& draft, const AcDbDatabase& database) {
  const dxf::TextCodec& codec = database.store().codec();
  std::wstring value = codec.decode(readBytes(draft, kTextValue));
  if (value.find(L'^') != std::wstring::npos) value = dxf::decodeCarets(value);
  TextShape shape = textShape(draft);
  shape.text = value;
  shape.vertical = database.textStyles().findBytes(readBytes(draft, kTextStyle)).vertical;
  return placeText(shape).position;
}

/// Points that differ by what computing one from the other leaves.
bool sameButForRounding(const AcGePoint3d& a, const AcGePoint3d& b) {
  constexpr double kRelative = 1e-14;
  for (unsigned i = 0; i < 3; ++i) {
    const double size = std::max({1.0, std::fabs(a[i]), std::fabs(b[i])});
    if (!(std::fabs(a[i] - b[i]) <= kRelative * size)) return false;
  }
  return true;
}

}  // namespace

bool alignText(RecordEdit& edit, const AcDbDatabase& database) {
  const AcDb::TextHorzMode mode = textHorizontalMode(edit.draft());
  if (!usesAlignmentPoint(mode, textVerticalMode(edit.draft()))) return false;
  const bool isMissing = findProperty(edit.draft(), kTextAlignment) == dxf::kNoGroup;
  bool changed = isMissing && edit.setPoint(kTextAlignment, textPoint(edit.draft(), kTextPosition));
  if (mode == AcDb::kTextAlign || mode == AcDb::kTextFit) return changed;
  AcGePoint3d position = positionOf(edit.draft(), database);
  dxf::RecordDraft file;
  if (edit.loadOriginal(file)) {
    const AcGePoint3d stored = textPoint(file, kTextPosition);
    if (samePlacement(file, edit.draft()) || sameButForRounding(position, stored))
      position = stored;
  }
  // Old drawings give z by the elevation alone.
  if (position.z == readReal(edit.draft(), {kEntityPart, 38}, 0)) position.z = 0;
  changed |= edit.setPoint(kTextPosition, position);
  return changed;
}

bool restoreUnusedPoint(RecordEdit& edit, const dxf::RecordDraft& before) {
  const auto isUnused = [](const dxf::RecordDraft& draft) {
    return findProperty(draft, kTextAlignment) != dxf::kNoGroup &&
           !usesAlignmentPoint(textHorizontalMode(draft), textVerticalMode(draft));
  };
  if (!isUnused(edit.draft()) || !isUnused(before)) return false;
  const AcGePoint3d position = textPoint(edit.draft(), kTextPosition);
  const AcGePoint3d alignment = textPoint(edit.draft(), kTextAlignment);
  if (samePoint(position, textPoint(before, kTextPosition)) ||
      !samePoint(alignment, textPoint(before, kTextAlignment)))
    return false;
  dxf::RecordDraft file;
  if (!edit.loadOriginal(file) || !isUnused(file)) return false;
  if (!samePoint(position, textPoint(file, kTextPosition))) return false;
  return edit.setPoint(kTextAlignment, textPoint(file, kTextAlignment));
}

}  // namespace kovra::arx
