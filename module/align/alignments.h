#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// The user's word for the alignment of a text, of the 13 in the dialog's list. Modes without one,
/// as aligned and fit texts have, get the first.
CString AlignmentLabel(int vertical, int horizontal);

/// Modes of a label, in any case of letters. False, with both modes 0, for another text.
bool AlignmentModes(const ACHAR* label, int& vertical, int& horizontal);

}  // namespace kovra
