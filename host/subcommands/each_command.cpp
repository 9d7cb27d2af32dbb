#include "host/subcommands/each_command.h"

#include <iostream>

#include "host/batch/batch_progress.h"
#include "host/batch/batch_report.h"
#include "host/program/program_errors.h"
#include "host/program/program_files.h"
#include "host/subcommands/run_command.h"

namespace kovra::host {
namespace {

using std::filesystem::path;
using State = FinishedDrawings::State;

constexpr const char* kSavedBefore = "Saved by a run that was ended before it could say so.\n";

/// What a former report says is done.
struct LeftOut {
  std::size_t count = 0;
  std::vector<BatchDrawing> saved;  ///< of these, those that the report has no line for
};

/// Takes out what is done, and is still there.
Result<LeftOut> leaveOutFinished(const EachOptions& options, const std::string& signature,
                                 std::vector<BatchDrawing>& drawings) {
  std::error_code failure;
  LeftOut left;
  // A job that is always run with both options begins with neither.
  const bool begins = options.resume == options.report && !exists(options.resume, failure);
  if (options.resume.empty() || begins) return left;
  const Result<FinishedDrawings> finished = FinishedDrawings::read(options.resume, signature);
  if (!finished) return finished.error();
  const path& folder = options.outputFolder;
  left.count = std::erase_if(drawings, [&](const BatchDrawing& drawing) {
    const State state = finished.value().stateOf(drawing);
    if (state == State::kSaved) left.saved.push_back(drawing);
    return state != State::kOpen &&
           (folder.empty() || exists(folder / drawing.relative(), failure));
  });
  return left;
}

/// Places in the output folder count from `root`, if it isn't empty. kInvalidInput for a drawing
/// that doesn't lie below it.
Result<void> countFrom(const path& root, std::vector<BatchDrawing>& drawings) {
  if (root.empty()) return {};
  for (BatchDrawing& drawing : drawings) {
    const std::string place = drawing.file().lexically_proximate(root).string();
    if (place.starts_with("..") || !drawing.name.ends_with(place))
      return Error{ErrorKind::kInvalidInput, drawing.name + ": doesn't lie below the --root"};
    drawing.above = static_cast<std::uint32_t>(drawing.name.size() - place.size());
  }
  return {};
}

/// The report gets a line for each drawing, also for those that a killed run couldn't tell of.
Result<void> openReport(const EachOptions& options, const std::string& signature,
                        const LeftOut& left, BatchReport& report) {
  if (options.report.empty()) return {};
  if (const Result<void> opened = report.open(options.report, signature, options.dryRun); !opened)
    return opened;
  if (options.dryRun) return {};
  JobOutcome outcome;
  outcome.status = "done";
  outcome.output = kSavedBefore;
  outcome.changes = "null";
  for (const BatchDrawing& drawing : left.saved) {
    if (const Result<void> added = report.add(drawing, outcome); !added) return added;
  }
  return {};
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
    const Result<void> begun = report.begin(drawings[piece]);
    if (!begun) return fail(kExitFile, begun.error());
    return carryOutJob(options, drawings[piece], runDrawings, facts);
  };
  work.ended = [&](std::size_t piece, const ProcessResult& result) {
    const JobOutcome outcome = outcomeOf(result);
    progress.add(drawings[piece], outcome);
    const Result<void> added = report.add(drawings[piece], outcome);
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
  if (const Result<void> below = countFrom(options.root, drawings); !below)
    return fail(below.error());
  if (!options.outputFolder.empty()) {
    if (const Result<void> apart = checkPlaces(drawings); !apart) return fail(apart.error());
  }
  const std::string signature = jobSignature(options);
  const Result<LeftOut> leftOut = leaveOutFinished(options, signature, drawings);
  if (!leftOut) return fail(leftOut.error());
  if (options.namesOnly) {
    for (const BatchDrawing& drawing : drawings)
      std::cout << drawing.name << '\t' << drawing.relative().string() << '\n';
    return kExitDone;
  }
  BatchReport report;
  const Result<void> opened = openReport(options, signature, leftOut.value(), report);
  if (!opened) return fail(opened.error());
  BatchProgress progress(drawings.size(), leftOut.value().count);
  const PoolRun run = runInProcesses(workOn(options, drawings, report, progress, errors));
  if (errors.status() == kExitDone && run.dropped == 0) report.complete();
  progress.printSummary();
  if (errors.status() != kExitDone) return errors.status();
  return progress.allDone() ? kExitDone : kExitRefused;
}

}  // namespace kovra::host
