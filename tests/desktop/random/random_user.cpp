#include "tests/desktop/random/random_user.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QMainWindow>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>
#include <array>

#include "desktop/loop/input_queue.h"
#include "platform/arx/editor/host_api.h"
#include "tests/desktop/hands/native_input.h"

namespace kovra::test {
namespace {

constexpr int kDeepest = 12;

constexpr std::array kCommands = {L"KOVRA_TEXT",
                                  L"KOVRA_TEXT_RESIZEH",
                                  L"KOVRA_TEXT_PROPERTIES",
                                  L"KOVRA_TEXT_COUNTUP",
                                  L"KOVRA_ATTR_COPY",
                                  L"KOVRA_ATTR_COPY_ALL",
                                  L"KOVRA_TEXT_EDITPROP",
                                  L"KOVRA_TEXT_ALIGN",
                                  L"MOVE",
                                  L"ERASE",
                                  L"U",
                                  L"REDO"};

constexpr std::array kKeys = {
    Qt::Key_Return, Qt::Key_Return,  Qt::Key_Escape,   Qt::Key_Escape,    Qt::Key_Tab,
    Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Space,    Qt::Key_Backspace, Qt::Key_Delete,
    Qt::Key_Left,   Qt::Key_Right,   Qt::Key_Up,       Qt::Key_Down,      Qt::Key_Home,
    Qt::Key_End,    Qt::Key_PageUp,  Qt::Key_PageDown, Qt::Key_Insert,    Qt::Key_F2,
    Qt::Key_F3,     Qt::Key_F4,      Qt::Key_F8,       Qt::Key_F9,        Qt::Key_A,
    Qt::Key_C,      Qt::Key_V,       Qt::Key_X,        Qt::Key_Z,         Qt::Key_Y,
    Qt::Key_N,      Qt::Key_1,       Qt::Key_7};

bool waitsInItsOwnLoop() {
  const QWidget* popup = QApplication::activePopupWidget();
  const QWidget* modal = QApplication::activeModalWidget();
  const bool ofTheModule =
      modal == nullptr || modal->objectName().startsWith(QLatin1String("template-"));
  return popup != nullptr || !ofTheModule;
}

}  // namespace

RandomUser::RandomUser(unsigned seed) : random_(seed) {
  actInOwnLoops();
}

/// Each time with a timer of its own: one whose slot runs doesn't fire in the loops below it, and
/// what the act opens may well run one.
void RandomUser::actInOwnLoops() {
  constexpr int kMilliseconds = 10;
  QTimer::singleShot(kMilliseconds, &ownLoops_, [this] {
    actInOwnLoops();
    if (waitsInItsOwnLoop()) act();
  });
}

void RandomUser::act() {
  QWidget* window = target();
  if (window == nullptr || depth_ > kDeepest) return;
  // Keys go somewhere only while a window of the program is the active one.
  if (QApplication::activeWindow() == nullptr || QApplication::focusWidget() == nullptr) {
    window->activateWindow();
    window->setFocus();
  }
  ++depth_;
  if (hasKeyboard() && waitsInItsOwnLoop() && (depth_ > 2 || chance(3))) {
    last_ = "Esc in " + window->objectName().toStdString();
    QTest::keyClick(static_cast<QWidget*>(nullptr), Qt::Key_Escape);
  } else if (chance(25)) {
    changeWindow(*window);
  } else if (hasKeyboard() && chance(12)) {
    typeWords();
  } else if (hasKeyboard() && chance(3)) {
    useKeys(*window);
  } else if (QWidget* widget = widgetIn(*window)) {
    useMouse(*widget);
  }
  --depth_;
}

/// The window that a person would turn to.
QWidget* RandomUser::target() {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  QWidgetList shown;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->isVisible() && window->windowHandle() != nullptr) shown += window;
  return shown.isEmpty() ? nullptr : shown[below(static_cast<int>(shown.size()))];
}

QWidget* RandomUser::widgetIn(QWidget& window) {
  QWidgetList shown = {&window};
  for (QWidget* widget : window.findChildren<QWidget*>())
    if (widget->isVisible() && widget->window() == &window && !widget->size().isEmpty())
      shown += widget;
  return shown[below(static_cast<int>(shown.size()))];
}

void RandomUser::useMouse(QWidget& widget) {
  // Not 0,0, which stands for the middle.
  const QPoint place(below(widget.width() - 1) + 1, below(widget.height()));
  const QPoint other(below(widget.width()), below(widget.height()));
  const auto button = chance(5) ? Qt::RightButton : chance(20) ? Qt::MiddleButton : Qt::LeftButton;
  const auto held = chance(12)   ? Qt::ShiftModifier
                    : chance(12) ? Qt::ControlModifier
                                 : Qt::NoModifier;
  last_ = "mouse on " + std::string(widget.metaObject()->className()) + ' ' +
          widget.objectName().toStdString() + " at " + std::to_string(place.x()) + ',' +
          std::to_string(place.y()) + " button " + std::to_string(button);
  const QPointer<QWidget> alive(&widget);
  if (chance(10)) {
    QWheelEvent wheel(place, widget.mapToGlobal(place), {}, {0, chance(2) ? 120 : -120},
                      Qt::NoButton, held, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &wheel);
  } else if (chance(6)) {
    QTest::mousePress(&widget, button, held, place);
    if (alive) QTest::mouseMove(&widget, other);
    if (alive) QTest::mouseRelease(&widget, button, held, other);
  } else if (chance(8)) {
    QTest::mouseDClick(&widget, button, held, place);
  } else if (chance(8)) {
    QTest::mouseMove(&widget, place);
  } else {
    QTest::mouseClick(&widget, button, held, place);
  }
}

void RandomUser::useKeys(QWidget& window) {
  const Qt::Key key = kKeys[random_() % kKeys.size()];
  Qt::KeyboardModifiers held;
  held.setFlag(Qt::ShiftModifier, chance(8));
  held.setFlag(Qt::ControlModifier, chance(8));
  held.setFlag(Qt::AltModifier, chance(10));
  last_ = "key " + std::to_string(key) + " in " + window.objectName().toStdString();
  QTest::keyClick(static_cast<QWidget*>(nullptr), key, held);
}

/// A command, a number, or what an input method composes.
void RandomUser::typeWords() {
  if (chance(3)) {
    last_ = "input method";
    QInputMethodEvent event(QStringLiteral("へんかん"), {});
    if (chance(2)) event.setCommitString(QStringLiteral("変換 7"));
    if (QWidget* focused = QApplication::focusWidget()) QApplication::sendEvent(focused, &event);
  } else if (chance(2)) {
    last_ = "a number";
    // A key may close the window that had them.
    for (const char c : std::to_string(below(2000) - 1000))
      if (hasKeyboard()) QTest::keyClick(static_cast<QWidget*>(nullptr), c);
  } else {
    const std::wstring command = kCommands[random_() % kCommands.size()];
    last_ = "command " + std::string(command.begin(), command.end());
    desktop::inputQueue().add([command] { (void)arx::host::typeText(command + L'\n'); });
  }
}

void RandomUser::changeWindow(QWidget& window) {
  last_ = "window " + window.objectName().toStdString();
  const bool main = qobject_cast<QMainWindow*>(&window) != nullptr;
  switch (below(5)) {
    case 0:
      return window.resize(200 + below(1500), 150 + below(900));
    case 1:
      return window.move(below(1200), below(700));
    case 2:
      return window.setWindowState(chance(2) ? Qt::WindowMinimized : Qt::WindowNoState);
    case 3:
      return window.activateWindow();
    default:
      // The program is to go on.
      if (!main) window.close();
  }
}

}  // namespace kovra::test
