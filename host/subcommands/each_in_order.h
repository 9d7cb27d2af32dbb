#pragma once

#include <functional>
#include <vector>

#include "host/batch/drawing_list.h"

namespace kovra::host {

/// Carries `work` out for each drawing, several at once, each in a process of its own (but a single
/// one here); what they print comes in the order of the drawings.
/// @param work prints, and returns an exit status
/// @return the first status that isn't 0
int forEachInOrder(const std::vector<BatchDrawing>& drawings, unsigned jobs,
                   const std::function<int(const BatchDrawing& drawing)>& work);

}  // namespace kovra::host
