#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "host/batch/drawing_list.h"
#include "host/program/options.h"

namespace kovra::host {

/// What became of one drawing.
struct JobOutcome {
  std::string status;   ///< "done", "unchanged", "failed"
  std::string place;    ///< of the line that failed: "tidy.scr:3"; empty: none, or not by a line
  std::string error;    ///< the first one; empty: none
  std::string output;   ///< what the run printed
  std::string changes;  ///< JSON array of what changed, by kind; empty: not asked for
  double seconds = 0;
};

/// The run of one drawing, carried out in a process of its own: whatever happens to it happens to
/// no other.
class DrawingJob {
 public:
  using Run = std::function<int(const RunOptions&)>;

  explicit DrawingJob(BatchDrawing drawing) : drawing_(std::move(drawing)) {}

  /// Forks and carries the lines out. False when no process can be had.
  bool start(const EachOptions& options, const Run& run);
  /// What became of it, once its process has ended with the status that waitpid gave.
  JobOutcome finish(int waitStatus);

  pid_t process() const { return process_; }
  const BatchDrawing& drawing() const { return drawing_; }

 private:
  /// What a process of ours leaves behind, in memory.
  class Sheet {
   public:
    bool make(const char* name);
    int file() const { return file_; }
    std::string text() const;
    Sheet() = default;
    ~Sheet();
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

   private:
    int file_ = -1;
  };

  [[noreturn]] void carryOut(const EachOptions& options, const Run& run);

  BatchDrawing drawing_;
  pid_t process_ = -1;
  Sheet output_;
  Sheet errors_;
  Sheet facts_;
  std::chrono::steady_clock::time_point begin_;
};

}  // namespace kovra::host
