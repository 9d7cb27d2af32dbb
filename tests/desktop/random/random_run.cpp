#include "tests/desktop/random/random_run.h"

#include <malloc.h>
#include <unistd.h>

#include <QCoreApplication>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>

#include "desktop/frame/main_window.h"
#include "desktop/loop/input_queue.h"
#include "desktop/mirror/window_mirror.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/pump.h"
#include "tests/desktop/random/random_user.h"
#ifdef __SANITIZE_ADDRESS__
/// The address sanitizer's own count: malloc's knows nothing there. Its header isn't everywhere.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace kovra::test {
namespace {

constexpr long kStepsOfARound = 500;
constexpr unsigned kLongestStepSeconds = 60;
/// Rounds at whose end all caches are full.
constexpr std::size_t kFirstRounds = 3;
/// What the heap may hold more at the end than after those rounds, in all.
constexpr double kMostGrowth = 1.15;

void reportHang(int) {
  constexpr char kText[] = "a step hangs\n";
  (void)!write(STDERR_FILENO, kText, sizeof kText - 1);
  std::abort();
}

std::size_t bytesInUse() {
#ifdef __SANITIZE_ADDRESS__
  return __sanitizer_get_current_allocated_bytes();
#else
  return mallinfo2().uordblks;
#endif
}

/// The pump's outside input: something random whenever everything is at rest.
class RandomSource : public win::PumpSource {
 public:
  RandomSource(const RandomOptions& options, desktop::MainWindow& window)
      : options_(options), window_(window), user_(options.seed) {
    win::Pump::instance().addSource(win::kOutsideInput, this);
  }
  ~RandomSource() override { win::Pump::instance().removeSource(this); }
  RandomSource(const RandomSource&) = delete;
  RandomSource& operator=(const RandomSource&) = delete;

  bool dispatchOne() override;
  bool failed() const { return failed_; }
  long steps() const { return steps_; }
  /// The round is over: what waits is being cancelled.
  bool resting() const { return resting_; }
  void goOn() { resting_ = false; }
  bool isOver() const;

 private:
  bool cancelWhatWaits();
  void compare();

  const RandomOptions& options_;
  desktop::MainWindow& window_;
  RandomUser user_;
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
  long steps_ = 0;
  bool resting_ = false;
  bool failed_ = false;
};

bool RandomSource::dispatchOne() {
  desktop::InputQueue& queue = desktop::inputQueue();
  if (queue.ended()) return false;
  alarm(kLongestStepSeconds);
  if (queue.pending() > 0) return queue.dispatchOne();
  queue.refresh();
  QCoreApplication::processEvents();
  if (queue.pending() > 0) return true;
  if (resting_) return cancelWhatWaits();
  compare();
  resting_ = isOver() || ++steps_ % kStepsOfARound == 0;
  if (!resting_) user_.act();
  return true;
}

bool RandomSource::isOver() const {
  using Minutes = std::chrono::duration<double, std::ratio<60>>;
  if (options_.minutes <= 0) return steps_ >= options_.steps;
  return Minutes(std::chrono::steady_clock::now() - begin_).count() >= options_.minutes;
}

/// True, so that who waits looks whether the end has come: behind this source others wait for
/// events.
bool RandomSource::cancelWhatWaits() {
  const win::Wait* top = win::Pump::instance().topWait();
  if (top == nullptr) return false;
  if (top->kind == win::WaitKind::modalDialog) return win::Pump::instance().cancelTopWait();
  // A drawing that was activated while another's prompt waits keeps that from ending.
  const bool idle = top->kind == win::WaitKind::idleHost;
  if (!idle) arx::host::answerCancel();
  if (idle && win::Pump::instance().depth() > 1)
    (void)arx::host::closeDrawing(arx::host::currentDrawing());
  return true;
}

void RandomSource::compare() {
  for (const std::string& difference : window_.mirror().differences()) {
    failed_ = true;
    std::fprintf(stderr, "step %ld, after %s: %s\n", steps_, user_.last().c_str(),
                 difference.c_str());
  }
}

void openAll(const RandomOptions& options) {
  for (const auto& drawing : options.drawings) {
    const auto opened = arx::host::openDrawing(drawing);
    if (!opened) std::fprintf(stderr, "%s\n", opened.error().message.c_str());
  }
  if (arx::host::currentDrawing() == 0) (void)arx::host::newDrawing();
}

/// Without what was changed.
void closeAll() {
  while (const auto drawing = arx::host::currentDrawing()) {
    if (!arx::host::closeDrawing(drawing)) return;
    win::Pump::instance().settle();
    if (arx::host::currentDrawing() == drawing) return;
  }
}

bool growsOverRounds(const std::vector<std::size_t>& rounds) {
  for (const std::size_t bytes : rounds) std::printf("%zu KiB in use\n", bytes / 1024);
  if (rounds.size() <= 2 * kFirstRounds) return false;
  const auto middle = rounds.begin() + static_cast<std::ptrdiff_t>(kFirstRounds);
  const auto before = *std::max_element(rounds.begin(), middle);
  const auto after = *std::min_element(rounds.end() - kFirstRounds, rounds.end());
  return static_cast<double>(after) > kMostGrowth * static_cast<double>(before);
}

}  // namespace

bool runRandomUser(const RandomOptions& options, desktop::MainWindow& window) {
  std::signal(SIGALRM, reportHang);
  RandomSource source(options, window);
  std::vector<std::size_t> rounds;
  while (!source.isOver() && !desktop::inputQueue().ended()) {
    openAll(options);
    source.goOn();
    arx::host::runIdle(
        [&source] { return source.resting() && win::Pump::instance().depth() <= 1; });
    closeAll();
    rounds.push_back(bytesInUse());
  }
  desktop::inputQueue().end();
  alarm(0);
  std::printf("%ld steps\n", source.steps());
  const bool grows = growsOverRounds(rounds);
  if (grows) std::fprintf(stderr, "memory grows\n");
  return !grows && !source.failed();
}

}  // namespace kovra::test
