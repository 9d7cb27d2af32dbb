#pragma once

#include "module/drawing/text_list.h"
#include "module/frame/seam.h"

/// What the dialogs of text properties offer in their combo boxes.
namespace kovra {

/// Appends the entries of a list.
void FillCombo(CWnd& dialog, int comboId, const TextList& texts);

/// The strings of the attachments in the text dialogs, and in the align dialog; in the order of
/// AttachCodes.
inline constexpr UINT kTextJustifications = 2809;
inline constexpr UINT kAlignJustifications = 2119;

/// Appends the attachments in the user's language, by the first of their strings.
void FillJustifications(CWnd& dialog, int comboId, UINT firstString = kTextJustifications);

}  // namespace kovra
