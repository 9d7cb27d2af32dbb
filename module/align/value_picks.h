#pragma once

#include "module/align/text_values.h"

namespace kovra {

/// The values of a text that the user picks. A click beside an entity and one on anything but a
/// text ask again.
/// @return false, with the values empty, when the user cancels or answers with nothing
bool PickTextValues(TextValues& values, const ACHAR* prompt);

/// The distance between two points that the user shows, as a text. False when the user cancels.
bool MeasureDistance(CString& distance);

}  // namespace kovra
