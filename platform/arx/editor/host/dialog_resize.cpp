#include "platform/arx/editor/host/dialog_resize.h"

#include <algorithm>

namespace kovra::arx {
namespace {

CRect placeIn(const CWnd& dialog, const CWnd& item) {
  CRect place;
  item.GetWindowRect(&place);
  dialog.ScreenToClient(&place);
  return place;
}

LONG shareOf(LONG change, int percent) {
  return change * percent / 100;
}

CRect followed(const CRect& place, const DialogItemResize& row, CSize change) {
  CRect moved(place.left + shareOf(change.cx, row.left), place.top + shareOf(change.cy, row.top),
              place.right + shareOf(change.cx, row.right),
              place.bottom + shareOf(change.cy, row.bottom));
  moved.right = std::max(moved.left, moved.right);
  moved.bottom = std::max(moved.top, moved.bottom);
  return moved;
}

}  // namespace

void DialogLayout::start(const CWnd& dialog, const DialogItemResize* rows, int count) {
  CRect client;
  dialog.GetClientRect(&client);
  size_ = client.Size();
  items_.clear();
  for (const DialogItemResize* row = rows; row != rows + count; ++row) {
    if (const CWnd* item = dialog.GetDlgItem(row->id))
      items_.push_back({*row, placeIn(dialog, *item)});
  }
}

void DialogLayout::apply(const CWnd& dialog, int width, int height) const {
  const CSize change(width - size_.cx, height - size_.cy);
  for (const Item& item : items_) {
    CWnd* control = dialog.GetDlgItem(item.row.id);
    if (control == nullptr) continue;
    const CRect place = followed(item.place, item.row, change);
    if (place != placeIn(dialog, *control)) control->MoveWindow(place);
  }
}

}  // namespace kovra::arx
