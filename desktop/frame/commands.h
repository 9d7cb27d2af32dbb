// The commands that the menus have, with their titles and icons.
#pragma once
#include <span>
#include <string_view>

#include "desktop/frame/icons.h"
#include "desktop/loop/worded.h"

namespace kovra::desktop {

struct Command {
  const wchar_t* name;
  Worded title;  ///< as in a menu, with its access key
  IconPaths icon{};
};

/// Those of the module, in the order of the Text menu.
std::span<const Command> textCommands();
/// Those of the editor in the other menus.
std::span<const Command> editorCommands();
/// One of either; null for other names.
const Command* findCommand(std::wstring_view name);
/// What users call a command or a variable: its entry's name without the access key, else the name
/// itself.
QString commandTitle(std::wstring_view name);

}  // namespace kovra::desktop
