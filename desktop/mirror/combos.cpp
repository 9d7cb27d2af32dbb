// Combo boxes: a list that drops down, with a field or without.
#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include "desktop/loop/texts.h"
#include "desktop/mirror/acts.h"
#include "desktop/mirror/control_mirror.h"
#include "desktop/mirror/field_line.h"
#include "platform/win/controls/combo_control.h"

namespace kovra::desktop {
namespace {

class ComboBox : public QComboBox {
 public:
  ComboBox(HWND window, QWidget* parent) : QComboBox(parent), window_(window) {
    setFocusPolicy(Qt::TabFocus);
    setMaxVisibleItems(20);
  }

  void showPopup() override {
    // Items may be wider than the box.
    const int bar = view()->verticalScrollBar()->sizeHint().width();
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + bar);
    QComboBox::showPopup();
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    addAct(window_, [window = window_] { return win::focusControl(window); });
    QComboBox::mousePressEvent(event);
  }
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
  void contextMenuEvent(QContextMenuEvent* /*event*/) override { addMenuAct(window_); }

 private:
  HWND window_;
};

class ComboMirror : public ControlMirror {
 public:
  ComboMirror(HWND window, ComboBox* box) : ControlMirror(window, box), box_(box) {
    const auto* state = win::stateOf<win::ComboState>(window);
    box_->setInsertPolicy(QComboBox::NoInsert);
    if (state != nullptr && state->field != nullptr) makeLine();
    QObject::connect(box_, &QComboBox::activated, [window](int index) {
      addAct(window, [window, index] { return win::chooseIndex(window, index); });
    });
  }

  void update(const win::ControlListing& listing) override {
    const auto* state = win::stateOf<win::ComboState>(window());
    if (state == nullptr) return;
    if (items_ != listing.items) setItems(listing.items);
    if (box_->currentIndex() != listing.selected) box_->setCurrentIndex(listing.selected);
    if (line_ != nullptr) line_->follow(state->field);
  }

  win::ControlListing shown() const override {
    win::ControlListing listing;
    listing.text = fromQt(box_->currentText());
    listing.selected = box_->currentIndex();
    for (int i = 0; i < box_->count(); ++i) listing.items.push_back(fromQt(box_->itemText(i)));
    return listing;
  }

 private:
  void makeLine() {
    line_ = new FieldLine(window(), box_);
    line_->setFrame(false);
    box_->setLineEdit(line_);
    box_->setCompleter(nullptr);
    // It would choose the item that has the text, when the focus leaves it.
    QObject::disconnect(line_, &QLineEdit::editingFinished, box_, nullptr);
    QObject::disconnect(line_, &QLineEdit::returnPressed, box_, nullptr);
  }

  void setItems(const std::vector<std::wstring>& items) {
    items_ = items;
    const QSignalBlocker quiet(box_);
    box_->clear();
    for (const std::wstring& item : items) box_->addItem(toQt(item));
    box_->setCurrentIndex(-1);
  }

  ComboBox* box_;
  FieldLine* line_ = nullptr;
  std::vector<std::wstring> items_;
};

}  // namespace

MadeControl makeCombo(const win::ControlListing& listing, QWidget* parent) {
  return std::make_unique<ComboMirror>(listing.window, new ComboBox(listing.window, parent));
}

}  // namespace kovra::desktop
