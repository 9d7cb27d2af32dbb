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
  /// Reads a report, and what it has beside itself if its batch was killed; lines that aren't whole
  /// or of another job are passed over. kNotReadable.
  static Result<FinishedDrawings> read(const std::filesystem::path& report,
                                       const std::string& signature);

  /// Whether a drawing was done and its file hasn't changed since; or was begun, and saved before
  /// the batch could say so. Lines that ran twice on it might do harm.
  bool has(const BatchDrawing& drawing) const;

 private:
  using Stamps = std::map<std::string, std::string>;  // by absolute path
  Stamps finished_;
  Stamps begun_;
};

/// A file that gets one JSON object a line for each drawing, each written at once, behind what it
/// has: file, status, error, line, changes, seconds, bytes, output. While the batch runs, a file
/// beside it (REPORT.begun) has what was begun.
class BatchReport {
 public:
  BatchReport() = default;
  ~BatchReport();
  BatchReport(const BatchReport&) = delete;
  BatchReport& operator=(const BatchReport&) = delete;

  /// kNotWritable. Without it nothing is written.
  Result<void> open(const std::filesystem::path& file, std::string signature);
  /// To be called before a drawing is opened to be changed, from its process too.
  void begin(const BatchDrawing& drawing, bool dryRun) const;
  /// kNotWritable, on a full disk.
  Result<void> add(const BatchDrawing& drawing, const JobOutcome& outcome, bool dryRun);
  /// All that was begun has ended.
  void complete();

 private:
  std::string path_;
  std::string signature_;
  int file_ = -1;
  int begun_ = -1;
};

}  // namespace kovra::host
