#include "desktop/mirror/control_mirror.h"

#include "platform/win/controls/button_control.h"
#include "platform/win/windows/window_api.h"

namespace kovra::desktop {

HWND dialogOf(HWND control) {
  return win::topLevelOf(control);
}

MadeControl makeControl(const win::ControlListing& listing, QWidget* parent, Scale scale) {
  const std::string& kind = listing.kind;
  if (kind == "group") return makeGroup(listing, parent);
  if (kind == "label" || kind == "icon") return makeLabel(listing, parent);
  if (kind == "button" && win::buttonKind(listing.window) == BS_OWNERDRAW)
    return makePaintedButton(listing, parent);
  if (kind == "button" || kind == "check" || kind == "radio") return makeButton(listing, parent);
  if (kind == "edit")
    return win::hasStyle(listing.window, ES_MULTILINE) ? makeTextField(listing, parent)
                                                       : makeField(listing, parent);
  if (kind == "combo") return makeCombo(listing, parent);
  if (kind == "list") return makeList(listing, parent, scale);
  if (kind == "spin") return makeSpin(listing, parent);
  if (kind == "tabs") return makeTabs(listing, parent, scale);
  if (kind == "grid") return makeGrid(listing, parent, scale);
  return nullptr;
}

}  // namespace kovra::desktop
