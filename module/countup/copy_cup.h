#pragma once

#include "module/countup/array_buttons.h"
#include "module/frame/companions/dialog_state_lib.h"
#include "module/frame/seam.h"

namespace kovra {

/// The dialog of the count-up copy: whether and how values are counted, and whether the copies are
/// dragged one after another or laid out in rows and columns. The command reads the fields after
/// DoModal.
class CCopyCup : public CAcUiDialog {
 public:
  /// From data version "10.0" on it also offers the step in the chosen numbering system.
  CCopyCup(CWnd* parent, HINSTANCE resources);

  bool CountUp = true;
  int Radix = 1;        ///< row of RadixTable
  int CountUpStep = 1;  ///< in decimal, from one copy to the next
  int Mode = 0;         ///< 0 drags, 1 rows and columns
  int Direction = 0;    ///< layout of rows and columns, 0 to 3
  int Rows = 4;
  int Cols = 4;
  double RowHeight = 1.0;     ///< before the scale
  double ColWidth = 1.0;      ///< before the scale
  double DrawingScale = 1.0;  ///< drawing units for a distance of 1 in the dialog

 protected:
  BOOL DestroyWindow() override;
  BOOL PreTranslateMessage(MSG* message) override;
  BOOL OnInitDialog() override;
  void OnOK() override;

  void OnRadixSelected();
  void OnCountUpClicked();
  void OnModeClicked(UINT id);
  void OnDecimalStepClicked();
  void OnRadixStepClicked();
  void OnDirectionClicked(UINT id);
  void OnTextChanged(UINT id);
  void OnFocusLost(UINT id);
  void OnRadixStepFocusLost();
  void PickDistance(UINT id);
  DECLARE_MESSAGE_MAP()

 private:
  /// Why OK is refused.
  struct Refusal {
    UINT message = 0;  ///< 0: it isn't
    int focus = 0;
  };

  CCopyCup(CWnd* parent, HINSTANCE resources, UINT templateId);
  void loadState();
  void loadFields(const DialogStateStore& store);
  void saveState();
  void saveFields(DialogStateStore& store);
  void showFields();
  void UpdateModeControls();
  void UpdateOkState();
  bool updateRadixControls();
  bool distancesAreGiven() const;
  void CollectFields();
  Refusal firstRefusal() const;
  bool CleanCountField(int id);
  void syncStep(bool fromRadix);
  bool askDistance(UINT id);
  bool offersRadixStep() const;

  ArrayButtons buttons_;
  UINT templateId_;
  int radixMode_ = 0;     // 0: the step is typed in decimal, 1: in the selected numbering system
  bool started_ = false;  // writing the fields at the start isn't a change of theirs
};

}  // namespace kovra
