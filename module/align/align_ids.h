#pragma once

#include <cstddef>

/// Controls of template 1739. Ticks, pick buttons and combo boxes follow each other in the order of
/// TextProperty.
namespace kovra::align {

inline constexpr int kFirstTick = 4635;
inline constexpr int kLastTick = 4640;
inline constexpr int kFirstPick = 4641;
inline constexpr int kPickAll = 4647;

inline constexpr int kLayer = 4648;
inline constexpr int kStyle = 4649;
inline constexpr int kHeight = 4650;
inline constexpr int kWidthFactor = 4651;
inline constexpr int kRotation = 4652;
inline constexpr int kAlignment = 4653;

constexpr int TickOf(std::size_t property) {
  return kFirstTick + static_cast<int>(property);
}
constexpr int PickOf(std::size_t property) {
  return kFirstPick + static_cast<int>(property);
}
constexpr int ComboOf(std::size_t property) {
  return kLayer + static_cast<int>(property);
}

inline constexpr int kPitch = 4654;
inline constexpr int kGap = 4655;
inline constexpr int kByPitch = 4656;
inline constexpr int kByGap = 4657;
inline constexpr int kMeasurePitch = 4663;
inline constexpr int kMeasureGap = 4664;

inline constexpr int kPlaceDrag = 4658;
inline constexpr int kPlaceOnBase = 4659;
inline constexpr int kPlaceCopy = 4662;

inline constexpr int kCountLine = 4665;

}  // namespace kovra::align
