#pragma once

/// Controls of templates 529, 532, 534 and 1641, and the numbers that go with them.
namespace kovra::text7 {

inline constexpr int kValue = 1931;
inline constexpr int kPrefix = 1932;
inline constexpr int kNumber = 1933;
inline constexpr int kSuffix = 1934;
inline constexpr int kDecimalStep = 1935;
inline constexpr int kRadixStep = 1936;  // from template 532 on
inline constexpr int kLines = 1937;      // from template 534 on
inline constexpr int kRows = 1938;
inline constexpr int kRowHeight = 1939;
inline constexpr int kCols = 1940;
inline constexpr int kColWidth = 1941;

inline constexpr int kValueLabel = 1942;
inline constexpr int kPrefixLabel = 1943;
inline constexpr int kNumberLabel = 1944;
inline constexpr int kSuffixLabel = 1945;
inline constexpr int kRadixLabel = 1946;
inline constexpr int kStepLabel = 1947;
inline constexpr int kRowsLabel = 1948;
inline constexpr int kRowHeightLabel = 1949;
inline constexpr int kColsLabel = 1950;
inline constexpr int kColWidthLabel = 1951;
inline constexpr int kArraySection = 1952;  // its enabled state tells whether the section is shown

inline constexpr int kFirstDirection = 1960;
inline constexpr int kLastDirection = 1963;
inline constexpr int kPickBoth = 1964;
inline constexpr int kPickRowHeight = 1965;
inline constexpr int kPickColWidth = 1966;

inline constexpr int kCountUp = 1967;
inline constexpr int kSingleMode = 1974;
inline constexpr int kRepeatMode = 1975;
inline constexpr int kArrayMode = 1976;
inline constexpr int kStepInDecimal = 1977;  // from template 532 on
inline constexpr int kStepInRadix = 2003;    // from template 532 on

inline constexpr int kPickValue = 1999;

inline constexpr int kLineSpacing = 2002;  // from template 534 on
inline constexpr int kLinesFrame = 2004;   // from template 534 on
inline constexpr int kBelowLines = 2005;   // the first control below the frame
inline constexpr int kLineSpacingLabel = 2009;

inline constexpr int kAdoptStyle = 4514;  // template 1641

// Values of the field Radio.
inline constexpr int kSingle = 0;
inline constexpr int kRepeated = 1;
inline constexpr int kArray = 2;

// Values of the field Direction.
inline constexpr int kOneColumn = 0;
inline constexpr int kOneRow = 1;

// Values of the field PendingAction beside the ids of the pick buttons.
inline constexpr int kNoAction = 0;
inline constexpr int kPlaceAction = 1;

/// Posted by the dialog to itself: check the fields when the present message is over.
inline constexpr unsigned kCheckMessage = 0x448;

/// Numbers of at most this count as none.
inline constexpr double kNoNumber = 0.0001;

}  // namespace kovra::text7
