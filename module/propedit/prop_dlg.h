#pragma once

#include "module/drawing/growing_list.h"
#include "module/drawing/text_properties.h"
#include "module/frame/companions/dialog_state_lib.h"
#include "module/frame/seam.h"
#include "module/params/param_tables.h"
#include "module/propedit/prop_values.h"

namespace kovra {

/// The dialog of the change-properties command: which of six properties the selected texts get,
/// and what. OK changes them; the dialog ends as cancelled when that changed none.
class CPropDlg : public CAcUiDialog {
 public:
  /// @param tables the usual values that the fields offer; they must live as long as the dialog
  CPropDlg(CWnd* parent, HINSTANCE resources, const ParamTables& tables);

  /// Takes the texts that are to be changed, and what they have in common. To be called before
  /// DoModal.
  void InitPropValues(const GrowingList<AcDbObjectId>& ids);

  GrowingList<AcDbObjectId> EntityIds;
  TextPropertySet PropChecks = {};  ///< the properties that are to be set
  TextValues PropValues;

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;

  void OnTick(UINT id);
  void OnValueChanged(UINT id);
  void PickPropValues(UINT id);
  void OnDestroy();
  DECLARE_MESSAGE_MAP()

 private:
  void fillCombos();
  void fillLayers();
  void loadState();
  void showValue(std::size_t property, const CString& value);
  int findValue(std::size_t property, const CString& value) const;
  void UpdatePropControls();
  bool standsForCurrentLayer() const;
  bool layerIsLocked() const;
  void takePicked(UINT id);
  void showPicked(std::size_t property, const CString& value);
  void collectFields();
  bool changeTexts() const;

  const ParamTables& tables_;
  AttachNames names_;
};

}  // namespace kovra
