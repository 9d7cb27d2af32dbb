// Native events as a window system would send them, and what they have laid into the input queue.
#pragma once
#include <QPoint>
#include <QString>
#include <string>
#include <string_view>

#include "platform/win/desktop/user_input.h"

class QWidget;

namespace kovra::test {

/// A press and release in the middle of the widget or at a place in it. The events go to the window
/// of the program that lies there, so a widget under another isn't reached.
void clickWidget(QWidget* widget, QPoint place = {});
void doubleClickWidget(QWidget* widget, QPoint place = {});
void moveOverWidget(QWidget* widget, QPoint place);
void dragWidget(QWidget* widget, QPoint from, QPoint to);
/// The press of the right button that brings a menu up.
void openNativeMenu(QWidget* widget, QPoint place = {});

/// Whether keys go anywhere: a window of the program has the focus.
bool hasKeyboard();
/// A key where the keyboard's focus is: in the popup, else in the window that has it.
void pressNativeKey(const win::Keystroke& key);
/// Characters there: those on a keyboard as keys, others as an input method commits them; line
/// breaks and backspaces as the keys that they are.
void typeNativeText(std::wstring_view text);
/// Gives a widget the keyboard's focus, with its window in front.
void giveFocus(QWidget* widget);
/// Whether a user could press something there: shown, enabled, not behind a modal dialog.
bool isUsable(const QWidget* widget);

/// Sees through what native events have begun: events, and acts that they have laid ready, until
/// none is left. True when there was an act.
bool seeThrough();

}  // namespace kovra::test
