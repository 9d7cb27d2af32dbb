#pragma once

#include "host/program/options.h"

namespace kovra::host {

/// `kovra plot`: draws a drawing into a picture file, or several into a folder. Says on standard
/// output what it didn't draw. Returns the exit status.
int plotDrawings(const PlotOptions& options);

}  // namespace kovra::host
