#include "module/frame/commands.h"
#include "module/frame/reporting.h"

/// Commands that this build doesn't have yet. Each moves to its folder when it is built.
namespace kovra {
namespace {

constexpr UINT kCommandNotBuilt = 3900;

}  // namespace

void ChangePropertiesCommand() {
  ProjectMessage(kCommandNotBuilt);
}
void PropertyCopyCommand(int /*mode*/) {
  ProjectMessage(kCommandNotBuilt);
}
void EditTextPropertyCommand() {
  ProjectMessage(kCommandNotBuilt);
}

// No command of the user's: the host calls it at each start, so there is nothing to say.
void OptionEntry(int /*add*/) {}

}  // namespace kovra
