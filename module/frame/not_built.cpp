#include "module/frame/commands.h"

/// Commands that this build doesn't have yet. Each moves to its folder when it is built.
namespace kovra {

// No command of the user's: the host calls it at each start, so there is nothing to say.
void OptionEntry(int /*add*/) {}

}  // namespace kovra
