#include "desktop/mirror/acts.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/loop/input_queue.h"
#include "desktop/loop/texts.h"
#include "platform/win/windows/window.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {
namespace {

struct KeyPair {
  int native;
  int key;
};

constexpr std::array kKeys = {
    KeyPair{Qt::Key_Backspace, VK_BACK}, KeyPair{Qt::Key_Tab, VK_TAB},
    KeyPair{Qt::Key_Backtab, VK_TAB},    KeyPair{Qt::Key_Return, VK_RETURN},
    KeyPair{Qt::Key_Enter, VK_RETURN},   KeyPair{Qt::Key_Escape, VK_ESCAPE},
    KeyPair{Qt::Key_Space, VK_SPACE},    KeyPair{Qt::Key_PageUp, VK_PRIOR},
    KeyPair{Qt::Key_PageDown, VK_NEXT},  KeyPair{Qt::Key_End, VK_END},
    KeyPair{Qt::Key_Home, VK_HOME},      KeyPair{Qt::Key_Left, VK_LEFT},
    KeyPair{Qt::Key_Up, VK_UP},          KeyPair{Qt::Key_Right, VK_RIGHT},
    KeyPair{Qt::Key_Down, VK_DOWN},      KeyPair{Qt::Key_Insert, VK_INSERT},
    KeyPair{Qt::Key_Delete, VK_DELETE}};

int keyOf(int native) {
  if (native >= Qt::Key_F1 && native <= Qt::Key_F12) return VK_F1 + native - Qt::Key_F1;
  const bool named =
      (native >= Qt::Key_A && native <= Qt::Key_Z) || (native >= Qt::Key_0 && native <= Qt::Key_9);
  if (named) return native;
  const auto found = std::find_if(kKeys.begin(), kKeys.end(),
                                  [native](const KeyPair& pair) { return pair.native == native; });
  return found != kKeys.end() ? found->key : 0;
}

/// Whether a space is a character for the control with the focus, and not the key that presses it.
bool takesSpaces() {
  const win::Window* control = win::findWindow(win::focusedControl());
  if (control == nullptr || control->state == nullptr) return false;
  const std::string_view kind = control->state->kind(*control);
  return kind == "edit" || kind == "combo" || kind == "grid";
}

bool isText(const QKeyEvent& event) {
  const Qt::KeyboardModifiers held = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  // Both together are the key for the third level of some keyboards.
  const bool third = held == (Qt::ControlModifier | Qt::AltModifier);
  return !event.text().isEmpty() && event.text().front().isPrint() && (!held || third);
}

win::InputResult type(HWND dialog, const std::wstring& text) {
  if (!win::isInside(dialog, GetFocus()))
    if (auto focused = win::focusControl(dialog); !focused) return focused;
  return win::typeCharacters(text);
}

std::function<void(const std::string&)>& refusalListener() {
  static std::function<void(const std::string&)> listener;
  return listener;
}

}  // namespace

void onRefusedAct(std::function<void(const std::string&)> told) {
  refusalListener() = std::move(told);
}

void addAct(HWND window, std::function<win::InputResult()> act) {
  inputQueue().add([window, act = std::move(act)] {
    // What an act before it hid is left alone.
    if (!IsWindowVisible(window)) return;
    const win::InputResult result = act();
    if (!result && refusalListener()) refusalListener()(result.error);
    InvalidateRect(window, nullptr, FALSE);
  });
}

win::Keystroke keystrokeOf(const QKeyEvent& event) {
  win::Keystroke stroke{keyOf(event.key())};
  stroke.shift = (event.modifiers() & Qt::ShiftModifier) != 0;
  stroke.control = (event.modifiers() & Qt::ControlModifier) != 0;
  stroke.alt = (event.modifiers() & Qt::AltModifier) != 0;
  return stroke;
}

void addKeyPress(HWND dialog, const QKeyEvent& event) {
  const win::Keystroke stroke = keystrokeOf(event);
  if (isText(event) && event.key() != Qt::Key_Space) return addTyping(dialog, event.text());
  if (stroke.key == 0) return;
  addAct(dialog, [dialog, stroke, plain = isText(event)] {
    if (plain && takesSpaces()) return type(dialog, L" ");
    return win::pressKeyInDialog(dialog, stroke);
  });
}

void addPresses(QAbstractButton* button, HWND window) {
  QObject::connect(button, &QAbstractButton::pressed,
                   [window] { addAct(window, [window] { return win::focusControl(window); }); });
  QObject::connect(button, &QAbstractButton::clicked,
                   [window] { addAct(window, [window] { return win::clickControl(window); }); });
}

void addTyping(HWND dialog, const QString& text) {
  addAct(dialog, [dialog, typed = fromQt(text)] { return type(dialog, typed); });
}

}  // namespace kovra::desktop
