#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// A line that was typed, or the value of a text.
inline constexpr int kTextInputLength = 256;
using TextInput = ACHAR[kTextInputLength];

/// What ReadTextInput gives for a line of the Text dialog, or one that looks like it.
inline constexpr int kDialogRequest = -5005;

/// 0 when both texts, cut to at most n characters, are equal without regard to case; else as
/// lstrcmpiW.
int CompareStartNoCase(const ACHAR* a, const ACHAR* b, int n);

/// Reads a line, which may have blanks, from the command line. The text given is offered: it is
/// typed for the user as soon as the cursor comes into the drawing. A click on a text of the
/// drawing appends that text's value to what is being typed; clicks on tool bars have no effect.
/// @param text the value to offer; takes the line that was read
/// @return RTNORM; kDialogRequest for a line that begins with "_. "; else what the prompt gave,
///         with `text` as it was
int ReadTextInput(const ACHAR* prompt, TextInput& text);

}  // namespace kovra
