// Getting out of prompts and dialogs before something that needs the idle host.
#pragma once
#include <functional>
#include <string>

namespace kovra::desktop {

/// Cancels what waits, the innermost first, one after another through the input queue, until the
/// idle host waits; then carries the act out. What can't be cancelled doesn't hold it up for ever:
/// the act then comes while that still waits. To be called from an act.
void unwindThen(std::function<void()> act);

/// Lays typing a command's name ready, with what waits cancelled first as the Esc key would.
void runCommand(const std::wstring& name);

}  // namespace kovra::desktop
