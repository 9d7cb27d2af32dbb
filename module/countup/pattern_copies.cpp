#include "module/countup/pattern_copies.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "module/countup/count_up_value.h"
#include "module/drawing/text_entity.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kCopiesMissing = 3913;

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
/// @return how many are left out
std::int64_t copyToPlace(const std::vector<TextSource>& sources, Offset offset,
                         const CountRule& rule, std::int64_t count) {
  for (auto source = sources.begin(); source != sources.end(); ++source) {
    CString value;
    CountUpText(*source, rule.radixCode, count, value);
    ads_name copy = {};
    if (CopyTextEntity(*source, copy, value.GetString(), offset.x, offset.y) == 0) {
      return sources.end() - source;
    }
  }
  return 0;
}

}  // namespace

void TellMissingCopies(std::int64_t count) {
  if (count == 0) return;
  CString line;
  line.Format(ResourceText(kCopiesMissing).GetString(),
              static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max())));
  acutPrintf(L"%s", line.GetString());
}

void CopyIntoPattern(const SelectionSet& originals, const Pattern& pattern, double scale,
                     const CountRule& rule) {
  const std::int64_t places = placeCount(pattern);
  if (places < 2) return;
  const std::vector<TextSource> sources = sourcesOf(originals);
  std::int64_t count = 0;
  std::int64_t missing = 0;
  for (std::int64_t place = 1; place < places; ++place) {
    count += rule.step;
    missing += copyToPlace(sources, placeOffset(pattern, place, scale), rule, count);
  }
  TellMissingCopies(missing);
}

}  // namespace kovra
