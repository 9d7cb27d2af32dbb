#include "host/libraries/terminal_library.h"
#include "host/terminal/terminal.h"

kovra::host::LineSource* kovraTerminalLines(bool savesAtEnd) {
  return new kovra::host::Terminal(savesAtEnd);
}
