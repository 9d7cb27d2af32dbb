#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace kovra::host {

/// What a process of a pool left behind.
struct ProcessResult {
  int waitStatus = 0;  ///< as waitpid gives it
  std::string output;  ///< what it printed
  std::string errors;  ///< what it said on standard error
  std::string facts;   ///< what it wrote into its file of facts
  double seconds = 0;

  /// Its exit status; 128 + number if a signal ended it.
  int exitStatus() const;
};

/// Work that is carried out in processes, so that whatever happens to one happens to no other.
struct PooledWork {
  std::size_t count = 0;
  unsigned jobs = 0;  ///< at once; 0: as many as there are processors
  /// Runs in the process of one piece; returns its exit status. Facts, for ended(), go to the open
  /// file `facts`.
  std::function<int(std::size_t piece, int facts)> carryOut;
  /// Runs here, in the order in which the pieces end. False: no further piece is begun.
  std::function<bool(std::size_t piece, const ProcessResult& result)> ended;
};

struct PoolRun {
  std::size_t ended = 0;    ///< pieces that were begun and ended
  std::size_t dropped = 0;  ///< pieces whose processes were ended by a second Ctrl+C
};

/// Carries all pieces out. The first Ctrl+C lets what runs be finished and begins nothing more; the
/// second ends it at once. The processes end with this one.
PoolRun runInProcesses(const PooledWork& work);

}  // namespace kovra::host
