#pragma once

#include "host/program/options.h"

namespace kovra::host {

/// `kovra list`: prints the texts of drawings. A drawing that can't be read is said and the others
/// are listed. Returns the exit status.
int listDrawings(const ListOptions& options);

/// `kovra check`: says for each drawing whether opening and saving gives every byte back. Returns
/// the exit status, 1 when a drawing wouldn't come back.
int checkDrawings(const CheckOptions& options);

}  // namespace kovra::host
