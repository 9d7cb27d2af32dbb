#pragma once

#include "host/program/options.h"

namespace kovra::host {

/// `kovra plot`: draws a drawing into a picture file. Says on standard output what it didn't draw.
/// Returns the exit status.
int plotDrawing(const PlotOptions& options);

}  // namespace kovra::host
