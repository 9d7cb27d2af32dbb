#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Button with an icon that takes the place of a template's control while the dialog starts. It
/// paints its icon centred, and its caption, if it has one, beneath it.
class CBtnArw : public CButton {
 public:
  enum class Size { large = 32, small = 16 };  ///< of the icon in pixels

  /// Takes the place of a control: same rectangle, caption, visibility, enabling, tab stop and
  /// place in the tab order. A large button is a little larger where visual styles are active,
  /// which draw a margin. Nothing happens if the dialog lacks the control.
  void Replace(CDialog& dialog, int id, UINT icon, Size size);

  /// Marks the button as the chosen one of its group.
  void SetChecked(bool checked);
  bool IsChecked() const { return checked_; }

 protected:
  void DrawItem(LPDRAWITEMSTRUCT item) override;

  void OnMouseMove(UINT flags, CPoint point);
  LRESULT OnMouseHover(WPARAM, LPARAM);
  LRESULT OnMouseLeave(WPARAM, LPARAM);
  void OnLButtonDblClk(UINT flags, CPoint point);
  DECLARE_MESSAGE_MAP()

 private:
  void setHot(bool hot);
  void drawBackground(const DRAWITEMSTRUCT& item) const;
  int themeState(const DRAWITEMSTRUCT& item) const;
  void drawFace(const DRAWITEMSTRUCT& item) const;

  CDialog* dialog_ = nullptr;
  int id_ = 0;
  bool staysPressed_ = false;  // replaces a default push button or a radio: checked looks pressed
  bool checked_ = false;
  bool hot_ = false;
  HICON icon_ = nullptr;
  bool small_ = false;
};

}  // namespace kovra
