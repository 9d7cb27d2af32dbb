#pragma once

#include "module/frame/companions/dialog_state_lib.h"
#include "module/propcopy/copy_prop_fields.h"

namespace kovra {

/// The dialog of the property copy: which tags are meant, which properties they get, and how far
/// the copy reaches. The command reads the fields after DoModal.
class CCopyPropDlg : public CAcUiDialog {
 public:
  CCopyPropDlg(UINT templateId, CWnd* parent, HINSTANCE resources);

  const CopyPropFields& GetFields() const { return fields_; }

 protected:
  BOOL DestroyWindow() override;
  BOOL OnInitDialog() override;
  void OnOK() override;

  void UpdateControls();
  void OnTagRowChanged(NMHDR* notification, LRESULT* result);
  void OnTick(UINT id);
  void OnComboText(UINT id);
  void OnComboSelection(UINT id);
  void OnNumberLeft(UINT id);
  void OnPickTag();
  void OnPickValue(UINT id);
  void OnDrawItem(int id, LPDRAWITEMSTRUCT item);
  DECLARE_MESSAGE_MAP()

 private:
  void ReadCopyPropFields();
  bool tagsAreChosen() const;
  bool valuesAreGiven() const;

  // The start.
  void loadPickIcon();
  void prepareTagRows();
  void fillAlignments();
  void fillScopes();
  void fillParamLists();
  void showTags();
  void showProperties();
  void showScope();
  void takePresetDrawings();
  void closeInputMethods();

  // The store.
  void loadState();
  void loadValues(const DialogStateStore& store);
  void loadTags(const DialogStateStore& store);
  void completeValues();
  void saveState();
  int checkedTagRows() const;

  // Picks.
  bool addTag(const CString& tag);
  void showPicked(int property, resbuf* list);

  CopyPropFields fields_;
  CListCtrl tagRows_;
  int storedTagRows_ = 0;  // as LstBox has them: 1 for the first row, 2 for the second
  HICON pickIcon_ = nullptr;
  int iconSize_ = 16;      // 16 or 32
  bool initGuard_ = true;  // what is shown at the start isn't a change of the user's
};

}  // namespace kovra
