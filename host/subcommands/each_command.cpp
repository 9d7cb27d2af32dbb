#include "host/subcommands/each_command.h"

#include <iostream>

#include "host/batch/batch_progress.h"
#include "host/batch/batch_report.h"
#include "host/program/program_errors.h"
#include "host/subcommands/run_command.h"
#include "launch/program_files.h"

namespace kovra::host {
namespace {

/// Takes out what a former report says is done; how many these are.
Result<std::size_t> leaveOutFinished(const EachOptions& options, const std::string& signature,
                                     std::vector<BatchDrawing>& drawings) {
  std::error_code failure;
  // A job that is always run with both options begins with neither.
  const bool begins = options.resume == options.report && !exists(options.resume, failure);
  if (options.resume.empty() || begins) return std::size_t{0};
  const Result<FinishedDrawings> finished = FinishedDrawings::read(options.resume, signature);
  if (!finished) return finished.error();
  return std::erase_if(drawings,
                       [&](const BatchDrawing& drawing) { return finished.value().has(drawing); });
}

ExitStatus statusOf(const Error& error) {
  return error.kind == ErrorKind::kInvalidInput ? kExitUsage : kExitFile;
}

PooledWork workOn(const EachOptions& options, const std::vector<BatchDrawing>& drawings,
                  BatchReport& report, BatchProgress& progress, ProgramErrors& errors) {
  PooledWork work;
  work.count = drawings.size();
  work.jobs = options.jobs;
  work.carryOut = [&](std::size_t piece, int facts) {
    report.begin(drawings[piece], options.dryRun);
    return carryOutJob(options, drawings[piece], runDrawings, facts);
  };
  work.ended = [&](std::size_t piece, const ProcessResult& result) {
    const JobOutcome outcome = outcomeOf(result);
    progress.add(drawings[piece], outcome);
    const Result<void> added = report.add(drawings[piece], outcome, options.dryRun);
    if (!added && errors.status() == kExitDone) errors.report(kExitFile, {}, added.error().message);
    return added.ok();
  };
  return work;
}

}  // namespace

int runOnEach(const EachOptions& options) {
  ProgramErrors errors;
  const auto fail = [&](const Error& error) {
    errors.report(statusOf(error), {}, error.message);
    return static_cast<int>(errors.status());
  };
  Result<std::vector<BatchDrawing>> found = findDrawings(options.names, options.listFile);
  if (!found) return fail(found.error());
  std::vector<BatchDrawing>& drawings = found.value();
  if (!options.root.empty()) {
    for (BatchDrawing& drawing : drawings)
      drawing.relative = drawing.file.lexically_proximate(options.root);
  }
  if (!options.outputFolder.empty()) {
    if (const Result<void> apart = checkPlaces(drawings); !apart) return fail(apart.error());
  }
  const std::string signature = jobSignature(options);
  const Result<std::size_t> leftOut = leaveOutFinished(options, signature, drawings);
  if (!leftOut) return fail(leftOut.error());
  if (options.namesOnly) {
    for (const BatchDrawing& drawing : drawings)
      std::cout << drawing.file.string() << '\t' << drawing.relative.string() << '\n';
    return kExitDone;
  }
  BatchReport report;
  if (!options.report.empty()) {
    if (const Result<void> opened = report.open(options.report, signature); !opened)
      return fail(opened.error());
  }
  BatchProgress progress(drawings.size(), leftOut.value());
  const PoolRun run = runInProcesses(workOn(options, drawings, report, progress, errors));
  if (errors.status() == kExitDone && run.dropped == 0) report.complete();
  progress.printSummary();
  if (errors.status() != kExitDone) return errors.status();
  return progress.allDone() ? kExitDone : kExitRefused;
}

}  // namespace kovra::host
