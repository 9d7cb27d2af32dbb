#include "module/frame/attach.h"
#include "module/frame/commands.h"
#include "module/propedit/edit_text_property_apply.h"
#include "module/propedit/edit_text_property_dialog.h"
#include "module/propedit/edit_text_property_pick.h"

namespace kovra {
namespace {

/// @return whether the set is to be applied
bool askSet(TextPropertySet& set) {
  for (bool restore = true;; restore = false) {
    CEditTextPropertyDialog dialog(set, restore, acedGetAcadFrame(), ResourceModule);
    const INT_PTR result = dialog.DoModal();
    if (result != kPickFromDrawing) return result == IDOK;
    PickTextProperty(set, dialog.PickMask);
  }
}

}  // namespace

void EditTextPropertyCommand() {
  TextPropertySet set;
  if (askSet(set)) ApplyLoop(set);
}

}  // namespace kovra
