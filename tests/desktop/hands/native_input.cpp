#include "tests/desktop/hands/native_input.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QTest>
#include <QWidget>
#include <algorithm>
#include <array>

#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"
#include "platform/win/base/messages.h"

namespace kovra::test {
namespace {

struct KeyPair {
  int key;
  Qt::Key native;
};

constexpr std::array kKeys = {
    KeyPair{VK_BACK, Qt::Key_Backspace}, KeyPair{VK_TAB, Qt::Key_Tab},
    KeyPair{VK_RETURN, Qt::Key_Return},  KeyPair{VK_ESCAPE, Qt::Key_Escape},
    KeyPair{VK_SPACE, Qt::Key_Space},    KeyPair{VK_PRIOR, Qt::Key_PageUp},
    KeyPair{VK_NEXT, Qt::Key_PageDown},  KeyPair{VK_END, Qt::Key_End},
    KeyPair{VK_HOME, Qt::Key_Home},      KeyPair{VK_LEFT, Qt::Key_Left},
    KeyPair{VK_UP, Qt::Key_Up},          KeyPair{VK_RIGHT, Qt::Key_Right},
    KeyPair{VK_DOWN, Qt::Key_Down},      KeyPair{VK_INSERT, Qt::Key_Insert},
    KeyPair{VK_DELETE, Qt::Key_Delete}};

Qt::Key nativeKey(int key) {
  if (key >= VK_F1 && key <= VK_F12) return static_cast<Qt::Key>(Qt::Key_F1 + key - VK_F1);
  const auto* found = std::find_if(kKeys.begin(), kKeys.end(),
                                   [key](const KeyPair& pair) { return pair.key == key; });
  return found != kKeys.end() ? found->native : static_cast<Qt::Key>(key);
}

/// What a keyboard gives along with the key.
QString textOf(const win::Keystroke& key) {
  if (key.control || key.alt) return {};
  const bool letter = key.key >= 'A' && key.key <= 'Z';
  const bool digit = key.key >= '0' && key.key <= '9';
  if (letter || digit || key.key == VK_SPACE)
    return QChar(letter && !key.shift ? key.key + 0x20 : key.key);
  if (key.key == VK_RETURN) return QStringLiteral("\r");
  if (key.key == VK_TAB) return QStringLiteral("\t");
  if (key.key == VK_BACK) return QStringLiteral("\b");
  if (key.key == VK_ESCAPE) return QStringLiteral("\x1b");
  return {};
}

void commitText(const QString& text) {
  QWidget* widget = QApplication::focusWidget();
  if (widget == nullptr) return;
  QInputMethodEvent event;
  event.setCommitString(text);
  QApplication::sendEvent(widget, &event);
}

/// The window system's part of a click: the window comes to the front.
void activate(QWidget* widget) {
  if (widget->isActiveWindow() || QApplication::activePopupWidget() != nullptr) return;
  widget->window()->activateWindow();
  QCoreApplication::processEvents();
}

QPoint placeIn(const QWidget* widget, QPoint place) {
  return place.isNull() ? widget->rect().center() : place;
}

}  // namespace

void clickWidget(QWidget* widget, QPoint place) {
  activate(widget);
  QTest::mouseClick(widget, Qt::LeftButton, {}, placeIn(widget, place));
}

void doubleClickWidget(QWidget* widget, QPoint place) {
  activate(widget);
  QTest::mouseDClick(widget, Qt::LeftButton, {}, placeIn(widget, place));
}

void moveOverWidget(QWidget* widget, QPoint place) {
  QTest::mouseMove(widget, place);
}

void dragWidget(QWidget* widget, QPoint from, QPoint to) {
  activate(widget);
  QTest::mousePress(widget, Qt::LeftButton, {}, from);
  QTest::mouseMove(widget, (from + to) / 2);
  QTest::mouseMove(widget, to);
  QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
}

void openNativeMenu(QWidget* widget, QPoint place) {
  activate(widget);
  const QPoint pressed = placeIn(widget, place);
  QTest::mouseClick(widget, Qt::RightButton, {}, pressed);
  // The window system's part: the press of the right button asks for a menu.
  QContextMenuEvent event(QContextMenuEvent::Mouse, pressed, widget->mapToGlobal(pressed));
  QApplication::sendEvent(widget, &event);
}

bool hasKeyboard() {
  return QGuiApplication::focusWindow() != nullptr || QApplication::focusWidget() != nullptr;
}

void pressNativeKey(const win::Keystroke& key) {
  Qt::KeyboardModifiers held;
  held.setFlag(Qt::ShiftModifier, key.shift);
  held.setFlag(Qt::ControlModifier, key.control);
  held.setFlag(Qt::AltModifier, key.alt);
  if (!hasKeyboard()) return;
  QTest::sendKeyEvent(QTest::Click, static_cast<QWidget*>(nullptr), nativeKey(key.key), textOf(key),
                      held);
  QCoreApplication::processEvents();
}

void typeNativeText(std::wstring_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar_t c = text[i];
    const bool breakPair = c == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n';
    if (breakPair) continue;
    if (c == L'\r' || c == L'\n') {
      pressNativeKey({VK_RETURN});
    } else if (c == L'\b') {
      pressNativeKey({VK_BACK});
    } else if (c >= L' ' && c < 0x7F && hasKeyboard()) {
      QTest::keyClick(static_cast<QWidget*>(nullptr), static_cast<char>(c));
    } else {
      commitText(desktop::toQt(text.substr(i, 1)));
    }
    seeThrough();
  }
}

void giveFocus(QWidget* widget) {
  if (!widget->isActiveWindow()) widget->activateWindow();
  QCoreApplication::processEvents();
  if (!widget->hasFocus()) widget->setFocus(Qt::TabFocusReason);
  QCoreApplication::processEvents();
}

bool isUsable(const QWidget* widget) {
  if (widget == nullptr || !widget->isVisible() || !widget->isEnabled()) return false;
  const QWidget* modal = QApplication::activeModalWidget();
  return modal == nullptr || modal == widget->window() || modal->isAncestorOf(widget);
}

bool seeThrough() {
  bool any = false;
  desktop::InputQueue& queue = desktop::inputQueue();
  do {
    while (queue.pending() > 0 && queue.dispatchOne()) any = true;
    QCoreApplication::processEvents();
  } while (queue.pending() > 0 && !queue.ended());
  return any;
}

}  // namespace kovra::test
