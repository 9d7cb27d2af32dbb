#include "platform/dxf/commit_behind.h"

#include <condition_variable>
#include <future>
#include <mutex>
#include <optional>
#include <stop_token>
#include <system_error>
#include <thread>
#include <utility>

namespace kovra::dxf {

namespace {

using CommitTask = std::packaged_task<Result<FileStamp>()>;

/// Carries commits out. One thread for all: on a busy machine a new one waits long for its turn.
class Committer {
 public:
  Committer() : thread_([this](const std::stop_token& stop) { run(stop); }) {}

  /// The one before must be over.
  void start(CommitTask task) {
    {
      const std::lock_guard guard(lock_);
      next_ = std::move(task);
    }
    came_.notify_one();
  }

 private:
  void run(const std::stop_token& stop) {
    std::unique_lock guard(lock_);
    while (came_.wait(guard, stop, [this] { return next_.valid(); })) {
      CommitTask task = std::move(next_);
      guard.unlock();
      task();
      guard.lock();
    }
  }

  std::mutex lock_;
  std::condition_variable_any came_;
  CommitTask next_;
  std::jthread thread_;  ///< stands last, so that it ends first
};

struct UnderWay {
  std::string target;
  std::future<Result<FileStamp>> result;
  CommitFailed failed;
};

struct Commits {
  int scopes = 0;
  std::unique_ptr<Committer> committer;  ///< from the first commit of a scope to its end
  std::optional<UnderWay> last;
};

Commits& commits() {
  static Commits all;
  return all;
}

std::future<Result<FileStamp>> start(std::unique_ptr<AtomicFile> file, bool backup,
                                     MayReplace mayReplace) {
  CommitTask task([file = std::move(file), backup, mayReplace = std::move(mayReplace)]() mutable {
    Result<FileStamp> result = file->commit(backup, mayReplace);
    file.reset();
    return result;
  });
  std::future<Result<FileStamp>> result = task.get_future();
  try {
    if (commits().committer == nullptr) commits().committer = std::make_unique<Committer>();
    commits().committer->start(std::move(task));
  } catch (const std::system_error&) {
    // No thread to be had.
    task();
  }
  return result;
}

}  // namespace

CommitsBehind::CommitsBehind() {
  ++commits().scopes;
}

CommitsBehind::~CommitsBehind() {
  if (--commits().scopes > 0) return;
  finishCommit();
  commits().committer.reset();
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
  commits().last = UnderWay{
      std::move(target), start(std::move(file), backup, std::move(mayReplace)), std::move(failed)};
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
