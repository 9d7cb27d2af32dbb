#pragma once

/// Controls of templates 530, 533 and 535. Ticks, combo boxes and pick buttons of the properties
/// follow each other in the order of CopyProperty; the button that picks all of them comes behind
/// the others.
namespace kovra::copyprop {

inline constexpr int kTags = 1931;
inline constexpr int kPickTag = 1960;
inline constexpr int kUseTags = 1973;
inline constexpr int kTagRows = 1984;

inline constexpr int kFirstPick = 1953;
inline constexpr int kLastPick = 1958;
inline constexpr int kFirstTick = 1967;
inline constexpr int kLastTick = 1971;
inline constexpr int kLayer = 1978;
inline constexpr int kHeight = 1979;
inline constexpr int kWidthFactor = 1980;
inline constexpr int kRotation = 1981;
inline constexpr int kAlignment = 1982;

inline constexpr int kSelectionRadio = 1974;
inline constexpr int kDrawingRadio = 1975;
inline constexpr int kScope = 2013;
inline constexpr int kUseDimScale = 2014;

constexpr int TickOf(int property) {
  return kFirstTick + property;
}
constexpr int ComboOf(int property) {
  return kLayer + property;
}
constexpr int PickOf(int property) {
  return kFirstPick + property;
}

}  // namespace kovra::copyprop
