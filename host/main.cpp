#include <cerrno>
#include <cstring>
#include <iostream>

#include "host/program/options.h"
#include "host/subcommands/diff_command.h"
#include "host/subcommands/each_command.h"
#include "host/subcommands/list_command.h"
#include "host/subcommands/plot_command.h"
#include "host/subcommands/run_command.h"

namespace {

int run(const kovra::host::CommandLine& line) {
  if (line.exitStatus) return *line.exitStatus;
  switch (line.mode) {
    case kovra::host::Mode::kList:
      return kovra::host::listDrawings(line.list);
    case kovra::host::Mode::kCheck:
      return kovra::host::checkDrawings(line.check);
    case kovra::host::Mode::kPlot:
      return kovra::host::plotDrawings(line.plot);
    case kovra::host::Mode::kDiff:
      return kovra::host::diffDrawings(line.diff);
    case kovra::host::Mode::kEach:
      return kovra::host::runOnEach(line.each);
    default:
      return kovra::host::runDrawings(line.run);
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  int status = run(kovra::host::parseCommandLine(argc, argv));
  errno = 0;
  if (!std::cout.flush()) {
    std::cerr << "kovra: standard output can't be written: " << std::strerror(errno) << '\n';
    if (status == kovra::host::kExitDone) status = kovra::host::kExitFile;
  }
  return status;
}
