#pragma once

namespace kovra {

/// Makes the text that follows one step of its own for the user's undo. An undo group that is open
/// is ended first.
void MarkUndo();

}  // namespace kovra
