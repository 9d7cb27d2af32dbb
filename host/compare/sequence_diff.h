#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace kovra::host {

/// Elements of one sequence, [leftBegin, leftEnd), in whose place the other has [rightBegin,
/// rightEnd). One of the ranges may be empty.
struct DiffRun {
  std::size_t leftBegin;
  std::size_t leftEnd;
  std::size_t rightBegin;
  std::size_t rightEnd;
};

/// The places where two sequences differ, in order, with as few elements in them as can be (Myers,
/// "An O(ND) difference algorithm and its variations", 1986). Sequences that have little in common
/// aren't worth that: behind `limit` differing elements the rest is one run.
/// @param equal called with a left and a right index
template <class Equal>
std::vector<DiffRun> diffRuns(std::size_t leftCount, std::size_t rightCount, Equal equal,
                              std::size_t limit = 1000) {
  std::size_t begin = 0;
  while (begin < leftCount && begin < rightCount && equal(begin, begin)) ++begin;
  std::size_t leftEnd = leftCount;
  std::size_t rightEnd = rightCount;
  while (leftEnd > begin && rightEnd > begin && equal(leftEnd - 1, rightEnd - 1)) {
    --leftEnd;
    --rightEnd;
  }
  if (leftEnd == begin && rightEnd == begin) return {};

  // The furthest left place on each diagonal (left - right) after so many edits; all are kept, so
  // that the way can be walked back.
  using Place = std::ptrdiff_t;
  const auto lefts = static_cast<Place>(leftEnd - begin);
  const auto rights = static_cast<Place>(rightEnd - begin);
  const auto most = static_cast<Place>(std::min(limit, leftEnd - begin + rightEnd - begin));
  std::vector<std::vector<Place>> reached;
  const auto at = [](const std::vector<Place>& row, Place diagonal) {
    const auto place = diagonal + static_cast<Place>(row.size() / 2);
    return place < 0 || place >= static_cast<Place>(row.size())
               ? Place{-1}
               : row[static_cast<std::size_t>(place)];
  };
  const auto isDown = [&](const std::vector<Place>& before, Place diagonal, Place edits) {
    return diagonal == -edits ||
           (diagonal != edits && at(before, diagonal - 1) < at(before, diagonal + 1));
  };
  bool found = false;
  for (Place edits = 0; edits <= most && !found; ++edits) {
    std::vector<Place> row(static_cast<std::size_t>(2 * edits + 1), -1);
    for (Place diagonal = -edits; diagonal <= edits && !found; diagonal += 2) {
      Place left = 0;
      if (edits > 0) {
        const std::vector<Place>& before = reached.back();
        left = isDown(before, diagonal, edits) ? at(before, diagonal + 1)
                                               : at(before, diagonal - 1) + 1;
      }
      while (left < lefts && left - diagonal < rights &&
             equal(begin + static_cast<std::size_t>(left),
                   begin + static_cast<std::size_t>(left - diagonal))) {
        ++left;
      }
      row[static_cast<std::size_t>(diagonal + edits)] = left;
      found = left >= lefts && left - diagonal >= rights;
    }
    reached.push_back(std::move(row));
  }
  if (!found) return {{begin, leftEnd, begin, rightEnd}};

  std::vector<DiffRun> runs;
  Place left = lefts;
  Place right = rights;
  for (auto edits = static_cast<Place>(reached.size()) - 1; edits > 0; --edits) {
    const std::vector<Place>& before = reached[static_cast<std::size_t>(edits) - 1];
    const Place diagonal = left - right;
    const bool down = isDown(before, diagonal, edits);
    const Place oldDiagonal = down ? diagonal + 1 : diagonal - 1;
    const Place oldLeft = at(before, oldDiagonal);
    const Place oldRight = oldLeft - oldDiagonal;
    const DiffRun step{begin + static_cast<std::size_t>(oldLeft),
                       begin + static_cast<std::size_t>(down ? oldLeft : oldLeft + 1),
                       begin + static_cast<std::size_t>(oldRight),
                       begin + static_cast<std::size_t>(down ? oldRight + 1 : oldRight)};
    if (!runs.empty() && runs.back().leftBegin == step.leftEnd &&
        runs.back().rightBegin == step.rightEnd) {
      runs.back().leftBegin = step.leftBegin;
      runs.back().rightBegin = step.rightBegin;
    } else {
      runs.push_back(step);
    }
    left = oldLeft;
    right = oldRight;
  }
  std::reverse(runs.begin(), runs.end());
  return runs;
}

}  // namespace kovra::host
