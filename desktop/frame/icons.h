// Icons of the program's own, as paths; those of commands are in commands.h.
#pragma once
#include <QIcon>

namespace kovra::desktop {

enum class Icon {
  kNone,
  kProgram,
  kNew,
  kOpen,
  kSave,
  kPlot,
  kUndo,
  kRedo,
  kExtents,
  kZoomIn,
  kZoomOut,
  kHelp,
  kLocked
};

/// Paths on a field of 24 by 24: M and L as in SVG paths, Z closes, C x y r is a circle. `accent`
/// is drawn in the accent color, over the lines.
struct IconPaths {
  const char* lines = "";
  const char* accent = "";
};

/// Drawn in the palette's text color with one accent, so that they show on dark themes too.
QIcon drawnIcon(const IconPaths& paths);
QIcon drawnIcon(Icon icon);

}  // namespace kovra::desktop
