#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Turns the height and rotation that a text has in its own block into those in the drawing.
/// @param height drawing units; null when only the angle is wanted
/// @param angle radians, afterwards from 0 up to a full turn
/// @param matrix places the block in the drawing, as acedNEntSelP gives it
void TransformHeightAndAngle(double* height, double& angle, const ads_matrix matrix);

}  // namespace kovra
