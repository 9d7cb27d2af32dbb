#pragma once

#include "module/drawing/text_list.h"
#include "module/frame/companions/dialog_state_lib.h"
#include "module/propedit/text_property_set.h"

namespace kovra {

/// What DoModal of the dialog gives when the user wants to take values from the drawing.
inline constexpr INT_PTR kPickFromDrawing = 100;

/// The dialog of a set of text properties: which of them are given to texts, their values, and the
/// named sets of the project. It works on the command's set. Only its width can be changed.
class CEditTextPropertyDialog : public CAcUiDialog {
 public:
  /// @param set the set that is shown and changed; it outlives the dialog
  /// @param restore shows the entries of the last use in place of the set's values
  CEditTextPropertyDialog(TextPropertySet& set, bool restore, CWnd* parent, HINSTANCE resources);

  /// The properties that a pick is to take from an entity, after DoModal gave kPickFromDrawing.
  unsigned PickMask = 0;

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;

  void OnCheckClicked(UINT id);
  void OnPickClicked(UINT id);
  void OnSetSelected();
  void UpdateSetButtons();
  void LoadNamedSet();
  void SaveNamedSet();
  void DeleteNamedSet();
  void OnDestroy();
  void OnSize(UINT type, int width, int height);
  void OnGetMinMaxInfo(MINMAXINFO* limits);
  void OnPaint();
  LRESULT OnNcHitTest(CPoint point);
  DECLARE_MESSAGE_MAP()

 private:
  void FillLists();
  void FillSetNames();
  void fillAlignments();
  void fillSorted(int comboId, const TextList& names);
  void ShowPropertySet();
  void selectAlignment();
  void restoreState();
  void placeWindow(const DialogStateStore& store);
  void RestoreControls(const DialogStateStore& store);
  void saveState() const;
  void CollectPropertySet();
  void UpdateCheckControls();
  void UpdateCheckControls(int check);
  void UpdateEditOk();
  int message(const CString& text, UINT style) const;
  bool confirm(UINT question, const CString& name) const;

  TextPropertySet& PropertySet;
  const bool RestoreState;
  int MinWidth = 0;   // of the window at its first start, in pixels
  int MinHeight = 0;  // the same
  CRect GripRect;     // in the client area
};

}  // namespace kovra
