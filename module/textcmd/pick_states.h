#pragma once

#include "module/textcmd/text_run.h"

namespace kovra {

/// States 3 to 8: lets the user pick a text, and takes over what run.TextState says of it into the
/// preview and the dialog; then goes back to run.TextReturnState.
/// @return always 0
int RunPickState(TextRun& run);

}  // namespace kovra
