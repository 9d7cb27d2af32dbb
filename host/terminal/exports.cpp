#include "host/terminal/terminal.h"
#include "host/terminal_library.h"

kovra::host::LineSource* kovraTerminalLines(bool savesAtEnd) {
  return new kovra::host::Terminal(savesAtEnd);
}
