#include "platform/dxf/group_alignment.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/dxf/record_draft.h"

namespace kovra::dxf {

namespace {

/// The pairing of the highest score, where equal values count much more than equal codes. Takes
/// time and memory by the product of the sizes.
void alignByScore(const AlignmentTask& task, std::vector<std::size_t>& partners) {
  constexpr std::uint32_t kSameValue = 4;
  constexpr std::uint32_t kSameCode = 1;
  const std::size_t width = task.newCodes.size() + 1;
  std::vector<std::uint32_t> best((task.oldCodes.size() + 1) * width, 0);
  const auto pairScore = [&](std::size_t a, std::size_t b) -> std::uint32_t {
    if (task.oldCodes[a] != task.newCodes[b]) return 0;
    return task.sameValue(a, b) ? kSameValue : kSameCode;
  };
  for (std::size_t a = task.oldCodes.size(); a-- > 0;) {
    for (std::size_t b = task.newCodes.size(); b-- > 0;) {
      const std::uint32_t pair = pairScore(a, b);
      const std::uint32_t paired = pair == 0 ? 0 : pair + best[(a + 1) * width + b + 1];
      best[a * width + b] = std::max({paired, best[(a + 1) * width + b], best[a * width + b + 1]});
    }
  }
  std::size_t a = 0;
  std::size_t b = 0;
  while (a < task.oldCodes.size() && b < task.newCodes.size()) {
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

/// Which side has a code, and which has it several times.
class SeenCodes {
 public:
  enum : std::uint8_t { kOld = 1, kNew = 2, kSeveral = 4 };

  /// False for a code that isn't noted.
  bool add(int code, std::uint8_t side) {
    if (code < 0 || code >= kCodes) return false;
    std::uint8_t& seen = seen_[static_cast<std::size_t>(code)];
    if ((seen & side) != 0) seen |= kSeveral;
    seen |= side;
    return true;
  }
  std::uint8_t of(int code) const { return seen_[static_cast<std::size_t>(code)]; }

 private:
  static constexpr int kCodes = 1072;
  std::array<std::uint8_t, kCodes> seen_{};
};

/// Most changes put groups in, take groups out and give others a new value, which leaves the codes
/// that both sides have in one and the same order. Then all of them pair, and no other way to pair
/// has the same score, as long as groups whose code comes several times are equal. False otherwise,
/// and the partners are of no use.
bool alignInOrder(const AlignmentTask& task, std::vector<std::size_t>& partners) {
  SeenCodes seen;
  for (const int code : task.oldCodes)
    if (!seen.add(code, SeenCodes::kOld)) return false;
  for (const int code : task.newCodes)
    if (!seen.add(code, SeenCodes::kNew)) return false;
  std::size_t a = 0;
  const auto passUnpaired = [&] {
    while (a < task.oldCodes.size() && (seen.of(task.oldCodes[a]) & SeenCodes::kNew) == 0) ++a;
  };
  for (std::size_t b = 0; b < task.newCodes.size(); ++b) {
    const int code = task.newCodes[b];
    const std::uint8_t sides = seen.of(code);
    if ((sides & SeenCodes::kOld) == 0) continue;
    passUnpaired();
    if (a == task.oldCodes.size() || task.oldCodes[a] != code) return false;
    if ((sides & SeenCodes::kSeveral) != 0 && !task.sameValue(a, b)) return false;
    partners[b] = a++;
  }
  passUnpaired();
  return a == task.oldCodes.size();
}

/// For very long lists: pairs equal codes, looking ahead a little where the codes differ.
void alignByLookahead(const AlignmentTask& task, std::vector<std::size_t>& partners) {
  constexpr std::size_t kReach = 64;
  std::size_t a = 0;
  std::size_t b = 0;
  while (a < task.oldCodes.size() && b < task.newCodes.size()) {
    std::size_t skipOld = 0;
    std::size_t skipNew = 0;
    while (skipOld < kReach && a + skipOld < task.oldCodes.size() &&
           task.oldCodes[a + skipOld] != task.newCodes[b]) {
      ++skipOld;
    }
    while (skipNew < kReach && b + skipNew < task.newCodes.size() &&
           task.newCodes[b + skipNew] != task.oldCodes[a]) {
      ++skipNew;
    }
    if (skipOld <= skipNew) {
      a += skipOld;
    } else {
      b += skipNew;
    }
    if (a < task.oldCodes.size() && b < task.newCodes.size() &&
        task.oldCodes[a] == task.newCodes[b]) {
      partners[b] = a;
    }
    ++a;
    ++b;
  }
}

}  // namespace

void alignGroups(const AlignmentTask& task, std::vector<std::size_t>& partners) {
  constexpr std::size_t kLargestTable = std::size_t{1} << 18U;
  if (task.newCodes.size() >= kLargestTable ||
      task.oldCodes.size() * task.newCodes.size() > kLargestTable)
    return alignByLookahead(task, partners);
  if (alignInOrder(task, partners)) return;
  std::fill(partners.begin(), partners.end(), kNoGroup);
  alignByScore(task, partners);
}

}  // namespace kovra::dxf
