#include "host/batch/drawing_job.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>

#include "host/batch/change_counts.h"
#include "platform/dxf/atomic_file.h"

namespace kovra::host {
namespace {

using std::filesystem::path;

constexpr std::string_view kProgram = "kovra: ";
constexpr std::string_view kChanged = "changed\n";

/// Whether a path still leads to the file that was opened.
bool isSameFile(int former, const path& file) {
  struct stat before = {};
  struct stat after = {};
  return fstat(former, &before) == 0 && stat(file.c_str(), &after) == 0 &&
         before.st_dev == after.st_dev && before.st_ino == after.st_ino;
}

/// "kovra: tidy.scr:3: what is wrong" as place and reason. A place ends in the number of a line.
void readError(const std::string& errors, JobOutcome& outcome) {
  std::string line = errors.substr(0, errors.find('\n'));
  if (line.starts_with(kProgram)) line.erase(0, kProgram.size());
  const std::size_t end = line.find(": ");
  const std::size_t digits =
      end == std::string::npos ? end : line.find_last_not_of("0123456789", end - 1);
  const bool isPlace = digits != std::string::npos && digits + 1 < end &&
                       (line[digits] == ':' || line[digits] == ' ');
  outcome.place = isPlace ? line.substr(0, end) : std::string();
  outcome.error = isPlace ? line.substr(end + 2) : line;
}

/// In its own place, or in a folder for all.
RunOptions runOptionsFor(const EachOptions& options, const BatchDrawing& drawing) {
  RunOptions run = options.run;
  run.drawings = {drawing.file()};
  run.saveAll = options.outputFolder.empty();
  if (!options.outputFolder.empty()) run.output = options.outputFolder / drawing.relative();
  return run;
}

/// What a run left: nothing if the drawing is what it was; else that it changed and, if that is
/// wanted, what.
/// @param former the drawing as it was, open
std::string factsOf(int former, const EachOptions& options, const RunOptions& run) {
  const path& written = run.output.empty() ? run.drawings.front() : run.output;
  const std::string held = dxf::heldBack(written.string());
  if (held.empty() && (isSameFile(former, written) || options.dryRun)) return {};
  const std::string before = "/proc/self/fd/" + std::to_string(former);
  const std::string after = held.empty() ? written.string() : held;
  if (haveSameBytes(before, after)) return {};
  std::string facts(kChanged);
  if (options.tellsChanges()) facts += changesJson(before, after);
  return facts;
}

void makeFolderOf(const path& file) {
  std::error_code failure;
  if (!file.empty()) std::filesystem::create_directories(file.parent_path(), failure);
}

void writeAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(file, text.data(), text.size());
    if (written <= 0) return;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace

int carryOutJob(const EachOptions& options, const BatchDrawing& drawing,
                const std::function<int(const RunOptions&)>& run, int facts) {
  const int former = open(drawing.name.c_str(), O_RDONLY | O_CLOEXEC);
  const RunOptions own = runOptionsFor(options, drawing);
  if (!options.dryRun) makeFolderOf(own.output);
  dxf::holdWritesBack(options.dryRun);
  const int status = run(own);
  if (former >= 0) writeAll(facts, factsOf(former, options, own));
  return status;
}

JobOutcome outcomeOf(const ProcessResult& result) {
  JobOutcome outcome;
  outcome.seconds = result.seconds;
  outcome.output = result.output;
  const bool changed = result.facts.starts_with(kChanged);
  if (changed) outcome.changes = result.facts.substr(kChanged.size());
  if (result.exitStatus() == kExitDone) {
    outcome.status = changed ? "done" : "unchanged";
    return outcome;
  }
  outcome.status = "failed";
  readError(result.errors, outcome);
  if (WIFSIGNALED(result.waitStatus))
    outcome.error = std::string("its process was ended: ") + strsignal(WTERMSIG(result.waitStatus));
  return outcome;
}

}  // namespace kovra::host
