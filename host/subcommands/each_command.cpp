#include "host/subcommands/each_command.h"

#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <list>
#include <map>
#include <thread>

#include "host/batch/batch_progress.h"
#include "host/batch/batch_report.h"
#include "host/program/program_errors.h"
#include "host/program/program_files.h"
#include "host/subcommands/run_command.h"

namespace kovra::host {
namespace {

volatile std::sig_atomic_t interruptions = 0;

void countInterruption(int /*signal*/) {
  interruptions = interruptions + 1;
}

/// While it lives Ctrl+C is counted, and ends a wait, instead of ending the program.
class InterruptionGuard {
 public:
  InterruptionGuard() {
    struct sigaction action = {};
    action.sa_handler = countInterruption;
    for (std::size_t i = 0; i < kSignals; ++i) sigaction(kSignal[i], &action, &former_[i]);
  }
  ~InterruptionGuard() {
    for (std::size_t i = 0; i < kSignals; ++i) sigaction(kSignal[i], &former_[i], nullptr);
  }
  InterruptionGuard(const InterruptionGuard&) = delete;
  InterruptionGuard& operator=(const InterruptionGuard&) = delete;

 private:
  static constexpr std::size_t kSignals = 2;
  static constexpr int kSignal[kSignals] = {SIGINT, SIGTERM};
  struct sigaction former_[kSignals] = {};
};

/// The jobs that run, and what is told of those that ended.
class Batch {
 public:
  Batch(const EachOptions& options, const std::vector<BatchDrawing>& drawings, BatchReport& report,
        BatchProgress& progress, ProgramErrors& errors)
      : options_(options),
        drawings_(drawings),
        report_(report),
        progress_(progress),
        errors_(errors) {}

  void run() {
    const InterruptionGuard guard;
    const std::size_t most = options_.jobs > 0 ? options_.jobs : processors();
    while (true) {
      while (!stopped() && running_.size() < most && next_ < drawings_.size()) startNext();
      if (running_.empty()) return;
      waitForOne();
    }
  }

 private:
  static std::size_t processors() { return std::max(1U, std::thread::hardware_concurrency()); }
  bool stopped() const { return interruptions > 0 || errors_.status() != kExitDone; }

  void startNext() {
    running_.emplace_back(drawings_[next_++]);
    if (running_.back().start(options_, runDrawings)) return;
    running_.pop_back();
    errors_.report(kExitFile, {}, "no process can be had for a drawing");
  }

  void waitForOne() {
    int status = 0;
    const pid_t ended = waitpid(-1, &status, 0);
    if (ended < 0) {
      heedInterruption();
      return;
    }
    const auto job = std::find_if(running_.begin(), running_.end(), [&](const DrawingJob& running) {
      return running.process() == ended;
    });
    if (job == running_.end()) return;
    const bool dropped = interruptions > 1 && WIFSIGNALED(status);
    if (!dropped) tell(*job, job->finish(status));
    running_.erase(job);
  }

  /// The first Ctrl+C lets what runs be finished; the second ends it. A drawing is saved whole or
  /// not at all, so nothing is lost by it.
  void heedInterruption() {
    if (interruptions == 1 && !told_) {
      told_ = true;
      std::cerr << "\nkovra: " << running_.size()
                << " drawings are being finished; Ctrl+C again drops them\n";
    }
    if (interruptions < 2) return;
    for (const DrawingJob& job : running_) kill(job.process(), SIGKILL);
  }

  void tell(const DrawingJob& job, const JobOutcome& outcome) {
    progress_.add(job.drawing(), outcome);
    const Result<void> added = report_.add(job.drawing(), outcome, options_.dryRun);
    if (!added && errors_.status() == kExitDone)
      errors_.report(kExitFile, {}, added.error().message);
  }

  const EachOptions& options_;
  const std::vector<BatchDrawing>& drawings_;
  BatchReport& report_;
  BatchProgress& progress_;
  ProgramErrors& errors_;
  std::list<DrawingJob> running_;
  std::size_t next_ = 0;
  bool told_ = false;
};

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

/// Two drawings of one name below different folders would be saved to one place.
Result<void> checkOutputs(const EachOptions& options, const std::vector<BatchDrawing>& drawings) {
  if (options.outputFolder.empty()) return {};
  std::map<std::filesystem::path, const BatchDrawing*> places;
  for (const BatchDrawing& drawing : drawings) {
    const auto [place, isNew] = places.try_emplace(drawing.relative, &drawing);
    if (isNew) continue;
    return Error{ErrorKind::kInvalidInput, drawing.file.string() + " and " +
                                               place->second->file.string() +
                                               " would be saved to the same place"};
  }
  return {};
}

ExitStatus statusOf(const Error& error) {
  return error.kind == ErrorKind::kInvalidInput ? kExitUsage : kExitFile;
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
  if (const Result<void> apart = checkOutputs(options, drawings); !apart)
    return fail(apart.error());
  const std::string signature = jobSignature(options);
  const Result<std::size_t> leftOut = leaveOutFinished(options, signature, drawings);
  if (!leftOut) return fail(leftOut.error());
  BatchReport report;
  if (!options.report.empty()) {
    if (const Result<void> opened = report.open(options.report, signature); !opened)
      return fail(opened.error());
  }
  BatchProgress progress(drawings.size(), leftOut.value());
  Batch(options, drawings, report, progress, errors).run();
  progress.printSummary();
  if (errors.status() != kExitDone) return errors.status();
  return progress.allDone() ? kExitDone : kExitRefused;
}

}  // namespace kovra::host
