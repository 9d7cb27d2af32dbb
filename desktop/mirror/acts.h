// What native widgets of windows in memory lay into the input queue.
#pragma once
#include <functional>
#include <string>

#include "platform/win/desktop/user_input.h"

class QAbstractButton;
class QKeyEvent;
class QString;

namespace kovra::desktop {

/// Lays an act of the user ready. Afterwards the window counts as changed, so that its widget shows
/// again what the window holds, also when the act was refused.
void addAct(HWND window, std::function<win::InputResult()> act);

/// From now on presses of the native button are laid ready: the focus goes to the window, then it
/// is clicked.
void addPresses(QAbstractButton* button, HWND window);

/// Is told, in UTF-8, why an act was refused; an empty function: nobody is. Refusals say nothing to
/// the user, who sees that nothing has happened.
void onRefusedAct(std::function<void(const std::string&)> told);

/// A key as the windows in memory know it; the key is 0 for one that they don't know.
win::Keystroke keystrokeOf(const QKeyEvent& event);

/// Lays a pressed key ready for the control of the dialog that has the focus by then.
void addKeyPress(HWND dialog, const QKeyEvent& event);
/// Lays typed, composed or pasted text ready for the control with the focus. Without a dialog that
/// has the focus by then nothing happens.
void addTyping(HWND dialog, const QString& text);

}  // namespace kovra::desktop
