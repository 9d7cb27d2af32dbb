#include "platform/arx/entities/text_align.h"

#include <algorithm>
#include <cmath>

#include "platform/arx/database/database.h"
#include "platform/arx/database/text_styles.h"
#include "platform/arx/entities/text_groups.h"
#include "platform/dxf/group_format.h"
#include "platform/dxf/record_store.h"

namespace kovra::arx {
namespace {

/// All that decides where the text is drawn; `value` keeps the text that the shape looks at.
TextShape shapeOf(const dxf::RecordDraft& draft, const AcDbDatabase& database,
                  std::wstring& value) {
  const dxf::TextCodec& codec = database.store().codec();
  value = codec.decode(readBytes(draft, kTextValue));
  if (value.find(L'^') != std::wstring::npos) value = dxf::decodeCarets(value);
  TextShape shape = textShape(draft);
  shape.text = value;
  shape.vertical = database.textStyles().findBytes(readBytes(draft, kTextStyle)).vertical;
  return shape;
}

/// Numbers that differ by what computing one from the other leaves.
bool sameButForRounding(double a, double b) {
  constexpr double kRelative = 1e-14;
  const double size = std::max({1.0, std::fabs(a), std::fabs(b)});
  return std::fabs(a - b) <= kRelative * size;
}

bool sameButForRounding(const AcGePoint3d& a, const AcGePoint3d& b) {
  return sameButForRounding(a.x, b.x) && sameButForRounding(a.y, b.y) &&
         sameButForRounding(a.z, b.z);
}

/// False when a look at the file's record, which needn't be decoded for it, tells that a text is
/// neither as there nor at the place that it has there.
bool mayBeAsInFile(RecordEdit& edit, double height, const AcGePoint3d& position) {
  const std::string_view file = edit.originalBytes();
  if (file.empty()) return false;
  const dxf::Dialect& dialect = edit.draft().dialect();
  const auto storedHeight = scanText(file, dialect, kTextHeight);
  const auto storedX = scanText(file, dialect, kTextPosition);
  if (!storedHeight || !storedX) return true;
  const auto real = [&](Property property, std::string_view value) {
    return dxf::decodeReal(dialect, property.code, value);
  };
  return real(kTextHeight, *storedHeight) == height ||
         sameButForRounding(real(kTextPosition, *storedX), position.x);
}

}  // namespace

bool usesAlignmentPoint(const dxf::RecordDraft& draft) {
  return textHorizontalMode(draft) != AcDb::kTextLeft || textVerticalMode(draft) != AcDb::kTextBase;
}

bool alignText(RecordEdit& edit, const AcDbDatabase& database) {
  std::wstring value;
  const TextShape shape = shapeOf(edit.draft(), database, value);
  const bool isMissing = findProperty(edit.draft(), kTextAlignment) == dxf::kNoGroup;
  bool changed = isMissing && edit.setPoint(kTextAlignment, textPoint(edit.draft(), kTextPosition));
  if (shape.horizontal == AcDb::kTextAlign || shape.horizontal == AcDb::kTextFit) return changed;
  AcGePoint3d position = placeText(shape).position;
  dxf::RecordDraft file;
  if (mayBeAsInFile(edit, shape.height, position) && edit.loadOriginal(file)) {
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
    return findProperty(draft, kTextAlignment) != dxf::kNoGroup && !usesAlignmentPoint(draft);
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
