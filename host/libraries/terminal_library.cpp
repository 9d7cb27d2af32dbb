#include "host/libraries/terminal_library.h"

#include <unistd.h>

#include "launch/program_library.h"

namespace kovra::host {

bool terminalIsThere() {
  return isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
}

Result<std::unique_ptr<LineSource>> openTerminal(bool savesAtEnd, launch::Completer complete) {
  const auto lines = launch::loadProgramExport<decltype(kovraTerminalLines)>(
      "kovra_terminal.so", "kovraTerminalLines", "no lines can be typed");
  if (!lines) return lines.error();
  return std::unique_ptr<LineSource>(lines.value()(savesAtEnd, std::move(complete)));
}

}  // namespace kovra::host
