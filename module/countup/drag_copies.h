#pragma once

#include "module/countup/pattern_copies.h"
#include "module/drawing/selection_set.h"

namespace kovra {

/// Lets the user drag counted copies of the selected texts to one place after another, each pass
/// counted on from the copies of the pass before, until a drag is cancelled.
void DragCopies(SelectionSet originals, const CountRule& rule);

}  // namespace kovra
