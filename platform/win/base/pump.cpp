#include "platform/win/base/pump.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace kovra::win {

Pump& Pump::instance() {
  static Pump pump;
  return pump;
}

void Pump::addSource(int rank, PumpSource* source) {
  removeSource(source);
  const auto place = std::find_if(sources_.begin(), sources_.end(),
                                  [rank](const Entry& entry) { return entry.rank >= rank; });
  sources_.insert(place, {rank, source});
}

void Pump::removeSource(PumpSource* source) {
  std::erase_if(sources_, [source](const Entry& entry) { return entry.source == source; });
}

bool Pump::dispatchOne(int lastRank) {
  // A source may add or remove sources while it works, so the list is looked at anew by position.
  for (std::size_t i = 0; i < sources_.size() && sources_[i].rank <= lastRank; ++i) {
    if (sources_[i].source->dispatchOne()) return true;
  }
  return false;
}

namespace {

/// Keeps a wait on the stack for the time of a scope, also when an exception passes.
class WaitScope {
 public:
  WaitScope(std::vector<Wait>& waits, Wait wait) : waits_(waits) {
    waits_.push_back(std::move(wait));
  }
  ~WaitScope() { waits_.pop_back(); }
  WaitScope(const WaitScope&) = delete;
  WaitScope& operator=(const WaitScope&) = delete;

 private:
  std::vector<Wait>& waits_;
};

}  // namespace

bool Pump::runUntil(const std::function<bool()>& done, Wait wait) {
  const WaitScope scope(waits_, std::move(wait));
  while (!done()) {
    if (!dispatchOne(std::numeric_limits<int>::max())) return done();
  }
  return true;
}

void Pump::settle() {
  while (dispatchOne(kSentStrings)) {
  }
}

const Wait* Pump::topWait() const {
  return waits_.empty() ? nullptr : &waits_.back();
}

bool Pump::cancelTopWait() {
  if (waits_.empty() || !waits_.back().cancel) return false;
  const auto cancel = waits_.back().cancel;
  cancel();
  return true;
}

}  // namespace kovra::win
