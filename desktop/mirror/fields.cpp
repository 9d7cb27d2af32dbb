// Fields of one line and of several.
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QWheelEvent>

#include "desktop/loop/texts.h"
#include "desktop/mirror/acts.h"
#include "desktop/mirror/control_mirror.h"
#include "desktop/mirror/field_line.h"
#include "desktop/mirror/text_positions.h"
#include "platform/win/controls/up_down_control.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {
namespace {

/// Whether the arrows of an up-down count the field's number.
bool hasArrows(HWND field) {
  for (const HWND sibling : win::siblingsOf(field)) {
    const auto* arrows = win::stateOf<win::UpDownState>(sibling);
    if (arrows != nullptr && arrows->buddy == field) return true;
  }
  return false;
}

class PlainField : public FieldLine {
 public:
  PlainField(HWND window, QWidget* parent) : FieldLine(window, parent), window_(window) {}

 protected:
  void wheelEvent(QWheelEvent* event) override {
    const bool up = event->angleDelta().y() > 0;
    event->accept();
    addAct(window_, [window = window_, up] {
      if (GetFocus() != window || !hasArrows(window)) return win::InputResult{};
      return win::pressKey(window, {up ? VK_UP : VK_DOWN});
    });
  }

 private:
  HWND window_;
};

class FieldMirror : public ControlMirror {
 public:
  FieldMirror(HWND window, FieldLine* line) : ControlMirror(window, line), line_(line) {}
  void update(const win::ControlListing& /*listing*/) override { line_->follow(window()); }
  win::ControlListing shown() const override {
    win::ControlListing listing;
    listing.text = fromQt(line_->text());
    return listing;
  }

 private:
  FieldLine* line_;
};

/// A field of several lines; as FieldLine says.
class TextField : public QPlainTextEdit {
 public:
  TextField(HWND window, QWidget* parent) : QPlainTextEdit(parent), window_(window) {
    setFocusPolicy(Qt::TabFocus);
    setUndoRedoEnabled(false);
    setAcceptDrops(false);
    const bool wraps = !win::hasStyle(window, ES_AUTOHSCROLL);
    setLineWrapMode(wraps ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    if (!win::hasStyle(window, WS_HSCROLL)) setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }

  void follow();

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    QPlainTextEdit::mousePressEvent(event);
    if (event->button() == Qt::LeftButton) addCaretAct();
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    QPlainTextEdit::mouseMoveEvent(event);
    if ((event->buttons() & Qt::LeftButton) != 0) addCaretAct();
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    QPlainTextEdit::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton) addCaretAct();
  }
  void contextMenuEvent(QContextMenuEvent* /*event*/) override { addMenuAct(window_); }
  void insertFromMimeData(const QMimeData* source) override {
    addCaretAct();
    addTyping(dialogOf(window_), source->text());
  }
  void inputMethodEvent(QInputMethodEvent* event) override {
    if (!event->commitString().isEmpty()) addTyping(dialogOf(window_), event->commitString());
    making_ = event->preeditString();
    // What is selected goes when the text is committed, in memory: natively it would go at once.
    if (!making_.isEmpty()) deselectAll();
    QInputMethodEvent inTheMaking(making_, event->attributes());
    QPlainTextEdit::inputMethodEvent(&inTheMaking);
    if (making_.isEmpty()) addAct(window_, [] { return win::InputResult{}; });
  }

 private:
  void addCaretAct();
  void deselectAll();
  void showText(const win::EditState& state);

  HWND window_;
  std::wstring content_;  ///< as it was followed last
  QString making_;        ///< the input method's text in the making
};

void TextField::follow() {
  const auto* state = win::stateOf<win::EditState>(window_);
  if (state == nullptr) return;
  if (making_.isEmpty()) return showText(*state);
  if (toPlainText() == nativeText(state->edit.text())) return;
  QInputMethodEvent none;
  QPlainTextEdit::inputMethodEvent(&none);
  showText(*state);
  deselectAll();
  QInputMethodEvent inTheMaking(making_, {});
  QPlainTextEdit::inputMethodEvent(&inTheMaking);
}

void TextField::showText(const win::EditState& state) {
  content_ = state.edit.text();
  if (toPlainText() != nativeText(content_)) setPlainText(nativeText(content_));
  setReadOnly(win::hasStyle(window_, ES_READONLY));
  if (GetFocus() != window_) return;
  const bool backwards = state.edit.caret() == state.edit.from();
  const int from = nativePosition(content_, state.edit.from());
  const int to = nativePosition(content_, state.edit.to());
  QTextCursor cursor = textCursor();
  cursor.setPosition(backwards ? to : from);
  cursor.setPosition(backwards ? from : to, QTextCursor::KeepAnchor);
  if (cursor.anchor() != textCursor().anchor() || cursor.position() != textCursor().position())
    setTextCursor(cursor);
}

void TextField::deselectAll() {
  QTextCursor caret = textCursor();
  caret.clearSelection();
  setTextCursor(caret);
}

void TextField::addCaretAct() {
  addAct(window_, [window = window_, from = positionInMemory(content_, textCursor().anchor()),
                   to = positionInMemory(content_, textCursor().position())] {
    return win::placeCaret(window, from, to);
  });
}

class TextFieldMirror : public ControlMirror {
 public:
  TextFieldMirror(HWND window, TextField* field) : ControlMirror(window, field), field_(field) {}
  void update(const win::ControlListing& /*listing*/) override { field_->follow(); }
  win::ControlListing shown() const override {
    win::ControlListing listing;
    QString text = field_->toPlainText();
    listing.text = fromQt(text.replace(QLatin1Char('\n'), QStringLiteral("\r\n")));
    return listing;
  }

 private:
  TextField* field_;
};

}  // namespace

MadeControl makeField(const win::ControlListing& listing, QWidget* parent) {
  return std::make_unique<FieldMirror>(listing.window, new PlainField(listing.window, parent));
}

MadeControl makeTextField(const win::ControlListing& listing, QWidget* parent) {
  return std::make_unique<TextFieldMirror>(listing.window, new TextField(listing.window, parent));
}

}  // namespace kovra::desktop
