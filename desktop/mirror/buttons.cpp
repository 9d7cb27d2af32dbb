// Push buttons, check boxes, radios and group boxes.
#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionFrame>
#include <QStylePainter>

#include "desktop/loop/texts.h"
#include "desktop/mirror/acts.h"
#include "desktop/mirror/control_mirror.h"
#include "desktop/mirror/pixmaps.h"
#include "platform/win/controls/button_control.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {
namespace {

/// A button that a click doesn't check: the window in memory decides.
template <typename Button>
class Followed : public Button {
 public:
  using Button::Button;

 protected:
  void nextCheckState() override {}
  /// The whole control takes clicks, also beside its caption.
  bool hitButton(const QPoint& place) const override { return this->rect().contains(place); }
};

class ButtonMirror : public ControlMirror {
 public:
  ButtonMirror(HWND window, QAbstractButton* button)
      : ControlMirror(window, button), button_(button) {
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoExclusive(false);
    addPresses(button, window);
  }

  void update(const win::ControlListing& listing) override {
    button_->setText(toQt(listing.text));
    followIcon();
    // What the widget shows already isn't set: Qt paints anew, which ends in the next refresh.
    if (auto* push = qobject_cast<QPushButton*>(button_)) {
      const bool standard = win::buttonKind(window()) == BS_DEFPUSHBUTTON;
      if (push->isDefault() != standard) push->setDefault(standard);
      push->setChecked(listing.check.value_or(0) == BST_CHECKED);
    } else if (auto* box = qobject_cast<QCheckBox*>(button_)) {
      const Qt::CheckState check = listing.check == 2   ? Qt::PartiallyChecked
                                   : listing.check == 1 ? Qt::Checked
                                                        : Qt::Unchecked;
      if (box->checkState() != check) box->setCheckState(check);
    } else {
      button_->setChecked(listing.check == 1);
    }
  }

  win::ControlListing shown() const override {
    win::ControlListing listing;
    listing.text = fromQt(button_->text());
    if (const auto* box = qobject_cast<const QCheckBox*>(button_)) {
      constexpr int kChecks[] = {0, 2, 1};  // by Qt::CheckState
      listing.check = kChecks[box->checkState()];
    } else if (button_->isCheckable()) {
      listing.check = button_->isChecked() ? 1 : 0;
    }
    return listing;
  }

 private:
  void followIcon() {
    const auto* state = win::stateOf<win::ButtonState>(window());
    if (state == nullptr || state->icon == nullptr || state->icon == icon_) return;
    icon_ = state->icon;
    const QPixmap picture = pixmapOf(icon_);
    button_->setIcon(picture);
    button_->setIconSize(picture.size());
  }

  QAbstractButton* button_;
  HICON icon_ = nullptr;  ///< as it is shown
};

/// A frame with its caption in the upper edge: the room below is laid out for that.
class GroupFrame : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    constexpr int kIndent = 8, kGap = 3;
    QStylePainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.frameShape = QFrame::StyledPanel;
    frame.lineWidth = 1;
    frame.state |= QStyle::State_Sunken;
    frame.rect.setTop(fontMetrics().height() / 2);
    const QRect caption(kIndent, 0,
                        fontMetrics().size(Qt::TextShowMnemonic, title()).width() + 2 * kGap,
                        fontMetrics().height());
    if (!title().isEmpty()) painter.setClipRegion(QRegion(rect()).subtracted(caption));
    painter.drawControl(QStyle::CE_ShapedFrame, frame);
    painter.setClipping(false);
    style()->drawItemText(&painter, caption, Qt::AlignCenter | Qt::TextShowMnemonic, palette(),
                          isEnabled(), title(), QPalette::WindowText);
  }
};

class GroupMirror : public ControlMirror {
 public:
  GroupMirror(HWND window, QGroupBox* group) : ControlMirror(window, group), group_(group) {
    group->setAttribute(Qt::WA_TransparentForMouseEvents);
    group->setFocusPolicy(Qt::NoFocus);
    group->lower();
  }
  void update(const win::ControlListing& listing) override { group_->setTitle(toQt(listing.text)); }
  win::ControlListing shown() const override {
    win::ControlListing listing;
    listing.text = fromQt(group_->title());
    return listing;
  }

 private:
  QGroupBox* group_;
};

QAbstractButton* madeButton(const win::ControlListing& listing, QWidget* parent) {
  const bool pushLike = win::hasStyle(listing.window, BS_PUSHLIKE);
  if (listing.kind == "check" && !pushLike) {
    auto* box = new Followed<QCheckBox>(parent);
    box->setTristate(true);
    return box;
  }
  if (listing.kind == "radio" && !pushLike) return new Followed<QRadioButton>(parent);
  auto* button = new Followed<QPushButton>(parent);
  button->setAutoDefault(false);
  button->setCheckable(listing.check.has_value());
  return button;
}

}  // namespace

MadeControl makeButton(const win::ControlListing& listing, QWidget* parent) {
  return std::make_unique<ButtonMirror>(listing.window, madeButton(listing, parent));
}

MadeControl makeGroup(const win::ControlListing& listing, QWidget* parent) {
  return std::make_unique<GroupMirror>(listing.window, new GroupFrame(parent));
}

}  // namespace kovra::desktop
