#include "module/drawing/property_combos.h"

#include "module/drawing/attachment.h"
#include "module/frame/dialog_items.h"
#include "module/frame/reporting.h"

namespace kovra {
namespace {

constexpr UINT kFirstJustification = 2809;

}  // namespace

void FillCombo(CWnd& dialog, int comboId, const TextList& texts) {
  for (const auto& text : texts) AddComboItem(dialog, comboId, text.get());
}

void FillJustifications(CWnd& dialog, int comboId) {
  for (int i = 0; i < kAttachments; ++i) {
    const CString name = ResourceText(kFirstJustification + static_cast<UINT>(i));
    AddComboItem(dialog, comboId, name.GetString());
  }
}

}  // namespace kovra
