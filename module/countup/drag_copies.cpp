#include "module/countup/drag_copies.h"

#include "module/countup/count_up_value.h"
#include "module/countup/hidden_copies.h"
#include "module/drawing/coordinates.h"
#include "module/drawing/text_entity.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kBasePointPrompt = 2767;
constexpr UINT kDragPrompt = 2768;

// Copies wait this far to the left of and below their originals, out of sight.
constexpr double DragOffset = 9999.0;

// Where the cursor stands when the dragged copies lie where they are. Read by DragTransform.
ads_point DragBasePoint = {};

int DragTransform(ads_point cursor, ads_matrix transform) {
  ads_point way = {};
  for (int axis = X; axis <= Z; ++axis) way[axis] = cursor[axis] - DragBasePoint[axis];
  SetTranslation(transform, way);
  return RTNORM;
}

void makeCopies(const SelectionSet& originals, int length, const CountRule& rule,
                HiddenCopies& copies) {
  int missing = 0;
  for (int i = 0; i < length; ++i) {
    ads_name name = {};
    if (!originals.entityAt(i, name)) continue;
    const TextSource original(name);
    CString value;
    CountUpText(original, rule.radixCode, rule.step, value);
    ads_name copy = {};
    if (CopyTextEntity(original, copy, value.GetString(), -DragOffset, -DragOffset) != 0) {
      copies.add(copy);
    } else {
      ++missing;
    }
  }
  TellMissingCopies(missing);
}

/// Makes the copies of one pass and lets the user place them.
/// @param current the texts that are copied, afterwards their copies
/// @param base the point that the user shows places for, afterwards the one shown
/// @return false, with no copy left, when the user has had enough
bool placeCopies(SelectionSet& current, int length, const CountRule& rule, ads_point base) {
  HiddenCopies copies;
  if (!copies.open(length)) return false;
  makeCopies(current, length, rule, copies);
  DragBasePoint[X] = base[X] - DragOffset;
  DragBasePoint[Y] = base[Y] - DragOffset;
  DragBasePoint[Z] = 0.0;
  ads_point place = {};
  if (acedDragGen(copies.set().name(), ResourceText(kDragPrompt).GetString(), 0, DragTransform,
                  place) != RTNORM) {
    return false;
  }
  const ads_point from = {base[X] - DragOffset, base[Y] - DragOffset, 0.0};
  const ads_point to = {place[X], place[Y], 0.0};
  if (!copies.move(from, to)) return false;
  current = copies.release();
  ads_point_set(place, base);
  return true;
}

}  // namespace

void DragCopies(SelectionSet originals, const CountRule& rule) {
  ads_point base = {};
  if (acedGetPoint(nullptr, ResourceText(kBasePointPrompt).GetString(), base) != RTNORM) return;
  const int length = originals.length();
  while (placeCopies(originals, length, rule, base)) {
  }
}

}  // namespace kovra
