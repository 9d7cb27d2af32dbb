#include <memory>

#include "module/frame/commands.h"
#include "module/frame/reporting.h"
#include "module/frame/resource_scope.h"
#include "module/text7/picks.h"
#include "module/text7/placement.h"
#include "module/text7/text7_dlg.h"
#include "module/text7/text7_ids.h"

namespace kovra {

using namespace text7;

namespace {

constexpr UINT kNothingPending = 2772;

void openDialog() {
  const ResourceScope resources;
  CWnd* parent = acedGetAcadFrame();
  auto dialog = std::make_unique<CText7Dlg>(parent);
  // The open dialog deletes itself when its window ends.
  if (dialog->Open(parent)) static_cast<void>(dialog.release());
}

void showArrowCursor() {
  SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

bool picksSpacing(int action) {
  return action >= kPickBoth && action <= kPickColWidth;
}

}  // namespace

void RunText7Command() {
  CText7Dlg* dialog = OpenText7Dlg();
  if (dialog == nullptr) {
    openDialog();
    return;
  }
  const int action = std::exchange(dialog->PendingAction, kNoAction);
  if (action == kNoAction) {
    ProjectMessage(kNothingPending);
    return;
  }
  if (action == kPlaceAction) {
    PrepareAndPlace();
  } else if (picksSpacing(action)) {
    PickSpacing(action);
  } else {
    PickProperty(action);
  }
  showArrowCursor();
}

}  // namespace kovra
