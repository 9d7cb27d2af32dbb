#include "desktop/mirror/field_line.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>

#include "desktop/loop/texts.h"
#include "desktop/mirror/acts.h"
#include "desktop/mirror/control_mirror.h"
#include "desktop/mirror/text_positions.h"
#include "platform/win/desktop/table_input.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {

void addMenuAct(HWND control) {
  addAct(control, [control] { return win::openMenu(control); });
}

FieldLine::FieldLine(HWND control, QWidget* parent) : QLineEdit(parent), control_(control) {
  setFocusPolicy(Qt::TabFocus);
  setAcceptDrops(false);
  setDragEnabled(false);
}

void FieldLine::follow(HWND field) {
  const auto* state = win::stateOf<win::EditState>(field);
  if (state == nullptr) return;
  if (making_.isEmpty()) return showText(field, *state);
  if (text() == toQt(state->edit.text())) return;
  // The text in the making goes on, at the caret in what stands there now.
  QInputMethodEvent none;
  QLineEdit::inputMethodEvent(&none);
  showText(field, *state);
  deselect();
  QInputMethodEvent inTheMaking(making_, {});
  QLineEdit::inputMethodEvent(&inTheMaking);
}

void FieldLine::showText(HWND field, const win::EditState& state) {
  const std::wstring& content = state.edit.text();
  if (text() != toQt(content)) setText(toQt(content));
  setReadOnly(win::hasStyle(field, ES_READONLY));
  setAttribute(Qt::WA_InputMethodEnabled, !win::findWindow(field)->inputMethodDetached);
  if (GetFocus() != field) {
    deselect();
    home(false);
    return;
  }
  const int from = nativePosition(content, state.edit.from());
  const int to = nativePosition(content, state.edit.to());
  const bool backwards = state.edit.caret() == state.edit.from();
  if (from == to) {
    deselect();
    setCursorPosition(from);
  } else if (selectionStart() != from || selectionEnd() != to) {
    setSelection(backwards ? to : from, backwards ? from - to : to - from);
  }
}

void FieldLine::addCaretAct() {
  const std::wstring content = fromQt(text());
  const bool selected = hasSelectedText();
  const int caret = cursorPosition();
  const int anchor = !selected                   ? caret
                     : selectionStart() == caret ? selectionEnd()
                                                 : selectionStart();
  addAct(control_,
         [control = control_, from = positionInMemory(content, anchor),
          to = positionInMemory(content, caret)] { return win::placeCaret(control, from, to); });
}

void FieldLine::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::MiddleButton) return;
  QLineEdit::mousePressEvent(event);
  if (event->button() == Qt::LeftButton) addCaretAct();
}

void FieldLine::mouseMoveEvent(QMouseEvent* event) {
  QLineEdit::mouseMoveEvent(event);
  if ((event->buttons() & Qt::LeftButton) != 0) addCaretAct();
}

void FieldLine::mouseReleaseEvent(QMouseEvent* event) {
  const QClipboard* clipboard = QGuiApplication::clipboard();
  if (event->button() != Qt::MiddleButton) return QLineEdit::mouseReleaseEvent(event);
  if (!clipboard->supportsSelection()) return;
  // The desktop's way to paste what is selected somewhere.
  setCursorPosition(cursorPositionAt(event->pos()));
  addCaretAct();
  addTyping(dialogOf(control_), clipboard->text(QClipboard::Selection));
}

void FieldLine::mouseDoubleClickEvent(QMouseEvent* event) {
  QLineEdit::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) addCaretAct();
}

void FieldLine::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  addMenuAct(control_);
}

void FieldLine::inputMethodEvent(QInputMethodEvent* event) {
  if (!event->commitString().isEmpty()) addTyping(dialogOf(control_), event->commitString());
  making_ = event->preeditString();
  // What is selected goes when the text is committed, in memory: natively it would go at once.
  if (!making_.isEmpty()) deselect();
  QInputMethodEvent inTheMaking(making_, event->attributes());
  QLineEdit::inputMethodEvent(&inTheMaking);
  if (making_.isEmpty()) addAct(control_, [] { return win::InputResult{}; });
}

}  // namespace kovra::desktop
