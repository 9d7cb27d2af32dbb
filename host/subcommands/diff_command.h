#pragma once

#include "host/program/options.h"

namespace kovra::host {

/// `kovra diff`: prints the records and groups in which two drawings differ. Returns the exit
/// status: 0 when nothing that means something differs, 1 when something does.
int diffDrawings(const DiffOptions& options);

}  // namespace kovra::host
