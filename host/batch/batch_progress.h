#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "host/batch/drawing_job.h"

namespace kovra::host {

/// Tells a person how far a batch is, on a terminal while it runs and for everybody at its end.
class BatchProgress {
 public:
  BatchProgress(std::size_t total, std::size_t leftOut);

  void add(const BatchDrawing& drawing, const JobOutcome& outcome);
  /// Done, unchanged, failed with the first reasons, not begun.
  void printSummary() const;
  bool allDone() const { return failed_ == 0 && finished() == total_; }

 private:
  std::size_t finished() const { return done_ + unchanged_ + failed_; }
  void showBar() const;

  std::size_t total_;
  std::size_t leftOut_;
  std::size_t done_ = 0;
  std::size_t unchanged_ = 0;
  std::size_t failed_ = 0;
  std::vector<std::string> reasons_;  // the first ones
  bool terminal_;
  std::chrono::steady_clock::time_point begin_;
};

}  // namespace kovra::host
