#pragma once

#include "module/propcopy/property_settings.h"
#include "module/propcopy/tag_patterns.h"

namespace kovra {

/// What the property copy is to write, wherever it writes it.
struct CopyJob {
  TagPatterns patterns;
  PropertySettings settings;       ///< the height as the user gave it
  bool useDimensionScale = false;  ///< the height is to be multiplied by the drawing's scale

  /// The settings for a drawing of this dimension scale.
  PropertySettings settingsAt(double dimensionScale) const {
    PropertySettings scaled = settings;
    if (useDimensionScale && isSizeGiven(scaled.Height)) scaled.Height *= dimensionScale;
    return scaled;
  }
};

}  // namespace kovra
