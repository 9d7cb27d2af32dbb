#include "module/countup/pattern_copies.h"

#include "module/countup/count_up_value.h"
#include "module/drawing/text_entity.h"

namespace kovra {
namespace {

/// Copies the texts to one place. The rest of the place is left out when a copy can't be made.
void copyToPlace(const SelectionSet& originals, int length, Offset offset, const CountRule& rule,
                 std::int64_t count) {
  for (int i = 0; i < length; ++i) {
    ads_name original = {};
    if (!originals.entityAt(i, original)) continue;
    CString value;
    CountUpText(original, rule.radixCode, count, value);
    ads_name copy = {};
    if (CopyTextEntity(original, copy, value.GetString(), offset.x, offset.y) == 0) return;
  }
}

}  // namespace

void CopyIntoPattern(const SelectionSet& originals, const Pattern& pattern, double scale,
                     const CountRule& rule) {
  const std::int64_t places = placeCount(pattern);
  const int length = originals.length();
  std::int64_t count = 0;
  for (std::int64_t place = 1; place < places; ++place) {
    count += rule.step;
    copyToPlace(originals, length, placeOffset(pattern, place, scale), rule, count);
  }
}

}  // namespace kovra
