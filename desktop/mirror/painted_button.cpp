// Buttons that their program draws: natively by carrying out what it paints.
#include <QAbstractButton>
#include <QIcon>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <vector>

#include "desktop/loop/texts.h"
#include "desktop/mirror/acts.h"
#include "desktop/mirror/control_mirror.h"
#include "desktop/mirror/pixmaps.h"
#include "platform/win/controls/painting.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {
namespace {

class PaintedButton : public QAbstractButton {
 public:
  PaintedButton(HWND window, QWidget* parent) : QAbstractButton(parent), window_(window) {
    setAttribute(Qt::WA_Hover);
  }

  /// What the window paints, asked for while everything is at rest.
  void setSteps(std::vector<win::PaintStep> steps) {
    GetClientRect(window_, &room_);
    if (steps == steps_) return;
    steps_ = std::move(steps);
    update();
  }

 protected:
  void enterEvent(QEnterEvent* event) override {
    QAbstractButton::enterEvent(event);
    addAct(window_, [window = window_] { return win::moveOver(window); });
  }
  void leaveEvent(QEvent* event) override {
    QAbstractButton::leaveEvent(event);
    addAct(window_, [window = window_] { return win::moveOver(GetParent(window)); });
  }
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    for (const win::PaintStep& step : steps_) paint(painter, step);
  }

 private:
  /// Of the button, so that what fills the room in memory fills it too, however its size came to
  /// be rounded.
  Scale scale() const {
    if (win::widthOf(room_) == 0 || win::heightOf(room_) == 0) return {};
    return {static_cast<double>(width()) / win::widthOf(room_),
            static_cast<double>(height()) / win::heightOf(room_)};
  }
  void paint(QPainter& painter, const win::PaintStep& step);
  void paintFrame(QPainter& painter, const QRect& place, QStyle::State state);

  HWND window_;
  RECT room_{};  ///< in memory
  std::vector<win::PaintStep> steps_;
};

QStyle::State frameStateOf(const win::PaintStep& step) {
  const bool classic = step.kind == win::PaintStep::Kind::frame;
  if (classic) return (step.state & DFCS_PUSHED) != 0 ? QStyle::State_Sunken : QStyle::State_None;
  switch (step.state) {
    case PBS_PRESSED:
      return QStyle::State_Sunken;
    case PBS_HOT:
      return QStyle::State_MouseOver;
    case PBS_DEFAULTED:
      // The chosen one of several: styles show a default button by little or nothing.
      return QStyle::State_On;
    default:
      return QStyle::State_None;
  }
}

void PaintedButton::paintFrame(QPainter& painter, const QRect& place, QStyle::State state) {
  if (isDown()) state |= QStyle::State_Sunken;
  QStyleOptionButton option;
  option.initFrom(this);
  option.rect = place;
  option.state &= ~(QStyle::State_MouseOver | QStyle::State_HasFocus);
  option.state |= state;
  option.state.setFlag(QStyle::State_Raised, (state & QStyle::State_Sunken) == 0);
  style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
}

QPalette::ColorRole roleOf(int color) {
  switch (color) {
    case COLOR_WINDOW:
      return QPalette::Base;
    case COLOR_WINDOWTEXT:
      return QPalette::WindowText;
    case COLOR_HIGHLIGHT:
    case COLOR_HOTLIGHT:
      return QPalette::Highlight;
    case COLOR_BTNSHADOW:
      return QPalette::Dark;
    case COLOR_3DLIGHT:
      return QPalette::Midlight;
    default:
      return QPalette::Button;
  }
}

void PaintedButton::paint(QPainter& painter, const win::PaintStep& step) {
  const QRect place = scale().rect(step.place);
  switch (step.kind) {
    case win::PaintStep::Kind::themePart:
    case win::PaintStep::Kind::frame:
      return paintFrame(painter, place, frameStateOf(step));
    case win::PaintStep::Kind::icon: {
      const QPixmap picture = pixmapOf(step.icon);
      // Icons keep their own size, in the middle of the room that they are given.
      QRect room(QPoint(), picture.size());
      room.moveCenter(place.center());
      return QIcon(picture).paint(&painter, room, Qt::AlignCenter,
                                  isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }
    case win::PaintStep::Kind::text: {
      const auto across = (step.format & DT_CENTER) != 0 ? Qt::AlignHCenter : Qt::AlignLeft;
      const auto down = (step.format & DT_VCENTER) != 0  ? Qt::AlignVCenter
                        : (step.format & DT_BOTTOM) != 0 ? Qt::AlignBottom
                                                         : Qt::AlignTop;
      return style()->drawItemText(&painter, place,
                                   static_cast<int>(across | down) | Qt::TextShowMnemonic,
                                   palette(), isEnabled(), toQt(step.text), QPalette::ButtonText);
    }
    case win::PaintStep::Kind::fill:
      if (step.color >= 0) painter.fillRect(place, palette().color(roleOf(step.color)));
      return;
    case win::PaintStep::Kind::focus: {
      QStyleOptionFocusRect option;
      option.initFrom(this);
      option.rect = place;
      return style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
  }
}

class PaintedMirror : public ControlMirror {
 public:
  PaintedMirror(HWND window, PaintedButton* button)
      : ControlMirror(window, button), button_(button) {
    button->setFocusPolicy(Qt::TabFocus);
    addPresses(button, window);
  }
  void update(const win::ControlListing& listing) override {
    button_->setText(toQt(listing.text));
    button_->setSteps(win::paintWindow(window()));
  }
  win::ControlListing shown() const override {
    win::ControlListing listing;
    listing.text = fromQt(button_->text());
    return listing;
  }

 private:
  PaintedButton* button_;
};

}  // namespace

MadeControl makePaintedButton(const win::ControlListing& listing, QWidget* parent) {
  return std::make_unique<PaintedMirror>(listing.window, new PaintedButton(listing.window, parent));
}

}  // namespace kovra::desktop
