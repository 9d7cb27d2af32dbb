#pragma once

#include <vector>

#include "platform/arx/editor/host/dialog_bases.h"
#include "platform/mfc/controls.h"

class KovraOptionPage;

namespace kovra::companions {

/// The product's option dialog: a list of the pages that libraries have made known, and the window
/// of one of them. A page is made when it is first shown. What a page holds is stored by OK and
/// Apply, if it says that it has changed; Reset makes the page on show anew from what is stored.
class OptionDialog : public CAcUiDialog {
 public:
  OptionDialog();

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;

  DECLARE_MESSAGE_MAP()
  void OnApply();
  void OnReset();
  void OnPageRow(NMHDR* notification, LRESULT* result);
  LRESULT OnPageModified(WPARAM, LPARAM);
  void OnSize(UINT type, int width, int height);
  void OnGetMinMaxInfo(MINMAXINFO* limits);
  void OnDestroy();

 private:
  void fillList();
  void selectRow(int row);
  /// Shows a page in place of the present one; false, with that one left on show, when the present
  /// one doesn't let the user go or the other one can't be made.
  bool goTo(KovraOptionPage* page);
  /// False, with a message, when the page can't be made.
  bool makePage(KovraOptionPage* page);
  /// How the page's controls follow its size, counted from its present one.
  void startSizing(KovraOptionPage* page);
  /// Puts the page on show into the dialog's room for it.
  void placePage();
  /// Stores what has changed; false when a page couldn't.
  bool apply();
  void updateApply();

  std::vector<KovraOptionPage*> pages_;  // in the order of the list
  KovraOptionPage* shown_ = nullptr;
  CListCtrl list_;
  arx::DialogLayout sizing_;  // of the page on show
  CSize least_;               // the size at the start; 0 before
};

}  // namespace kovra::companions
