#include "host/program/program_errors.h"

#include <iostream>

#include "platform/win/base/interaction.h"

namespace kovra::host {

void ProgramErrors::report(ExitStatus status, std::string_view place, std::string_view message) {
  win::interaction().freshLine();
  std::cout.flush();
  std::cerr << "kovra: " << place << (place.empty() ? "" : ": ") << message << '\n';
  if (status_ == kExitDone) status_ = status;
}

int fail(ExitStatus status, const Error& error) {
  ProgramErrors errors;
  errors.report(status, {}, error.message);
  return errors.status();
}

}  // namespace kovra::host
