#pragma once

#include <functional>

namespace kovra::arx {

/// Where command names are awaited and commands begin. Runs until there is no input left, `stop`
/// says so, or, inside another document's prompt, until that document is the current one again.
void runIdleHost(const std::function<bool()>& stop);

/// Whether a plain Enter repeats the last command.
void setEnterRepeats(bool repeats);

}  // namespace kovra::arx
