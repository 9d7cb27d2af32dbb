#include "module/countup/step_fields.h"

#include "module/countup/radix_table.h"
#include "module/frame/dialog_items.h"

namespace kovra {

bool SyncStepFields(CWnd& dialog, StepFields& fields, bool fromRadix) {
  if (fields.rewriting) return false;
  const int source = fromRadix ? fields.radixField : fields.decimalField;
  const int target = fromRadix ? fields.decimalField : fields.radixField;
  const int row = SelectedIndex(dialog, kRadixCombo);
  const std::wstring step = ItemText(dialog, source).GetString();
  const auto text =
      fromRadix ? stepToDecimal(step, row, fields.rules) : stepToRadix(step, row, fields.rules);
  if (!text) return false;
  fields.rewriting = true;
  dialog.SetDlgItemText(target, text->c_str());
  fields.rewriting = false;
  return true;
}

}  // namespace kovra
