#pragma once

#include "host/program/options.h"

namespace kovra::host {

/// `kovra [options] [DRAWING...]`: opens the drawings one after another, so that the last one is
/// current, carries out the input, saves. Returns the exit status.
int runDrawings(const RunOptions& options);

}  // namespace kovra::host
