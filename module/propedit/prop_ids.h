#pragma once

#include <cstddef>

/// Controls of template 525. Ticks, combo boxes and pick buttons follow each other in the order of
/// TextProperty.
namespace kovra::propchange {

inline constexpr int kFirstTick = 1967;
inline constexpr int kLastTick = 1972;
inline constexpr int kFirstPick = 1953;
inline constexpr int kPickAll = 1959;

inline constexpr int kLayer = 1978;
inline constexpr int kStyle = 1979;
inline constexpr int kHeight = 1980;
inline constexpr int kWidthFactor = 1981;
inline constexpr int kRotation = 1982;
inline constexpr int kAlignment = 1983;

constexpr int TickOf(std::size_t property) {
  return kFirstTick + static_cast<int>(property);
}
constexpr int ComboOf(std::size_t property) {
  return kLayer + static_cast<int>(property);
}
constexpr int PickOf(std::size_t property) {
  return kFirstPick + static_cast<int>(property);
}

}  // namespace kovra::propchange
