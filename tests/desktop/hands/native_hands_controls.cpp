// Clicks and keys on the controls of dialogs.
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>
#include <QTreeView>

#include "platform/win/controls/edit_control.h"
#include "platform/win/desktop/dialog_listing.h"
#include "platform/win/windows/focus.h"
#include "platform/win/windows/table_state.h"
#include "platform/win/windows/window_api.h"
#include "tests/desktop/hands/laid_answers.h"
#include "tests/desktop/hands/native_hands.h"
#include "tests/desktop/hands/native_input.h"

namespace kovra::test {
namespace {

/// At the active cell, or of the field that is open in it.
void openCellMenu(QTableView& view, const win::TableState& table) {
  if (auto* editor = view.findChild<QLineEdit*>(QStringLiteral("cell-editor")))
    return openNativeMenu(editor);
  const win::TableState::Cell active = table.activeCell();
  const QModelIndex cell = view.model()->index(active.row - 1, active.column - 1);
  view.scrollTo(cell);
  QCoreApplication::processEvents();
  openNativeMenu(view.viewport(), view.visualRect(cell).center());
}

/// The native field of a field or of a combo box; null for other widgets.
QWidget* fieldIn(QWidget* widget) {
  if (auto* box = qobject_cast<QComboBox*>(widget)) return box->lineEdit();
  const bool field = qobject_cast<QLineEdit*>(widget) || qobject_cast<QPlainTextEdit*>(widget);
  return field ? widget : nullptr;
}

bool hasFocus(HWND control) {
  return win::focusedControl() == control;
}

int indexOf(const std::vector<std::wstring>& items, std::wstring_view text) {
  const auto found = std::find(items.begin(), items.end(), text);
  return found != items.end() ? static_cast<int>(found - items.begin()) : -1;
}

void clickRow(QAbstractItemView& view, int row) {
  const QModelIndex index = view.model()->index(row, 0);
  view.scrollTo(index);
  QCoreApplication::processEvents();
  clickWidget(view.viewport(), view.visualRect(index).center());
}

/// The middle of a row's check box.
QPoint checkBoxPlace(const QTreeView& view, int row) {
  const QRect place = view.visualRect(view.model()->index(row, 0));
  const QStyle* style = view.style();
  const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view) + 1;
  const int width = style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &view);
  return {place.left() + margin + width / 2, place.center().y()};
}

/// On the box of what is checked, which takes no clicks far from its text; else in the middle.
QPoint buttonPlace(const QWidget& button) {
  const bool box =
      qobject_cast<const QCheckBox*>(&button) || qobject_cast<const QRadioButton*>(&button);
  if (!box) return button.rect().center();
  const int width = button.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &button);
  return {width / 2, button.rect().center().y()};
}

}  // namespace

win::InputResult NativeHands::clickControl(HWND control) {
  QWidget* widget = usableWidget(control);
  if (widget == nullptr) return refusal("click", UserHands::clickControl(control));
  if (qobject_cast<QAbstractButton*>(widget) == nullptr)
    return instead("click", UserHands::clickControl(control));
  clickWidget(widget, buttonPlace(*widget));
  return played("click");
}

win::InputResult NativeHands::pressArrow(HWND control, bool up) {
  QWidget* widget = usableWidget(control);
  auto* arrow = widget == nullptr ? nullptr
                                  : widget->findChild<QToolButton*>(up ? QStringLiteral("up")
                                                                       : QStringLiteral("down"));
  if (arrow == nullptr) return refusal("arrow", UserHands::pressArrow(control, up));
  clickWidget(arrow);
  return played("arrow");
}

/// Clicks an item of a list, of tabs, or of a combo box's list when it is down; false for others.
bool NativeHands::clickItem(QWidget* widget, int index) {
  if (auto* box = qobject_cast<QComboBox*>(widget)) {
    if (index >= box->count()) return false;
    clickRow(*box->view(), index);
  } else if (auto* tabs = qobject_cast<QTabWidget*>(widget)) {
    if (index >= tabs->count()) return false;
    clickWidget(tabs->tabBar(), tabs->tabBar()->tabRect(index).center());
  } else if (auto* view = qobject_cast<QTreeView*>(widget)) {
    if (index >= view->model()->rowCount()) return false;
    clickRow(*view, index);
  } else {
    return false;
  }
  return true;
}

win::InputResult NativeHands::chooseIndex(HWND control, int index) {
  QWidget* widget = usableWidget(control);
  if (widget == nullptr || index < 0)
    return refusal("choose", UserHands::chooseIndex(control, index));
  if (auto* box = qobject_cast<QComboBox*>(widget)) {
    const QRect room = box->rect();
    clickWidget(box, {room.right() - room.height() / 2, room.center().y()});
    seeThrough();
    showAll();
  }
  if (!clickItem(widget, index)) {
    if (auto* box = qobject_cast<QComboBox*>(widget)) box->hidePopup();
    return refusal("choose", UserHands::chooseIndex(control, index));
  }
  return played("choose");
}

win::InputResult NativeHands::chooseItem(HWND control, std::wstring_view text) {
  const QWidget* widget = usableWidget(control);
  const int index = indexOf(win::listControl(control).items, text);
  // Without regard to case, or an item that comes with the focus.
  if (widget != nullptr && index < 0)
    return instead("choose", UserHands::chooseItem(control, text));
  if (widget == nullptr) return refusal("choose", UserHands::chooseItem(control, text));
  return chooseIndex(control, index);
}

win::InputResult NativeHands::clickItemCheck(HWND control, int index) {
  auto* view = qobject_cast<QTreeView*>(usableWidget(control));
  if (view == nullptr || index < 0 || index >= view->model()->rowCount())
    return refusal("check", UserHands::clickItemCheck(control, index));
  view->scrollTo(view->model()->index(index, 0));
  clickWidget(view->viewport(), checkBoxPlace(*view, index));
  return played("check");
}

/// A click into the native field of a control; false when the control hasn't the focus then.
bool NativeHands::enterField(HWND control) {
  QWidget* widget = usableWidget(control);
  QWidget* field = widget != nullptr ? fieldIn(widget) : nullptr;
  if (field == nullptr) return false;
  clickWidget(field);
  seeThrough();
  showAll();
  return hasFocus(control);
}

/// All of the text in a field that has the focus.
void NativeHands::selectField() {
  pressNativeKey({'A', false, true});
  seeThrough();
  showAll();
}

win::InputResult NativeHands::placeCaret(HWND control, int from, int to) {
  const std::wstring text = win::listControl(control).text;
  const auto length = static_cast<int>(text.size());
  const bool plain = text.find(L'\r') == std::wstring::npos;
  if (!plain) return instead("caret", UserHands::placeCaret(control, from, to));
  if (std::min(from, to) < 0 || std::max(from, to) > length || !enterField(control))
    return refusal("caret", UserHands::placeCaret(control, from, to));
  pressNativeKey({VK_HOME, false, true});
  for (int i = 0; i < from; ++i) pressNativeKey({VK_RIGHT});
  for (int i = from; i < to; ++i) pressNativeKey({VK_RIGHT, true});
  for (int i = from; i > to; --i) pressNativeKey({VK_LEFT, true});
  return played("caret");
}

/// By the keyboard it would lead through the controls in between.
win::InputResult NativeHands::focusControl(HWND control) {
  return instead("focus", UserHands::focusControl(control));
}

win::InputResult NativeHands::typeOver(HWND control, std::wstring_view text) {
  if (win::hasStyle(control, ES_READONLY) || !enterField(control))
    return refusal("type", UserHands::typeOver(control, text));
  selectField();
  if (text.empty()) {
    if (!win::listControl(control).text.empty()) pressNativeKey({VK_DELETE});
    return played("type");
  }
  return typeWatched(text);
}

/// Each character where the focus is, as long as that is the same control.
win::InputResult NativeHands::typeWatched(std::wstring_view text) {
  const HWND control = win::focusedControl();
  refused_.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!hasFocus(control))
      return {"the focus left the field after " + std::to_string(i) + " characters"};
    const bool breakPair = text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n';
    if (!breakPair) typeNativeText(text.substr(i, 1));
    seeThrough();
    showAll();
  }
  return played("type");
}

win::InputResult NativeHands::typeCharacters(std::wstring_view text) {
  const HWND control = win::focusedControl();
  if (control == nullptr || usableWidget(control) == nullptr)
    return refusal("keys", UserHands::typeCharacters(text));
  return typeWatched(text);
}

win::InputResult NativeHands::pressKey(HWND control, win::Keystroke key) {
  const QWidget* widget = usableWidget(control);
  if (widget == nullptr) return refusal("key", UserHands::pressKey(control, key));
  if (!hasFocus(control)) {
    if (auto focused = UserHands::focusControl(control); !focused) return focused;
    if (!hasFocus(control)) return refusal("key", UserHands::pressKey(control, key));
    seeThrough();
    showAll();
    refused_.clear();
  }
  pressNativeKey(key);
  return played("key");
}

win::InputResult NativeHands::pressKeyInDialog(HWND dialog, win::Keystroke key) {
  QWidget* widget = usableWidget(dialog);
  if (widget == nullptr) return refusal("key", UserHands::pressKeyInDialog(dialog, key));
  if (!widget->isActiveWindow()) {
    giveFocus(widget);
    seeThrough();
  }
  pressNativeKey(key);
  return played("key");
}

win::InputResult NativeHands::chooseFromMenu(HWND control, std::wstring_view item) {
  QWidget* widget = usableWidget(control);
  if (widget == nullptr) return refusal("menu", UserHands::chooseFromMenu(control, item));
  laid_->menuItem = item;
  if (auto* view = qobject_cast<QTableView*>(widget)) {
    openCellMenu(*view, *win::stateOf<win::TableState>(control));
  } else {
    openNativeMenu(fieldIn(widget) != nullptr ? fieldIn(widget) : widget);
  }
  const win::InputResult result = played("menu");
  const bool chosen = !laid_->menuItem;
  laid_->menuItem.reset();
  return chosen || !result ? result : refusal("menu", UserHands::chooseFromMenu(control, item));
}

win::InputResult NativeHands::pressCloseBox(HWND dialog) {
  QWidget* widget = usableWidget(dialog);
  if (widget == nullptr || !win::hasStyle(dialog, WS_SYSMENU))
    return refusal("close", UserHands::pressCloseBox(dialog));
  widget->close();
  return played("close");
}

win::InputResult NativeHands::moveDialog(HWND dialog, int x, int y) {
  return instead("move", UserHands::moveDialog(dialog, x, y));
}

win::InputResult NativeHands::sizeDialog(HWND dialog, int width, int height) {
  return instead("size", UserHands::sizeDialog(dialog, width, height));
}

win::InputResult NativeHands::minimizeDialog(HWND dialog) {
  return instead("minimize", UserHands::minimizeDialog(dialog));
}

void NativeHands::layAnswer(int button) {
  laid_->answers.push_back(button);
}

void NativeHands::layFiles(std::vector<std::filesystem::path> files) {
  // A file choice gives back existing files alone, and their names without detours.
  std::error_code ignored;
  for (auto& file : files) {
    if (!std::filesystem::exists(file, ignored) || file != file.lexically_normal())
      return UserHands::layFiles(std::move(files));
  }
  laid_->files.push_back(std::move(files));
}

std::size_t NativeHands::answersLeft() const {
  return laid_->answers.size() + UserHands::answersLeft();
}

std::size_t NativeHands::filesLeft() const {
  return laid_->files.size() + UserHands::filesLeft();
}

}  // namespace kovra::test
