// A whole run of the program.
#pragma once
#include <functional>

#include "launch/program_options.h"

namespace kovra::desktop {

class MainWindow;

/// Loads the module, shows the window with the drawings, and returns when the user has quit and
/// everything is closed and unloaded. `shown` is called when the window shows. Errors: a part of
/// the program is missing or can't be loaded, or something of the module is still alive at the end.
Result<void> runWindow(const launch::ProgramOptions& options,
                       const std::function<void(MainWindow&)>& shown = {});

}  // namespace kovra::desktop
