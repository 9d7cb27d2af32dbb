// Labels and icons.
#include <QLabel>
#include <QMouseEvent>

#include "desktop/loop/texts.h"
#include "desktop/mirror/acts.h"
#include "desktop/mirror/control_mirror.h"
#include "desktop/mirror/pixmaps.h"
#include "platform/win/controls/static_control.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {
namespace {

class ClickedLabel : public QLabel {
 public:
  ClickedLabel(HWND window, QWidget* parent) : QLabel(parent), window_(window) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) return;
    addAct(window_, [window = window_] { return win::clickControl(window); });
  }

 private:
  HWND window_;
};

class LabelMirror : public ControlMirror {
 public:
  LabelMirror(HWND window, QLabel* label) : ControlMirror(window, label), label_(label) {
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  }

  void update(const win::ControlListing& listing) override {
    // The mouse goes through a label that isn't told of it, to what lies below.
    label_->setAttribute(Qt::WA_TransparentForMouseEvents, !win::hasStyle(window(), SS_NOTIFY));
    const auto* state = win::stateOf<win::StaticState>(window());
    if (state != nullptr && state->icon != nullptr) {
      label_->setPixmap(pixmapOf(state->icon));
      return;
    }
    // Without a control that it names a label shows its text as it is.
    const std::wstring& text = label_->buddy() != nullptr ? listing.text : listing.shown;
    if (label_->text() != toQt(text)) label_->setText(toQt(text));
    // Lines that the room has no height for would be cut in their middle.
    const bool lines = label_->height() >= 2 * label_->fontMetrics().height();
    label_->setWordWrap(lines);
  }

  win::ControlListing shown() const override {
    win::ControlListing listing;
    listing.text = fromQt(label_->text());
    return listing;
  }

 private:
  QLabel* label_;
};

}  // namespace

MadeControl makeLabel(const win::ControlListing& listing, QWidget* parent) {
  return std::make_unique<LabelMirror>(listing.window, new ClickedLabel(listing.window, parent));
}

}  // namespace kovra::desktop
