#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// What the text dialogs remember from run to run, for all drawings of the user: section
/// "KOVRA_TEXT" of the dialog store. Style and value of the text aren't among it.
struct TextSettings {
  int x = 0;  ///< left and top of the dialog's window, in pixels of the screen
  int y = 0;
  int layerIndex = 0;       ///< place in the dialog's list of layers; not checked
  CString layerText;        ///< at most kLayerTextLength characters
  double height = 0;        ///< on paper
  double coefficient = 0;   ///< row spacing to text height; from data version 12.0 on
  double widthFactor = 0;   ///< width in relation to the style's font
  double rotation = 0;      ///< degrees
  int attachmentIndex = 0;  ///< place in AttachCodes; not checked
};

/// A stored number that has to be above 0, or what takes its place.
inline double aboveZero(double value, double otherwise) {
  return value > 0 ? value : otherwise;
}

inline constexpr int kLayerTextLength = 257;

// What a user starts with who has no settings yet.
inline constexpr double kUsualTextHeight = 1.5;
inline constexpr double kUsualTextWidthFactor = 1.0;

/// Clears the record and fills it from the store. The name for the current layer is given in the
/// language of this run, whichever it was stored in.
/// @param report a failure is shown in a message box
/// @return 0; -1 when the store can't be used or lacks a value other than layerText and
///         coefficient; the fields behind the missing one are then 0 or empty
int LoadTextSettings(TextSettings& settings, bool report);

/// @return 0; -1 when the store can't be written
int SaveTextSettings(const TextSettings& settings);

/// Writes what a user starts with who has no settings yet; what is stored for layerText and
/// coefficient stays.
/// @return 0; -1 when the store can't be written
int WriteDefaultTextSettings();

}  // namespace kovra
