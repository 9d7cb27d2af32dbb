// A native widget that shows one window in memory.
#pragma once
#include <QPointer>
#include <QWidget>
#include <memory>

#include "desktop/mirror/scale.h"
#include "platform/win/desktop/dialog_listing.h"

namespace kovra::desktop {

/// Owns its widget, unless the widget's parent has taken it along.
class ControlMirror {
 public:
  ControlMirror(HWND window, QWidget* widget) : window_(window), widget_(widget) {}
  virtual ~ControlMirror() { delete widget_.data(); }
  ControlMirror(const ControlMirror&) = delete;
  ControlMirror& operator=(const ControlMirror&) = delete;

  HWND window() const { return window_; }
  /// Null when it has gone with its parent.
  QWidget* widget() const { return widget_.data(); }
  /// The widget that is to have the native focus when the window has its own.
  virtual QWidget* focusWidget() const { return widget(); }

  /// Shows what the listing says: texts, items, checks. Place, visibility and the like are the same
  /// for all widgets and set elsewhere.
  virtual void update(const win::ControlListing& listing) = 0;
  /// What the widget shows now, in the fields that `update` has set; the others stay empty.
  virtual win::ControlListing shown() const = 0;

 private:
  HWND window_;
  QPointer<QWidget> widget_;
};

/// The dialog, in memory, whose keys the control's keys are.
HWND dialogOf(HWND control);

using MadeControl = std::unique_ptr<ControlMirror>;
MadeControl makeButton(const win::ControlListing& listing, QWidget* parent);
MadeControl makePaintedButton(const win::ControlListing& listing, QWidget* parent);
MadeControl makeGroup(const win::ControlListing& listing, QWidget* parent);
MadeControl makeLabel(const win::ControlListing& listing, QWidget* parent);
MadeControl makeField(const win::ControlListing& listing, QWidget* parent);
MadeControl makeTextField(const win::ControlListing& listing, QWidget* parent);
MadeControl makeCombo(const win::ControlListing& listing, QWidget* parent);
MadeControl makeList(const win::ControlListing& listing, QWidget* parent, Scale scale);
MadeControl makeSpin(const win::ControlListing& listing, QWidget* parent);
MadeControl makeTabs(const win::ControlListing& listing, QWidget* parent, Scale scale);
MadeControl makeGrid(const win::ControlListing& listing, QWidget* parent, Scale scale);
/// The one for its kind; null for a kind that nothing shows.
MadeControl makeControl(const win::ControlListing& listing, QWidget* parent, Scale scale);

}  // namespace kovra::desktop
