#include "host/subcommands/diff_command.h"

#include <iostream>

#include "host/compare/change_writer.h"
#include "host/program/program_errors.h"

namespace kovra::host {

int diffDrawings(const DiffOptions& options) {
  ProgramErrors errors;
  const auto before = dxf::RecordStore::readFile(options.before.string());
  if (!before) errors.report(kExitFile, {}, before.error().message);
  const auto after = dxf::RecordStore::readFile(options.after.string());
  if (!after) errors.report(kExitFile, {}, after.error().message);
  if (!before || !after) return errors.status();
  const auto write = options.format == DiffFormat::kJson ? writeChangeJson : writeChangeText;
  bool differ = false;
  compareDrawings(*before.value(), *after.value(), [&](const RecordChange& change) {
    differ = true;
    write(std::cout, change);
  });
  return differ ? kExitRefused : kExitDone;
}

}  // namespace kovra::host
