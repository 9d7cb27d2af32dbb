#include "desktop/mirror/dialog_mirror.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>
#include <cstdlib>
#include <utility>

#include "desktop/loop/texts.h"
#include "desktop/mirror/acts.h"
#include "platform/win/desktop/table_input.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/windows/system_metrics.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {
namespace {

Qt::WindowFlags flagsOf(HWND dialog) {
  Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint;
  if (win::hasStyle(dialog, WS_CAPTION)) flags |= Qt::WindowTitleHint;
  if (win::hasStyle(dialog, WS_SYSMENU))
    flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  if (win::hasStyle(dialog, WS_MINIMIZEBOX)) flags |= Qt::WindowMinimizeButtonHint;
  return flags;
}

/// A key that opens the list of a combo box, which is native.
bool opensList(const QKeyEvent& event) {
  const bool arrow = event.key() == Qt::Key_Down || event.key() == Qt::Key_Up;
  return event.key() == Qt::Key_F4 || (arrow && (event.modifiers() & Qt::AltModifier) != 0);
}

bool asksForMenu(const QKeyEvent& event) {
  const bool shift = (event.modifiers() & Qt::ShiftModifier) != 0;
  return event.key() == Qt::Key_Menu || (event.key() == Qt::Key_F10 && shift);
}

void pressKey(HWND dialog, QObject* target, const QKeyEvent& event) {
  auto* box = qobject_cast<QComboBox*>(target);
  if (box != nullptr && opensList(event)) {
    box->showPopup();
  } else if (asksForMenu(event)) {
    addAct(dialog, [] { return win::openMenu(win::focusedControl()); });
  } else {
    addKeyPress(dialog, event);
  }
}

}  // namespace

DialogWidget::DialogWidget(HWND dialog, QWidget* owner)
    : QDialog(owner, flagsOf(dialog)), dialog_(dialog) {
  const auto* state = win::stateOf<win::DialogState>(dialog);
  scale_ = scaleOf(font(), state != nullptr ? state->baseUnits : SIZE{6, 13});
  setObjectName(QStringLiteral("template-%1").arg(win::templateOf(dialog)));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setSizeGripEnabled(false);
  takeKeysOf(this);
}

QRect DialogWidget::screenArea() const {
  const QScreen* on = parentWidget() != nullptr ? parentWidget()->screen() : screen();
  return on->availableGeometry();
}

SIZE DialogWidget::frameInMemory() const {
  const RECT outer = win::screenPlace(dialog_), client = win::clientOnScreen(dialog_);
  return {win::widthOf(outer) - win::widthOf(client), win::heightOf(outer) - win::heightOf(client)};
}

void DialogWidget::follow() {
  following_ = true;
  setWindowTitle(toQt(win::windowText(dialog_)));
  if (!IsIconic(dialog_)) followPlace();
  followVisibility();
  following_ = false;
}

/// False: nobody has chosen the place in memory, neither the user, before, nor the dialog: it is
/// the template's or the middle.
bool DialogWidget::placedByItself(const RECT& outer) const {
  const auto* state = win::stateOf<win::DialogState>(dialog_);
  if (state == nullptr || (outer.left == state->corner.x && outer.top == state->corner.y))
    return false;
  RECT around{};
  const HWND owner = win::findWindow(dialog_)->owner;
  if (owner == nullptr || !GetWindowRect(owner, &around) || win::widthOf(around) == 0)
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &around, 0);
  const auto apart = [](LONG a, LONG b) { return std::abs(a - b) > 1; };
  return apart((outer.left + outer.right) / 2, (around.left + around.right) / 2) ||
         apart((outer.top + outer.bottom) / 2, (around.top + around.bottom) / 2);
}

void DialogWidget::followPlace() {
  const RECT outer = win::screenPlace(dialog_);
  const RECT client = win::clientOnScreen(dialog_);
  const QSize inside = scale_.size({win::widthOf(client), win::heightOf(client)});
  const bool sized = win::widthOf(outer) != win::widthOf(followed_) ||
                     win::heightOf(outer) != win::heightOf(followed_);
  const bool moved = outer.left != followed_.left || outer.top != followed_.top;
  if (win::dialogCanBeSized(dialog_)) {
    const SIZE least = win::limitedSize(dialog_, {0, 0});
    const SIZE frame = frameInMemory();
    setMinimumSize(scale_.size({least.cx - frame.cx, least.cy - frame.cy}).boundedTo(inside));
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    if (sized) resize(inside);
  } else {
    setFixedSize(inside);
  }
  const bool first = !std::exchange(placed_, true);
  if (first && parentWidget() != nullptr && !placedByItself(outer)) {
    move(placeOverMiddle(parentWidget()->frameGeometry(), frameGeometry().size(), screenArea()));
  } else if (moved) {
    move(placeOnScreen(outer, frameGeometry().size(), screenArea()));
  }
  followed_ = outer;
}

void DialogWidget::followVisibility() {
  const bool visible = IsWindowVisible(dialog_) != FALSE;
  const win::Window* window = win::findWindow(dialog_);
  // A modal dialog is one whose owner waits for it.
  const bool modal = window->owner != nullptr && IsWindowEnabled(window->owner) == FALSE;
  const Qt::WindowModality modality = modal ? Qt::WindowModal : Qt::NonModal;
  if (visible && modality != windowModality()) {
    setVisible(false);
    setWindowModality(modality);
  }
  const bool iconic = IsIconic(dialog_) != FALSE;
  if (visible && iconic != isMinimized())
    setWindowState(iconic ? Qt::WindowMinimized : Qt::WindowNoState);
  if (visible != isVisible()) setVisible(visible);
}

bool DialogWidget::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      event->accept();
      return true;
    case QEvent::KeyPress:
      pressKey(dialog_, watched, static_cast<const QKeyEvent&>(*event));
      return true;
    case QEvent::KeyRelease:
      return true;
    case QEvent::MouseButtonPress:
      // A text in the making belongs to the field that has the focus until then.
      QGuiApplication::inputMethod()->commit();
      return false;
    default:
      return false;
  }
}

bool DialogWidget::event(QEvent* event) {
  if (event->type() == QEvent::Show) {
    // Some platforms make active what is shown, whatever they are asked: within a moment that is
    // theirs and not the user's, and the focus stays where it is in memory.
    constexpr int kMoment = 300;
    justShown_ = true;
    QTimer::singleShot(kMoment, this, [this] { justShown_ = false; });
  }
  if (event->type() == QEvent::WindowActivate && std::exchange(justShown_, false) &&
      parentWidget() != nullptr && !win::isInside(dialog_, GetFocus())) {
    QTimer::singleShot(0, parentWidget(), [owner = parentWidget()] { owner->activateWindow(); });
  } else if (event->type() == QEvent::WindowActivate) {
    addAct(dialog_, [dialog = dialog_] {
      if (win::isInside(dialog, GetFocus())) return win::InputResult{};
      return win::focusControl(dialog);
    });
  }
  return QDialog::event(event);
}

void DialogWidget::closeEvent(QCloseEvent* event) {
  event->ignore();
  addAct(dialog_, [dialog = dialog_] { return win::pressCloseBox(dialog); });
}

void DialogWidget::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange || following_) return;
  addAct(dialog_, [dialog = dialog_, minimized = isMinimized()] {
    return minimized ? win::minimizeDialog(dialog) : win::restoreDialog(dialog);
  });
}

void DialogWidget::moveEvent(QMoveEvent* event) {
  QDialog::moveEvent(event);
  if (!following_ && isVisible() && !moveWaits_) addMoveAct();
}

void DialogWidget::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (!following_ && isVisible() && !sizeWaits_) addSizeAct();
}

void DialogWidget::addMoveAct() {
  moveWaits_ = true;
  addAct(dialog_, [self = QPointer<DialogWidget>(this)] {
    DialogWidget* widget = self.data();
    return widget != nullptr ? widget->tellPlace() : win::InputResult{};
  });
}

win::InputResult DialogWidget::tellPlace() {
  moveWaits_ = false;
  const RECT outer = win::screenPlace(dialog_);
  const POINT corner = placeInMemory(outer, frameGeometry().size(), screenArea(), pos());
  auto result = win::moveDialog(dialog_, corner.x, corner.y);
  const RECT now = win::screenPlace(dialog_);
  followed_ = {now.left, now.top, now.left + win::widthOf(outer), now.top + win::heightOf(outer)};
  return result;
}

void DialogWidget::addSizeAct() {
  sizeWaits_ = true;
  addAct(dialog_, [self = QPointer<DialogWidget>(this)] {
    DialogWidget* widget = self.data();
    return widget != nullptr ? widget->tellSize() : win::InputResult{};
  });
}

win::InputResult DialogWidget::tellSize() {
  sizeWaits_ = false;
  const SIZE inside = scale_.sizeInMemory(size());
  const SIZE frame = frameInMemory();
  auto result = win::sizeDialog(dialog_, inside.cx + frame.cx, inside.cy + frame.cy);
  // Followed anew, in case that the dialog has its own mind about the size.
  followed_.right = followed_.left;
  return result;
}

}  // namespace kovra::desktop
