#include "module/countup/pattern_copies.h"

#include <algorithm>
#include <vector>

#include "module/countup/count_up_value.h"
#include "module/drawing/text_entity.h"

namespace kovra {
namespace {

/// The texts of a selection, without those whose name the editor can't give.
std::vector<TextSource> sourcesOf(const SelectionSet& originals) {
  std::vector<TextSource> sources;
  const int length = originals.length();
  sources.reserve(static_cast<std::size_t>(std::max(length, 0)));
  for (int i = 0; i < length; ++i) {
    ads_name original = {};
    if (originals.entityAt(i, original)) sources.emplace_back(original);
  }
  return sources;
}

/// Copies the texts to one place. The rest of the place is left out when a copy can't be made.
void copyToPlace(const std::vector<TextSource>& sources, Offset offset, const CountRule& rule,
                 std::int64_t count) {
  for (const TextSource& source : sources) {
    CString value;
    CountUpText(source, rule.radixCode, count, value);
    ads_name copy = {};
    if (CopyTextEntity(source, copy, value.GetString(), offset.x, offset.y) == 0) return;
  }
}

}  // namespace

void CopyIntoPattern(const SelectionSet& originals, const Pattern& pattern, double scale,
                     const CountRule& rule) {
  const std::int64_t places = placeCount(pattern);
  if (places < 2) return;
  const std::vector<TextSource> sources = sourcesOf(originals);
  std::int64_t count = 0;
  for (std::int64_t place = 1; place < places; ++place) {
    count += rule.step;
    copyToPlace(sources, placeOffset(pattern, place, scale), rule, count);
  }
}

}  // namespace kovra
