#include "desktop/mirror/window_mirror.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <map>
#include <set>
#include <utility>

#include "desktop/loop/texts.h"
#include "desktop/mirror/control_mirror.h"
#include "desktop/mirror/dialog_mirror.h"
#include "desktop/mirror/mirror_differences.h"
#include "desktop/mirror/native_answers.h"
#include "platform/win/dialogs/dialogs.h"
#include "platform/win/windows/observer.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {
namespace {

/// The control of a dialog, or the dialog, that a window is or is part of; null for other windows.
HWND shownWindow(HWND window) {
  while (window != nullptr && !win::isDialog(window) && !win::isDialog(GetParent(window)))
    window = GetParent(window);
  return window;
}

bool isTopLevel(HWND dialog) {
  return win::topLevelOf(dialog) == dialog;
}

}  // namespace

class WindowMirror::Widgets : public win::WindowObserver {
 public:
  explicit Widgets(QWidget* frame);
  ~Widgets() override { win::removeObserver(this); }
  Widgets(const Widgets&) = delete;
  Widgets& operator=(const Widgets&) = delete;

  void windowChanged(HWND window, win::Change change) override;
  void refresh();
  QWidget* widgetOf(HWND window) const;
  std::vector<std::string> differences() const;

 private:
  void dropDestroyed();
  void follow(HWND window);
  void makeDialog(HWND dialog);
  void makeChildren(HWND dialog, QWidget* widget, DialogWidget& outer);
  void makeChild(HWND control, QWidget* parent, DialogWidget& outer);
  void nameControls(HWND dialog);
  void followControl(HWND control, QWidget* widget);
  void followFocus();
  QWidget* boxOwner();
  DialogWidget* outerOf(HWND window) const;

  QWidget* frame_;
  std::set<HWND> changed_;
  std::vector<HWND> destroyed_;
  std::map<HWND, QPointer<DialogWidget>> dialogs_;
  std::map<HWND, QPointer<QWidget>> pages_;  ///< of dialogs that stand in others
  std::map<HWND, MadeControl> controls_;
  HWND focus_ = nullptr;
  bool focusKnown_ = false;  ///< the native focus has followed the focus in memory
  bool refreshing_ = false;
  NativeAnswers answers_;
};

WindowMirror::Widgets::Widgets(QWidget* frame)
    : frame_(frame), answers_([this] { return boxOwner(); }) {
  win::addObserver(this);
  for (const HWND window : win::topLevelWindows()) changed_.insert(window);
}

void WindowMirror::Widgets::windowChanged(HWND window, win::Change change) {
  if (change == win::Change::destroyed) {
    destroyed_.push_back(window);
    changed_.erase(window);
  } else if (window != nullptr) {
    changed_.insert(window);
  }
}

QWidget* WindowMirror::Widgets::widgetOf(HWND window) const {
  if (const auto control = controls_.find(window); control != controls_.end())
    return control->second->widget();
  if (const auto page = pages_.find(window); page != pages_.end()) return page->second;
  const auto dialog = dialogs_.find(window);
  return dialog != dialogs_.end() ? dialog->second : nullptr;
}

DialogWidget* WindowMirror::Widgets::outerOf(HWND window) const {
  const auto dialog = dialogs_.find(win::topLevelOf(window));
  return dialog != dialogs_.end() ? dialog->second.data() : nullptr;
}

void WindowMirror::Widgets::refresh() {
  if (std::exchange(refreshing_, true)) return;
  dropDestroyed();
  // The focus changes what the control that had it shows, and the one that has it now.
  if (const HWND focus = win::focusedControl(); focus != nullptr) changed_.insert(focus);
  std::set<HWND> shown;
  for (const HWND window : std::exchange(changed_, {})) shown.insert(shownWindow(window));
  for (const HWND window : shown)
    if (IsWindow(window) && win::isDialog(window)) follow(window);
  for (const HWND window : shown)
    if (IsWindow(window) && !win::isDialog(window)) follow(window);
  followFocus();
  answers_.followClipboard();
  refreshing_ = false;
}

void WindowMirror::Widgets::dropDestroyed() {
  for (const HWND window : std::exchange(destroyed_, {})) {
    controls_.erase(window);
    if (const auto page = pages_.find(window); page != pages_.end()) {
      delete page->second;
      pages_.erase(page);
    }
    if (const auto dialog = dialogs_.find(window); dialog != dialogs_.end()) {
      delete dialog->second;
      dialogs_.erase(dialog);
    }
  }
}

void WindowMirror::Widgets::follow(HWND window) {
  const bool dialog = win::isDialog(window);
  if (dialog && isTopLevel(window)) {
    if (!dialogs_.contains(window)) {
      if (IsWindowVisible(window)) makeDialog(window);
    } else if (auto* widget = dialogs_[window].data()) {
      widget->follow();
    }
    return;
  }
  DialogWidget* outer = outerOf(window);
  if (outer == nullptr) return;
  if (widgetOf(window) == nullptr) {
    if (QWidget* parent = widgetOf(GetParent(window))) makeChild(window, parent, *outer);
  }
  if (QWidget* widget = widgetOf(window)) followControl(window, widget);
}

void WindowMirror::Widgets::makeDialog(HWND dialog) {
  const win::Window* window = win::findWindow(dialog);
  QWidget* owner = widgetOf(window->owner);
  auto* widget = new DialogWidget(dialog, owner != nullptr ? owner->window() : frame_);
  dialogs_[dialog] = widget;
  makeChildren(dialog, widget, *widget);
  nameControls(dialog);
  for (const HWND control : win::dialogControls(dialog))
    if (QWidget* native = widgetOf(control)) followControl(control, native);
  widget->follow();
}

void WindowMirror::Widgets::makeChildren(HWND dialog, QWidget* widget, DialogWidget& outer) {
  for (const HWND child : win::childrenOf(dialog)) makeChild(child, widget, outer);
}

void WindowMirror::Widgets::makeChild(HWND child, QWidget* parent, DialogWidget& outer) {
  if (win::isDialog(child)) {
    auto* page = new QWidget(parent);
    page->setObjectName(QStringLiteral("template-%1").arg(win::templateOf(child)));
    pages_[child] = page;
    makeChildren(child, page, outer);
    followControl(child, page);
    return;
  }
  MadeControl control = makeControl(win::listControl(child), parent, outer.scale());
  if (control == nullptr) return;
  control->widget()->setObjectName(QStringLiteral("control-%1").arg(GetDlgCtrlID(child)));
  outer.takeKeysOf(control->widget());
  if (control->focusWidget() != control->widget()) outer.takeKeysOf(control->focusWidget());
  controls_[child] = std::move(control);
}

/// Labels name the control behind them: for access keys and for those who can't see the dialog.
void WindowMirror::Widgets::nameControls(HWND dialog) {
  QLabel* label = nullptr;
  win::ControlListing named;
  for (const HWND control : win::dialogControls(dialog)) {
    QWidget* widget = widgetOf(control);
    const win::ControlListing listing = win::listControl(control);
    if (listing.kind == "label") {
      label = dynamic_cast<QLabel*>(widget);
      named = listing;
      continue;
    }
    if (widget != nullptr && label != nullptr && listing.kind != "group") {
      if (!win::hasStyle(named.window, SS_NOPREFIX)) label->setBuddy(widget);
      widget->setAccessibleName(toQt(named.shown));
    }
    label = nullptr;
  }
}

void WindowMirror::Widgets::followControl(HWND control, QWidget* widget) {
  const DialogWidget* outer = outerOf(control);
  const win::Window* window = win::findWindow(control);
  if (outer == nullptr || window == nullptr) return;
  const QRect place = outer->scale().rect(window->place);
  if (widget->geometry() != place) widget->setGeometry(place);
  widget->setEnabled(IsWindowEnabled(control) != FALSE);
  widget->setToolTip(toQt(window->tip));
  widget->setVisible(win::hasStyle(control, WS_VISIBLE));
  if (const auto mirror = controls_.find(control); mirror != controls_.end())
    mirror->second->update(win::listControl(control));
}

/// The native focus goes where the focus in memory is. A window is made active only when the focus
/// in memory has moved: who turns to another program isn't called back.
void WindowMirror::Widgets::followFocus() {
  const HWND focus = win::focusedControl();
  const bool moved = focus != std::exchange(focus_, focus) || !std::exchange(focusKnown_, true);
  const auto mirror = controls_.find(focus);
  QWidget* target = mirror != controls_.end() ? mirror->second->focusWidget() : widgetOf(focus);
  if (target == nullptr) {
    const bool leaves =
        focus != nullptr && dynamic_cast<DialogWidget*>(QApplication::activeWindow()) != nullptr;
    if (moved && leaves) frame_->activateWindow();
    return;
  }
  if (moved && !target->window()->isActiveWindow()) target->window()->activateWindow();
  if (target->window()->focusWidget() != target) target->setFocus(Qt::OtherFocusReason);
}

QWidget* WindowMirror::Widgets::boxOwner() {
  refresh();
  // The desktop moves the focus for the box, so it has to be brought back afterwards.
  focusKnown_ = false;
  for (const HWND dialog : win::openDialogs())
    if (QWidget* widget = widgetOf(dialog); widget != nullptr && widget->isVisible()) return widget;
  return frame_;
}

std::vector<std::string> WindowMirror::Widgets::differences() const {
  std::vector<std::string> lines;
  for (const HWND dialog : win::topLevelWindows()) {
    if (!win::isDialog(dialog)) continue;
    const QWidget* widget = widgetOf(dialog);
    compareDialog(dialog, widget, lines);
    if (widget == nullptr || !IsWindowVisible(dialog)) continue;
    for (const HWND control : win::dialogControls(dialog)) {
      const auto mirror = controls_.find(control);
      const ControlMirror* found = mirror != controls_.end() ? mirror->second.get() : nullptr;
      compareControl(win::listControl(control), found, lines);
    }
  }
  return lines;
}

WindowMirror::WindowMirror(QWidget* frame) : widgets_(std::make_unique<Widgets>(frame)) {}
WindowMirror::~WindowMirror() = default;

QWidget* WindowMirror::widgetOf(HWND window) const {
  return widgets_->widgetOf(window);
}

void WindowMirror::refresh() {
  widgets_->refresh();
}

std::vector<std::string> WindowMirror::differences() const {
  return widgets_->differences();
}

}  // namespace kovra::desktop
