// What the dialog of text properties does with the named sets of the project.
#include "module/frame/dialog_items.h"
#include "module/frame/reporting.h"
#include "module/propedit/edit_text_property_dialog.h"
#include "module/propedit/edit_text_property_ids.h"
#include "module/propedit/text_property_set_store.h"

namespace kovra {

using namespace editproperty;

namespace {

constexpr UINT kNotDeleted = 571;
constexpr UINT kNotSaved = 3285;
constexpr UINT kReplaceQuestion = 7136;
constexpr UINT kDeleteQuestion = 7138;

bool isStoredName(const CWnd& dialog, const CString& name) {
  return FindComboItem(dialog, kSetName, name.GetString()) >= 0;
}

}  // namespace

void CEditTextPropertyDialog::UpdateSetButtons() {
  const CString name = ItemText(*this, kSetName);
  EnableItems(*this, {kLoadSet, kDeleteSet}, isStoredName(*this, name));
  EnableItem(*this, kSaveSet, !name.IsEmpty());
}

void CEditTextPropertyDialog::LoadNamedSet() {
  const CString name = ItemText(*this, kSetName);
  if (LoadTextPropertySet(PropertySet, name.GetString())) ShowPropertySet();
}

void CEditTextPropertyDialog::SaveNamedSet() {
  const CString name = ItemText(*this, kSetName);
  if (name.IsEmpty()) return;
  if (isStoredName(*this, name) && !confirm(kReplaceQuestion, name)) return;
  CollectPropertySet();
  if (!SaveTextPropertySet(PropertySet, name.GetString())) {
    message(ResourceText(kNotSaved), MB_ICONEXCLAMATION);
    return;
  }
  FillSetNames();
  SelectComboItem(*this, kSetName, name.GetString());
  UpdateSetButtons();
}

void CEditTextPropertyDialog::DeleteNamedSet() {
  const CString name = ItemText(*this, kSetName);
  if (name.IsEmpty()) return;
  if (isStoredName(*this, name) && !confirm(kDeleteQuestion, name)) return;
  if (!DeleteTextPropertySet(name.GetString())) {
    message(ResourceText(kNotDeleted), MB_ICONEXCLAMATION);
    return;
  }
  SendDlgItemMessage(kSetName, CB_DELETESTRING,
                     static_cast<WPARAM>(FindComboItem(*this, kSetName, name.GetString())));
  SetDlgItemText(kSetName, L"");
  UpdateSetButtons();
}

int CEditTextPropertyDialog::message(const CString& text, UINT style) const {
  CString title;
  GetWindowText(title);
  return MessageBox(text, title, style);
}

bool CEditTextPropertyDialog::confirm(UINT question, const CString& name) const {
  return message(FormatResourceText(question, name.GetString()), MB_YESNO | MB_ICONQUESTION) ==
         IDYES;
}

}  // namespace kovra
