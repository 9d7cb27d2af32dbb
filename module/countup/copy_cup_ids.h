#pragma once

/// Controls of templates 526 and 531.
namespace kovra::copycup {

inline constexpr int kDecimalStep = 1931;
inline constexpr int kRows = 1932;
inline constexpr int kRowHeight = 1933;
inline constexpr int kCols = 1934;
inline constexpr int kColWidth = 1935;
inline constexpr int kRadixStep = 1936;  // template 531 only

inline constexpr int kRowsLabel = 1942;
inline constexpr int kRowHeightLabel = 1943;
inline constexpr int kColsLabel = 1944;
inline constexpr int kColWidthLabel = 1945;
inline constexpr int kRadixLabel = 1946;
inline constexpr int kStepLabel = 1947;

inline constexpr int kFirstDirection = 1953;
inline constexpr int kLastDirection = 1956;
inline constexpr int kPickBoth = 1957;
inline constexpr int kPickRowHeight = 1958;
inline constexpr int kPickColWidth = 1959;

inline constexpr int kCountUp = 1967;
inline constexpr int kDragMode = 1974;
inline constexpr int kPatternMode = 1975;
inline constexpr int kStepInDecimal = 1976;  // template 531 only
inline constexpr int kStepInRadix = 1977;    // template 531 only

// Values of the fields Mode and Direction.
inline constexpr int kModePattern = 1;
inline constexpr int kOneColumn = 0;
inline constexpr int kOneRow = 1;

/// Distances of at most this are none.
inline constexpr double kNoDistance = 0.0001;

}  // namespace kovra::copycup
