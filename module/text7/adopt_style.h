#pragma once

#include <vector>

#include "module/frame/seam.h"

namespace kovra {

/// Shows the height and the width factor of the chosen text style in a dialog's fields, locked, and
/// puts the user's own values aside meanwhile. The height is adopted from every style that fixes
/// one, the width factor while the dialog offers adoption and its check box is checked.
///
/// A dialog derives from it, or from AdoptTextStyleWithButton, and sets the ids in its constructor.
/// It calls
///  - at each check of its entries: AdoptHeight with the height field if HasFixedHeight of
///    StyleName, else ReleaseHeight; at the end ApplyAdoption with IsAdoptChecked;
///  - when the check box is clicked: ApplyAdoption with IsAdoptChecked;
///  - to store height and width factor: StoredHeight and StoredWidth of what the fields show.
/// All of them may be called any number of times in a row.
class AdoptTextStyle {
 public:
  int StyleComboId = 0;
  int AdoptCheckId = 0;
  int HeightComboId = 0;
  int WidthComboId = 0;
  CString SavedHeight;  ///< the user's height while the style's is on show
  CString SavedWidth;   ///< the user's width factor likewise

  /// Shows the style's height in the field and locks it. False, with nothing changed, when the
  /// style fixes none.
  virtual bool AdoptHeight(CWnd& field);
  /// Shows the style's width factor in the field and locks it. False, with nothing changed, unless
  /// IsAdoptChecked.
  virtual bool AdoptWidth(CWnd& field);
  /// Gives the user's height back and frees the field. False, with nothing changed, when the style
  /// fixes a height or the field is free.
  virtual bool ReleaseHeight(CWnd& field);
  /// Gives the user's width factor back and frees the field. False, with nothing changed, while
  /// IsAdoptChecked or when the field is free.
  virtual bool ReleaseWidth(CWnd& field);
  /// Whether the check box counts at all.
  virtual bool IsAvailable() = 0;
  /// The dialog with the controls; never null.
  virtual CWnd* GetDialog() = 0;
  virtual void FormatNumber(CString& text, double value);

  /// The style that the combo box names, also while it reports a selection; empty without the
  /// combo box.
  CString StyleName();
  bool IsAdoptChecked();
  /// Adopts height and width factor, or releases both. Nothing happens unless IsAvailable.
  void ApplyAdoption(bool adopt);
  /// False also for a style that the drawing doesn't have.
  bool HasFixedHeight(const ACHAR* style);
  /// The user's height while the style's is on show, else `value`; 0 for a saved text that is no
  /// number.
  double StoredHeight(double value) const;
  /// The same for the width factor.
  double StoredWidth(double value) const;
  /// Whether the combo box has the style, without regard to case.
  bool StyleListed(const ACHAR* name);
  /// Selects it; false, with the selection as it was, when it isn't there.
  bool SelectStyle(const ACHAR* name);
  /// FormatNumber into a buffer of at least 128 characters.
  void FormatNumberTo(ACHAR* buffer, double value);

 protected:
  AdoptTextStyle() = default;
  ~AdoptTextStyle() = default;
  AdoptTextStyle(const AdoptTextStyle&) = delete;
  AdoptTextStyle& operator=(const AdoptTextStyle&) = delete;

 private:
  bool isFree(int fieldId);
  bool show(CWnd& field, int fieldId, CString& saved, double value);
  bool release(CWnd& field, int fieldId, CString& saved);
};

/// Locks the buttons that pick height and width factor from the drawing with their fields.
class AdoptTextStyleWithButton : public AdoptTextStyle {
 public:
  int HeightButtonId = 0;
  int WidthButtonId = 0;

  bool AdoptHeight(CWnd& field) override;
  bool AdoptWidth(CWnd& field) override;
  bool ReleaseHeight(CWnd& field) override;
  bool ReleaseWidth(CWnd& field) override;

 protected:
  AdoptTextStyleWithButton() = default;
  ~AdoptTextStyleWithButton() = default;
};

/// Callback for ForEachTextStyle: appends the name of a style, or an empty text for one whose name
/// can't be read, to `list`, a std::vector<CString>.
void CollectStyleName(void* list, AcDbTextStyleTableRecord* style);

}  // namespace kovra
