#include "host/batch/process_pool.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <list>
#include <thread>

namespace kovra::host {
namespace {

constexpr int kSignalStatus = 128;
constexpr int kNoProcessStatus = 3;

volatile std::sig_atomic_t interruptions = 0;

void countInterruption(int /*signal*/) {
  interruptions = interruptions + 1;
}

/// While it lives Ctrl+C is counted, and ends a wait, instead of ending the program.
class InterruptionGuard {
 public:
  InterruptionGuard() {
    interruptions = 0;
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

/// A file in memory, which a process of ours fills.
class Sheet {
 public:
  explicit Sheet(const char* name) : file_(memfd_create(name, MFD_CLOEXEC)) {}
  ~Sheet() {
    if (file_ >= 0) close(file_);
  }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;

  int file() const { return file_; }
  std::string text() const {
    struct stat state = {};
    if (fstat(file_, &state) != 0) return {};
    std::string text(static_cast<std::size_t>(state.st_size), '\0');
    const ssize_t got = pread(file_, text.data(), text.size(), 0);
    text.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return text;
  }

 private:
  int file_;
};

class Process {
 public:
  explicit Process(std::size_t piece) : piece_(piece) {}

  bool start(const PooledWork& work) {
    if (output_.file() < 0 || errors_.file() < 0 || facts_.file() < 0) return false;
    begin_ = std::chrono::steady_clock::now();
    std::cout.flush();  // or the new process would print it again
    id_ = fork();
    if (id_ == 0) carryOut(work);
    return id_ > 0;
  }

  ProcessResult result(int waitStatus) const {
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin_;
    return {waitStatus, output_.text(), errors_.text(), facts_.text(), taken.count()};
  }

  pid_t id() const { return id_; }
  std::size_t piece() const { return piece_; }

 private:
  [[noreturn]] void carryOut(const PooledWork& work) const {
    // A group of its own: Ctrl+C is for the pool, which lets this be finished. Without the pool
    // nobody would wait for it.
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    dup2(output_.file(), STDOUT_FILENO);
    dup2(errors_.file(), STDERR_FILENO);
    const int status = work.carryOut(piece_, facts_.file());
    std::cout.flush();
    _exit(status);
  }

  std::size_t piece_;
  pid_t id_ = -1;
  Sheet output_{"output"};
  Sheet errors_{"errors"};
  Sheet facts_{"facts"};
  std::chrono::steady_clock::time_point begin_;
};

class Pool {
 public:
  explicit Pool(const PooledWork& work)
      : work_(work),
        most_(work.jobs > 0 ? work.jobs : std::max(1U, std::thread::hardware_concurrency())) {}

  PoolRun run() {
    const InterruptionGuard guard;
    while (true) {
      while (goesOn_ && interruptions == 0 && running_.size() < most_ && next_ < work_.count)
        startNext();
      if (running_.empty()) return done_;
      waitForOne();
    }
  }

 private:
  void startNext() {
    running_.emplace_back(next_++);
    if (running_.back().start(work_)) return;
    ProcessResult result;
    result.waitStatus = kNoProcessStatus << 8;
    result.errors = "kovra: no process can be had\n";
    tell(running_.back().piece(), result);
    running_.pop_back();
  }

  void waitForOne() {
    int status = 0;
    const pid_t ended = waitpid(-1, &status, 0);
    if (ended < 0) return heedInterruption();
    const auto process =
        std::find_if(running_.begin(), running_.end(),
                     [&](const Process& running) { return running.id() == ended; });
    if (process == running_.end()) return;
    if (interruptions > 1 && WIFSIGNALED(status)) {
      ++done_.dropped;
    } else {
      tell(process->piece(), process->result(status));
    }
    running_.erase(process);
  }

  void heedInterruption() {
    if (interruptions == 1 && !told_) {
      told_ = true;
      std::cerr << "\nkovra: " << running_.size()
                << " are being finished; Ctrl+C again drops them\n";
    }
    if (interruptions < 2) return;
    for (const Process& process : running_) kill(process.id(), SIGKILL);
  }

  void tell(std::size_t piece, const ProcessResult& result) {
    ++done_.ended;
    goesOn_ = work_.ended(piece, result) && goesOn_;
  }

  const PooledWork& work_;
  std::size_t most_;
  std::list<Process> running_;
  std::size_t next_ = 0;
  PoolRun done_;
  bool goesOn_ = true;
  bool told_ = false;
};

}  // namespace

int ProcessResult::exitStatus() const {
  return WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : kSignalStatus + WTERMSIG(waitStatus);
}

PoolRun runInProcesses(const PooledWork& work) {
  return Pool(work).run();
}

}  // namespace kovra::host
