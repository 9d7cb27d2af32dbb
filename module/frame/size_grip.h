#pragma once

#include "module/frame/seam.h"

/// The corner by which a dialog is sized: a square at the lower right of its client area, whose
/// place the dialog keeps.
namespace kovra {

/// Moves the grip into the corner of a client area of this size, and repaints where it was and is.
/// False, with nothing done, for an area that has no room for a dialog.
bool MoveSizeGrip(CWnd& dialog, CRect& grip, int width, int height);

/// Answers WM_PAINT of the dialog.
void PaintSizeGrip(CWnd& dialog, const CRect& grip, bool show = true);

/// @param point in the screen's coordinates
bool IsOnSizeGrip(const CWnd& dialog, const CRect& grip, CPoint point);

}  // namespace kovra
