#pragma once

#include <functional>
#include <string>

#include "host/batch/drawing_list.h"
#include "host/batch/process_pool.h"
#include "host/program/options.h"

namespace kovra::host {

/// What became of one drawing.
struct JobOutcome {
  std::string status;   ///< "done", "unchanged", "failed"
  std::string place;    ///< of the line that failed: "tidy.scr:3"; empty: none, or not by a line
  std::string error;    ///< the first one; empty: none
  std::string output;   ///< what the run printed
  std::string changes;  ///< JSON array of what changed, by kind; empty: nothing, or not asked for
  double seconds = 0;
};

/// Runs the lines on one drawing, in the process that is there for it, and leaves what changed in
/// the open file `facts`.
/// @param run carries the lines out
/// @return the exit status of the run
int carryOutJob(const EachOptions& options, const BatchDrawing& drawing,
                const std::function<int(const RunOptions&)>& run, int facts);

/// What became of the drawing, once that process ended.
JobOutcome outcomeOf(const ProcessResult& result);

}  // namespace kovra::host
