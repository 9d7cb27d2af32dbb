#pragma once

#include "module/textcmd/text_run.h"

namespace kovra {

/// State 10: makes a text like the preview at run.TextPoint, as an undo step of its own, and goes
/// on with the next value.
/// @return 0; negative when the text can't be made
int PlaceText(TextRun& run);

}  // namespace kovra
