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

  enum class State {
    kOpen,      ///< to be run: not done, or its file has changed since
    kReported,  ///< done
    kSaved  ///< begun, and saved before the batch could say so. Lines that ran twice might do harm
  };
  State stateOf(const BatchDrawing& drawing) const;

 private:
  using Stamps = std::map<std::string, std::string>;  // by absolute path
  Stamps finished_;
  Stamps begun_;
};

/// A file that gets one JSON object a line for each drawing, each written at once, behind what it
/// has: file, status, error, line, changes, seconds, bytes, output; path, where file isn't
/// absolute, or path_bytes, its bytes in hexadecimal, where they aren't UTF-8. While the batch
/// runs, a file beside it (REPORT.begun) has what was begun.
class BatchReport {
 public:
  BatchReport() = default;
  ~BatchReport();
  BatchReport(const BatchReport&) = delete;
  BatchReport& operator=(const BatchReport&) = delete;

  /// kNotWritable; also while another run writes it. Without it nothing is written.
  Result<void> open(const std::filesystem::path& file, std::string signature, bool dryRun);
  /// To be called before a drawing is opened to be changed, from its process too. kNotWritable:
  /// then it mustn't be changed, since a run that goes on after this one couldn't know.
  Result<void> begin(const BatchDrawing& drawing) const;
  /// kNotWritable, on a full disk.
  Result<void> add(const BatchDrawing& drawing, const JobOutcome& outcome);
  /// All that was begun has ended.
  void complete();

 private:
  Error failure(const std::string& reason) const;

  std::string path_;
  std::string signature_;
  bool dryRun_ = false;
  int file_ = -1;
  int begun_ = -1;
};

}  // namespace kovra::host
