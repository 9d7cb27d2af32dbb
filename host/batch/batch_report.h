#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "host/batch/drawing_job.h"

namespace kovra::host {

/// What tells one job from another: its lines, its script's bytes, project and output. Reports of
/// another job say nothing about this one.
std::string jobSignature(const EachOptions& options);

/// The drawings that a report says are done, with what their files were then.
class FinishedDrawings {
 public:
  /// Reads a report; lines that aren't whole (a batch was killed) or of another job are passed
  /// over. kNotReadable.
  static Result<FinishedDrawings> read(const std::filesystem::path& report,
                                       const std::string& signature);

  /// Whether a drawing was done and its file hasn't changed since.
  bool has(const BatchDrawing& drawing) const;

 private:
  std::map<std::string, std::string> stamps_;  // by absolute path
};

/// A file that gets one JSON object a line for each drawing, each written at once, behind what it
/// has: file, status, error, line, changes, seconds, bytes, output.
class BatchReport {
 public:
  BatchReport() = default;
  ~BatchReport();
  BatchReport(const BatchReport&) = delete;
  BatchReport& operator=(const BatchReport&) = delete;

  /// kNotWritable. Without it nothing is written.
  Result<void> open(const std::filesystem::path& file, std::string signature);
  /// kNotWritable, on a full disk.
  Result<void> add(const BatchDrawing& drawing, const JobOutcome& outcome, bool dryRun);

 private:
  std::string path_;
  std::string signature_;
  int file_ = -1;
};

}  // namespace kovra::host
