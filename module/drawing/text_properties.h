#pragma once

#include <array>
#include <cstddef>

#include "module/frame/seam.h"

/// The properties that several texts may be given at once, as dialogs show them.
namespace kovra {

/// Places in TextValues.
enum TextProperty : std::size_t {
  kLayerProperty,
  kStyleProperty,
  kHeightProperty,       ///< drawing units
  kWidthFactorProperty,  ///< width in relation to the style's font
  kRotationProperty,     ///< degrees
  kAlignmentProperty     ///< a label of the 13 alignments
};
inline constexpr std::size_t kTextProperties = 6;

using TextValues = std::array<CString, kTextProperties>;

/// The properties that are to be changed.
using TextPropertySet = std::array<bool, kTextProperties>;

}  // namespace kovra
