// Icons of the program's own, as paths.
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
  kErase,
  kExtents,
  kZoomIn,
  kZoomOut,
  kText,
  kTextResize,
  kTextProperties,
  kTextCountUp,
  kAttrCopy,
  kAttrCopyAll,
  kAttrCopyLine,
  kTextSets,
  kTextAlign,
  kOptions,
  kHelp,
  kLocked
};

/// Drawn in the palette's text color with one accent, so that they show on dark themes too.
QIcon drawnIcon(Icon icon);

}  // namespace kovra::desktop
