// The documentation in a window.
#pragma once

class QWidget;

namespace kovra::desktop {

/// Shows the pages of docs/, beginning with the one on this window. Links lead on; Alt+Left back.
void showHelp(QWidget* parent);
void showAbout(QWidget* parent);

}  // namespace kovra::desktop
