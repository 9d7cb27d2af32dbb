#pragma once

#include <vector>

#include "platform/mfc/wnd.h"

/// How a control follows the size of its dialog: by what share, in percent, of the change of the
/// client area's width its left and right edge move, and of the change of its height its top and
/// bottom edge. {id, 0, 0, 100, 0} stretches with the width, {id, 100, 0, 100, 0} moves with the
/// right edge.
struct DialogItemResize {
  int id;
  int left;
  int top;
  int right;
  int bottom;
};

namespace kovra::arx {

/// Keeps the controls of one dialog in the places that a table gives them. Places follow from the
/// size and the places at the start alone, so sizing back and forth leaves no trace.
class DialogLayout {
 public:
  /// Takes the present client size and the present places of the controls as the start. Rows whose
  /// control the dialog lacks are skipped.
  void start(const CWnd& dialog, const DialogItemResize* rows, int count);

  /// Places the controls for a client area of `width` by `height` pixels.
  void apply(const CWnd& dialog, int width, int height) const;

 private:
  struct Item {
    DialogItemResize row;
    CRect place;  // in the client area
  };
  CSize size_;
  std::vector<Item> items_;
};

}  // namespace kovra::arx
