// In which order a subclass writes its groups.
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace kovra::arx {

/// The order of a subclass's groups.
class GroupOrder {
 public:
  constexpr explicit GroupOrder(std::span<const int> codes) {
    ranks_.fill(-1);
    for (std::size_t i = 0; i < codes.size(); ++i)
      ranks_[static_cast<std::size_t>(codes[i])] = static_cast<std::int8_t>(i);
  }

  /// The place of a code; -1 for codes that the subclass doesn't write itself, which stand before
  /// all of its own (in R12 those of every entity).
  int rank(int code) const {
    return code >= 0 && code < kCodes ? ranks_[static_cast<std::size_t>(code)] : -1;
  }

 private:
  static constexpr int kCodes = 512;
  std::array<std::int8_t, kCodes> ranks_{};
};

/// Whether two names of subclasses are equal; most come from the same constant, which one look
/// tells.
inline bool isSubclass(std::string_view name, std::string_view other) {
  return name.size() == other.size() && (name.data() == other.data() || name == other);
}

/// One without any code for a subclass that has no order.
const GroupOrder& groupOrder(std::string_view subclass);
inline int groupRank(std::string_view subclass, int code) {
  return groupOrder(subclass).rank(code);
}

}  // namespace kovra::arx
