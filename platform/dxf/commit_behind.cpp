#include "platform/dxf/commit_behind.h"

#include <future>
#include <optional>
#include <system_error>
#include <utility>

namespace kovra::dxf {

namespace {

struct UnderWay {
  std::string target;
  std::future<Result<FileStamp>> result;
  CommitFailed failed;
};

struct Commits {
  int scopes = 0;
  std::optional<UnderWay> last;
};

Commits& commits() {
  static Commits all;
  return all;
}

std::future<Result<FileStamp>> start(std::unique_ptr<AtomicFile> file, bool backup,
                                     MayReplace mayReplace) {
  const std::shared_ptr<AtomicFile> shared = std::move(file);
  const auto commit = [=] { return shared->commit(backup, mayReplace); };
  try {
    return std::async(std::launch::async, commit);
  } catch (const std::system_error&) {
    // No thread to be had: whoever waits for it does it.
    return std::async(std::launch::deferred, commit);
  }
}

}  // namespace

CommitsBehind::CommitsBehind() {
  ++commits().scopes;
}

CommitsBehind::~CommitsBehind() {
  if (--commits().scopes == 0) finishCommit();
}

bool CommitsBehind::allowed() {
  return commits().scopes > 0 && !writesAreHeldBack();
}

Result<FileStamp> commitBehind(std::unique_ptr<AtomicFile> file, bool backup, MayReplace mayReplace,
                               CommitFailed failed) {
  Result<FileStamp> stamp = file->finishWriting();
  if (!stamp) return stamp;
  std::string target = file->target();
  finishCommit();
  commits().last.emplace(std::move(target), start(std::move(file), backup, std::move(mayReplace)),
                         std::move(failed));
  return stamp;
}

void finishCommit() {
  std::optional<UnderWay> last = std::exchange(commits().last, std::nullopt);
  if (!last) return;
  const Result<FileStamp> result = last->result.get();
  if (!result) last->failed(result.error());
}

void finishCommitOf(const std::string& path) {
  const std::optional<UnderWay>& last = commits().last;
  if (last && last->target == resolvedPath(path)) finishCommit();
}

}  // namespace kovra::dxf
