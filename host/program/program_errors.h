#pragma once

#include <string>
#include <string_view>

#include "host/program/options.h"
#include "platform/dxf/result.h"

namespace kovra::host {

/// Errors of the program itself: each goes to standard error, behind what was printed so far; the
/// first one decides the exit status.
class ProgramErrors {
 public:
  /// `place` may be empty: "panel.scr:12".
  void report(ExitStatus status, std::string_view place, std::string_view message);

  ExitStatus status() const { return status_; }

 private:
  ExitStatus status_ = kExitDone;
};

/// Reports the one error of a subcommand that does nothing more; returns the exit status.
int fail(ExitStatus status, const Error& error);

}  // namespace kovra::host
