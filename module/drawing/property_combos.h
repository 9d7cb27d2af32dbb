#pragma once

#include "module/drawing/text_list.h"
#include "module/frame/seam.h"

/// What the dialogs of text properties offer in their combo boxes.
namespace kovra {

/// Appends the entries of a list.
void FillCombo(CWnd& dialog, int comboId, const TextList& texts);

/// Appends the attachments in the user's language, in the order of AttachCodes.
void FillJustifications(CWnd& dialog, int comboId);

}  // namespace kovra
