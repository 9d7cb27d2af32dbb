// The native dialog of a dialog in memory.
#pragma once
#include <QDialog>
#include <QPointer>

#include "desktop/mirror/scale.h"
#include "platform/win/desktop/user_input.h"

namespace kovra::desktop {

/// A dialog's frame and ground. Its keys and its frame's buttons are acts on the window in memory;
/// so are moving and sizing it.
class DialogWidget : public QDialog {
 public:
  DialogWidget(HWND dialog, QWidget* owner);

  Scale scale() const { return scale_; }
  /// Shows title, place, size and whether it is to be seen.
  void follow();
  /// Hands the keys of a widget in the dialog to the dialog in memory.
  void takeKeysOf(QWidget* widget) { widget->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void followPlace();
  bool placedByItself(const RECT& outer) const;
  void followVisibility();
  void addMoveAct();
  void addSizeAct();
  win::InputResult tellPlace();
  win::InputResult tellSize();
  QRect screenArea() const;
  SIZE frameInMemory() const;

  HWND dialog_;
  Scale scale_;
  RECT followed_{};         ///< the place in memory that it stands for
  bool justShown_ = false;  ///< a moment ago
  bool placed_ = false;     ///< it has had a place on the screen
  bool following_ = false;  ///< what changes now isn't the user's doing
  bool moveWaits_ = false;
  bool sizeWaits_ = false;
};

}  // namespace kovra::desktop
