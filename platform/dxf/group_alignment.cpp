#include "platform/dxf/group_alignment.h"

#include <algorithm>
#include <bitset>
#include <cstdint>

#include "platform/dxf/record_draft.h"

namespace kovra::dxf {

namespace {

/// The pairing of the highest score, where equal values count much more than equal codes. Takes
/// time and memory by the product of the sizes.
void alignByScore(const AlignmentTask& task, std::vector<std::size_t>& partners) {
  constexpr std::uint32_t kSameValue = 4;
  constexpr std::uint32_t kSameCode = 1;
  const std::size_t width = task.newSize + 1;
  std::vector<std::uint32_t> best((task.oldSize + 1) * width, 0);
  const auto pairScore = [&](std::size_t a, std::size_t b) -> std::uint32_t {
    if (task.oldCode(a) != task.newCode(b)) return 0;
    return task.sameValue(a, b) ? kSameValue : kSameCode;
  };
  for (std::size_t a = task.oldSize; a-- > 0;) {
    for (std::size_t b = task.newSize; b-- > 0;) {
      const std::uint32_t pair = pairScore(a, b);
      const std::uint32_t paired = pair == 0 ? 0 : pair + best[(a + 1) * width + b + 1];
      best[a * width + b] = std::max({paired, best[(a + 1) * width + b], best[a * width + b + 1]});
    }
  }
  std::size_t a = 0;
  std::size_t b = 0;
  while (a < task.oldSize && b < task.newSize) {
    const std::uint32_t here = best[a * width + b];
    const std::uint32_t pair = pairScore(a, b);
    if (pair != 0 && here == pair + best[(a + 1) * width + b + 1]) {
      partners[b++] = a++;
    } else if (here == best[(a + 1) * width + b]) {
      ++a;
    } else {
      ++b;
    }
  }
}

/// The codes of one side, and those among them that it has several times.
struct CodeSet {
  static constexpr std::size_t kCodes = 1072;

  /// False for a code that no set holds.
  bool add(int code) {
    const auto n = static_cast<std::size_t>(code);
    if (code < 0 || n >= kCodes) return false;
    if (all[n]) repeated[n] = true;
    all[n] = true;
    return true;
  }

  std::bitset<kCodes> all;
  std::bitset<kCodes> repeated;
};

/// Most changes put groups in, take groups out and give others a new value, which leaves the codes
/// that both sides have in one and the same order. Then all of them pair, and no other way to pair
/// has the same score, as long as groups whose code comes several times are equal. False otherwise,
/// and the partners are of no use.
bool alignInOrder(const AlignmentTask& task, std::vector<std::size_t>& partners) {
  CodeSet olds;
  CodeSet news;
  for (std::size_t a = 0; a < task.oldSize; ++a)
    if (!olds.add(task.oldCode(a))) return false;
  for (std::size_t b = 0; b < task.newSize; ++b)
    if (!news.add(task.newCode(b))) return false;
  std::size_t a = 0;
  for (std::size_t b = 0; b < task.newSize; ++b) {
    const auto code = static_cast<std::size_t>(task.newCode(b));
    if (!olds.all[code]) continue;
    while (a < task.oldSize && !news.all[static_cast<std::size_t>(task.oldCode(a))]) ++a;
    if (a == task.oldSize || task.oldCode(a) != static_cast<int>(code)) return false;
    const bool repeated = olds.repeated[code] || news.repeated[code];
    if (repeated && !task.sameValue(a, b)) return false;
    partners[b] = a++;
  }
  while (a < task.oldSize && !news.all[static_cast<std::size_t>(task.oldCode(a))]) ++a;
  return a == task.oldSize;
}

/// For very long lists: pairs equal codes, looking ahead a little where the codes differ.
void alignByLookahead(const AlignmentTask& task, std::vector<std::size_t>& partners) {
  constexpr std::size_t kReach = 64;
  std::size_t a = 0;
  std::size_t b = 0;
  while (a < task.oldSize && b < task.newSize) {
    std::size_t skipOld = 0;
    std::size_t skipNew = 0;
    while (skipOld < kReach && a + skipOld < task.oldSize &&
           task.oldCode(a + skipOld) != task.newCode(b)) {
      ++skipOld;
    }
    while (skipNew < kReach && b + skipNew < task.newSize &&
           task.newCode(b + skipNew) != task.oldCode(a)) {
      ++skipNew;
    }
    if (skipOld <= skipNew) {
      a += skipOld;
    } else {
      b += skipNew;
    }
    if (a < task.oldSize && b < task.newSize && task.oldCode(a) == task.newCode(b)) {
      partners[b] = a;
    }
    ++a;
    ++b;
  }
}

}  // namespace

void alignGroups(const AlignmentTask& task, std::vector<std::size_t>& partners) {
  constexpr std::size_t kLargestTable = std::size_t{1} << 18U;
  if (task.newSize >= kLargestTable || task.oldSize * task.newSize > kLargestTable)
    return alignByLookahead(task, partners);
  if (alignInOrder(task, partners)) return;
  std::fill(partners.begin(), partners.end(), kNoGroup);
  alignByScore(task, partners);
}

}  // namespace kovra::dxf
