#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace kovra::dxf {

/// Two lists of groups, an old and a new one, of which it is to be told which stand for which.
struct AlignmentTask {
  std::span<const int> oldCodes;
  std::span<const int> newCodes;
  std::function<bool(std::size_t, std::size_t)> sameValue;  ///< asked for equal codes only
};

/// Tells for each new group the old one that it stands for, in rising order; the entries of others,
/// which must be kNoGroup before, stay. Partners have the same code; among the ways to pair, one
/// with the most equal values is taken.
void alignGroups(const AlignmentTask& task, std::vector<std::size_t>& partners);

}  // namespace kovra::dxf
