#include "module/drawing/property_combos.h"

#include "module/drawing/attachment.h"
#include "module/frame/dialog_items.h"
#include "module/frame/reporting.h"

namespace kovra {
void FillCombo(CWnd& dialog, int comboId, const TextList& texts) {
  for (const auto& text : texts) AddComboItem(dialog, comboId, text.get());
}

void FillJustifications(CWnd& dialog, int comboId, UINT firstString) {
  for (int i = 0; i < kAttachments; ++i) {
    const CString name = ResourceText(firstString + static_cast<UINT>(i));
    AddComboItem(dialog, comboId, name.GetString());
  }
}

}  // namespace kovra
