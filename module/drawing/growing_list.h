#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace kovra {

inline constexpr std::size_t kGrowthStep = 8;
inline constexpr std::size_t kLargestGrowth = 8192;

/// Allocated length of a full list once it has grown: double the size, at least 8 and at most 8192
/// entries more.
constexpr std::size_t grownLength(std::size_t allocated) {
  return allocated + std::max(kGrowthStep, std::min(allocated, kLargestGrowth));
}

/// Sequence that grows by that rule.
template <typename Entry>
class GrowingList {
 public:
  /// Appends an entry, a null one by default.
  /// @return its index
  int add(Entry entry = Entry()) {
    if (entries_.size() == entries_.capacity()) entries_.reserve(grownLength(entries_.capacity()));
    entries_.push_back(std::move(entry));
    return size() - 1;
  }

  int size() const { return static_cast<int>(entries_.size()); }
  std::size_t allocated() const { return entries_.capacity(); }
  Entry& operator[](int index) { return entries_[static_cast<std::size_t>(index)]; }
  const Entry& operator[](int index) const { return entries_[static_cast<std::size_t>(index)]; }
  auto begin() const { return entries_.begin(); }
  auto end() const { return entries_.end(); }

  /// Releases the entries, the last one first.
  void clear() {
    while (!entries_.empty()) entries_.pop_back();
  }

 private:
  std::vector<Entry> entries_;
};

}  // namespace kovra
