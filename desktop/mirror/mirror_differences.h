// Whether native widgets show what the windows in memory hold.
#pragma once
#include <string>
#include <vector>

#include "desktop/mirror/control_mirror.h"

namespace kovra::desktop {

/// Adds a line for each difference between a dialog and its widget: visibility, title.
void compareDialog(HWND dialog, const QWidget* widget, std::vector<std::string>& lines);
/// The same for a control: visibility, whether it is enabled, text, check, items, selection, cells,
/// focus. `mirror` is null for a control without a widget.
void compareControl(const win::ControlListing& listing, const ControlMirror* mirror,
                    std::vector<std::string>& lines);

}  // namespace kovra::desktop
