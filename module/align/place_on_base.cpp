#include "module/align/place_on_base.h"

#include <optional>

#include "module/align/apply_values.h"
#include "module/align/text_anchor.h"
#include "module/drawing/current_database.h"
#include "module/drawing/open_text.h"

namespace kovra {
namespace {

void show(AcDbText& text) {
  text.setVisibility(AcDb::kVisible, true);
}

void showAll(const AcDbObjectIdArray& ids) {
  for (const AcDbObjectId& id : ids) {
    const OpenText text(id, AcDb::kForWrite);
    if (text) show(*text);
  }
}

/// Shows the base text; where it stands, or none when it can't be opened.
std::optional<AcGePoint3d> showBase(const AcDbObjectId& id) {
  const OpenText base(id, AcDb::kForWrite);
  if (!base) return std::nullopt;
  show(*base);
  return TextAnchor(*base);
}

void place(AcDbText& text, const AcGePoint3d& base, double distance, const AcDbDatabase* database) {
  const ColumnDirection along = StandingDirection(text.rotation());
  const AcGePoint3d anchor(base.x + along.x * distance, base.y + along.y * distance, 0);
  SetTextAnchor(text, AnchorModesOf(text), anchor, database);
}

}  // namespace

void PlaceOnBaseText(const AcDbObjectIdArray& ids, const AcDbObjectId& baseId,
                     const TextValues& values, const ACHAR* applySet,
                     const ColumnSpacing& spacing) {
  ApplyTextValues(ids, values, applySet);
  const std::vector<TextExtent> extents = MeasureTextExtents(ids);
  const int baseIndex = ids.find(baseId);
  const std::optional<AcGePoint3d> base = baseIndex >= 0 ? showBase(baseId) : std::nullopt;
  if (!base) {
    showAll(ids);
    return;
  }
  const std::vector<double> distances =
      ColumnDistances(extents, spacing, static_cast<std::size_t>(baseIndex));
  const AcDbDatabase* const database = CurrentDatabase();
  for (int i = 0; i < ids.length(); ++i) {
    if (i == baseIndex) continue;
    const OpenText text(ids[i], AcDb::kForWrite);
    if (!text) continue;
    show(*text);
    place(*text, *base, distances[static_cast<std::size_t>(i)], database);
  }
}

}  // namespace kovra
