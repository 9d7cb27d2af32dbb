#pragma once

#include <set>
#include <string_view>

#include "host/lines/line_handlers.h"

namespace kovra::host {

/// What the program tells a person at the terminal by itself: a dialog that has opened, and what
/// there is to type. Scripts have none.
class TerminalGuide {
 public:
  /// Says how to get help, unless the run is quiet.
  explicit TerminalGuide(const LineContext& context);

  /// Shows the dialogs that have opened since the line before.
  void beforeLine();
  /// Carries out "help" and "?", with a name's beginning behind them or not, where a command's name
  /// is awaited and in modal dialogs. False for any other line, and where something else waits.
  bool takes(std::wstring_view line);

 private:
  void showDialog(HWND dialog, bool modal);

  const LineContext& context_;
  std::set<HWND> shown_;  ///< handles are never used twice
};

}  // namespace kovra::host
