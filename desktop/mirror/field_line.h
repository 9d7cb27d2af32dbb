#pragma once
#include <QLineEdit>

#include "platform/win/controls/edit_control.h"

namespace kovra::desktop {

/// A line to type in. Nothing that the user does changes it natively: keys, composed texts, clicks
/// and drags become acts on its window, and its text, caret and selection come back from there. An
/// input method's text in the making is shown natively.
class FieldLine : public QLineEdit {
 public:
  /// `control`: the field, or the combo box or table that it is part of.
  FieldLine(HWND control, QWidget* parent);

  /// Shows the text and, when it has the focus, the caret and selection of the field in memory.
  void follow(HWND field);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;

 private:
  void addCaretAct();
  void showText(HWND field, const win::EditState& state);

  HWND control_;
  QString making_;  ///< the input method's text in the making
};

/// Lays a press of the right button on the control ready, and with it the menu that comes up.
void addMenuAct(HWND control);

}  // namespace kovra::desktop
