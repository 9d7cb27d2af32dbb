#pragma once

#include "module/propedit/text_property_set.h"

/// Controls of template 1596.
namespace kovra::editproperty {

inline constexpr int kHeight = 1932;
inline constexpr int kWidthFactor = 1933;
inline constexpr int kRotation = 1934;
inline constexpr int kLayer = 1978;
inline constexpr int kAlignment = 1982;
inline constexpr int kRefScale = 2014;

inline constexpr int kFirstPick = 1953;
inline constexpr int kPickAll = 1958;
inline constexpr int kFirstCheck = 1967;
inline constexpr int kLastCheck = 1971;

inline constexpr int kPropertiesFrame = 4438;
inline constexpr int kSetsFrame = 4439;
inline constexpr int kSetName = 4440;
inline constexpr int kLoadSet = 1960;
inline constexpr int kSaveSet = 1961;
inline constexpr int kDeleteSet = 1962;

/// A property with its controls. The rows follow the checks and the pick buttons.
struct PropertyRow {
  unsigned bit;  ///< of TextPropertySet::Mask
  int check;
  int value;
  int pick;
  const ACHAR* checkKey;  ///< of the dialog's stored state
};

inline constexpr PropertyRow kProperties[] = {
    {kLayerBit, kFirstCheck, kLayer, kFirstPick, L"Check_Layer"},
    {kHeightBit, 1968, kHeight, 1954, L"Check_Height"},
    {kWidthFactorBit, 1969, kWidthFactor, 1955, L"Check_WidthFactor"},
    {kRotationBit, 1970, kRotation, 1956, L"Check_Rotation"},
    {kAlignmentBit, kLastCheck, kAlignment, 1957, L"Check_Alignment"},
};

/// What "take all" asks for: everything but the text style.
inline constexpr unsigned kAllProperties = 253;

}  // namespace kovra::editproperty
