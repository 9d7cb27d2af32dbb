#pragma once

#include "host/program/options.h"

namespace kovra::host {

/// `kovra each`: runs the lines on each drawing in a process of its own and prints a summary.
/// Returns the exit status, 0 only when all drawings are done.
int runOnEach(const EachOptions& options);

}  // namespace kovra::host
