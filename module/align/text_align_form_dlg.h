#pragma once

#include <vector>

#include "module/align/column_layout.h"
#include "module/align/text_values.h"
#include "module/drawing/text_list.h"

namespace kovra {

/// How the column comes into the drawing.
enum class PlaceMode {
  drag = 0,    ///< the texts are dragged to a new place
  onBase = 1,  ///< they are laid out around one that stays
  copy = 2     ///< copies are dragged, the texts stay
};

/// What the align dialog gives back.
struct AlignSettings {
  TextValues values;
  CString apply;  ///< digits of the properties that are to be changed, in ascending order
  ColumnSpacing spacing;
  PlaceMode placeMode = PlaceMode::drag;
};

/// The dialog of the align command: which properties the texts shall share, how far apart they
/// stand and how they are placed.
class CTextAlignFormDlg : public CAcUiDialog {
 public:
  CTextAlignFormDlg(CWnd* parent, HINSTANCE resources);

  /// To be called before DoModal.
  /// @param lockedFlags non-zero for a locked layer, in the order of the layers
  /// @param values what the texts have in common; empty where they differ
  /// @param count number of the selected texts
  void SetInput(TextList layers, std::vector<UINT> lockedFlags, TextList styles,
                const TextValues& values, int count);
  /// The settings, after DoModal gave IDOK.
  const AlignSettings& GetResult() const { return settings_; }

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;

  void OnPropertyTick(UINT id);
  void OnPickValue(UINT id);
  void OnMeasureSpacing(UINT id);
  void UpdateControls();
  DECLARE_MESSAGE_MAP()

 private:
  void fillCombos();
  void showValue(std::size_t property, const CString& value);
  void showValues();
  void showTicks();
  void showPlacing();
  void showMeasureIcons();
  void restorePlace();
  void enableProperty(std::size_t property, bool enable);
  bool hasLockedLayer() const;
  DWORD storedNumber(const CString& key) const;
  CString storedDistance(const ACHAR* key) const;
  void collectTicks();
  void collectPlacing();

  TextList layers_;
  std::vector<UINT> layerLocked_;
  TextList styles_;
  int textCount_ = 0;
  AlignSettings settings_;
};

}  // namespace kovra
