#include "host/libraries/terminal_library.h"
#include "host/terminal/terminal.h"

kovra::host::LineSource* kovraTerminalLines(bool savesAtEnd, kovra::launch::Completer complete) {
  return new kovra::host::Terminal(savesAtEnd, std::move(complete));
}
