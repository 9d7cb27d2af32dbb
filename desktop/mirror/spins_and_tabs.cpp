// Up-downs and tab controls.
#include <QResizeEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QWheelEvent>

#include "desktop/loop/texts.h"
#include "desktop/mirror/acts.h"
#include "desktop/mirror/control_mirror.h"
#include "platform/win/controls/tab_control.h"
#include "platform/win/controls/up_down.h"

namespace kovra::desktop {
namespace {

/// The two arrows of an up-down, beside or below each other.
class Arrows : public QWidget {
 public:
  Arrows(HWND window, QWidget* parent)
      : QWidget(parent), sideways_(win::hasStyle(window, UDS_HORZ)) {
    up_ = made(window, true);
    down_ = made(window, false);
  }

 protected:
  void resizeEvent(QResizeEvent* /*event*/) override {
    const int half = (sideways_ ? width() : height()) / 2;
    if (sideways_) {
      down_->setGeometry(0, 0, half, height());
      up_->setGeometry(half, 0, width() - half, height());
    } else {
      up_->setGeometry(0, 0, width(), half);
      down_->setGeometry(0, half, width(), height() - half);
    }
  }

 private:
  QToolButton* made(HWND window, bool up) {
    auto* button = new QToolButton(this);
    button->setObjectName(up ? QStringLiteral("up") : QStringLiteral("down"));
    button->setArrowType(sideways_ ? (up ? Qt::RightArrow : Qt::LeftArrow)
                                   : (up ? Qt::UpArrow : Qt::DownArrow));
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    QObject::connect(button, &QToolButton::clicked, [window, up] {
      addAct(window, [window, up] { return win::pressArrow(window, up); });
    });
    return button;
  }

  bool sideways_;
  QToolButton* up_ = nullptr;
  QToolButton* down_ = nullptr;
};

class ArrowsMirror : public ControlMirror {
 public:
  using ControlMirror::ControlMirror;
  void update(const win::ControlListing& /*listing*/) override {}
  win::ControlListing shown() const override { return {}; }
};

/// Tabs as high as the control in memory makes them, for the page begins below.
class TabBar : public QTabBar {
 public:
  TabBar(HWND window, int height) : window_(window), height_(height) {}

 protected:
  /// Turns to the next tab as others do, but in memory first.
  void wheelEvent(QWheelEvent* event) override {
    event->accept();
    if (event->angleDelta().isNull()) return;
    const bool back = event->angleDelta().y() + event->angleDelta().x() > 0;
    const int index = currentIndex() + (back ? -1 : 1);
    if (index < 0 || index >= count()) return;
    addAct(window_, [window = window_, index] { return win::chooseIndex(window, index); });
  }
  QSize tabSizeHint(int index) const override {
    return {QTabBar::tabSizeHint(index).width(), height_};
  }

 private:
  HWND window_;
  int height_;
};

class Tabs : public QTabWidget {
 public:
  Tabs(HWND window, QWidget* parent, int height) : QTabWidget(parent) {
    setTabBar(new TabBar(window, height));
    tabBar()->setFocusPolicy(Qt::TabFocus);
    setFocusPolicy(Qt::NoFocus);
    QObject::connect(tabBar(), &QTabBar::tabBarClicked, [window](int index) {
      if (index >= 0) addAct(window, [window, index] { return win::chooseIndex(window, index); });
    });
  }
};

class TabsMirror : public ControlMirror {
 public:
  TabsMirror(HWND window, Tabs* tabs) : ControlMirror(window, tabs), tabs_(tabs) { tabs->lower(); }

  QWidget* focusWidget() const override { return tabs_->tabBar(); }

  void update(const win::ControlListing& listing) override {
    const auto count = static_cast<int>(listing.items.size());
    while (tabs_->count() > count) {
      QWidget* page = tabs_->widget(count);
      tabs_->removeTab(count);
      delete page;
    }
    for (int i = 0; i < count; ++i) {
      const QString text = toQt(listing.items[static_cast<std::size_t>(i)]);
      if (i == tabs_->count()) tabs_->addTab(new QWidget, text);
      tabs_->setTabText(i, text);
    }
    tabs_->setCurrentIndex(listing.selected);
  }

  win::ControlListing shown() const override {
    win::ControlListing listing;
    for (int i = 0; i < tabs_->count(); ++i) listing.items.push_back(fromQt(tabs_->tabText(i)));
    listing.selected = tabs_->currentIndex();
    return listing;
  }

 private:
  Tabs* tabs_;
};

}  // namespace

MadeControl makeSpin(const win::ControlListing& listing, QWidget* parent) {
  return std::make_unique<ArrowsMirror>(listing.window, new Arrows(listing.window, parent));
}

MadeControl makeTabs(const win::ControlListing& listing, QWidget* parent, Scale scale) {
  const int height = scale.size({0, win::TabState::kTabHeight}).height();
  return std::make_unique<TabsMirror>(listing.window, new Tabs(listing.window, parent, height));
}

}  // namespace kovra::desktop
