#include "desktop/loop/input_queue.h"

#include <QCoreApplication>
#include <utility>

namespace kovra::desktop {

InputQueue::InputQueue() {
  win::Pump::instance().addSource(win::kOutsideInput, this);
}

InputQueue::~InputQueue() {
  win::Pump::instance().removeSource(this);
}

void InputQueue::add(Act act) {
  acts_.push_back(std::move(act));
}

void InputQueue::beforeWaiting(std::function<void()> refresh) {
  refreshers_.push_back(std::move(refresh));
}

void InputQueue::end() {
  ended_ = true;
  acts_.clear();
}

void InputQueue::refresh() {
  for (const auto& refresh : refreshers_) refresh();
  // No event loop of Qt runs below, so nothing else would delete what asked for it.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool InputQueue::dispatchOne() {
  if (ended_) return false;
  if (!acts_.empty()) {
    const Act act = std::move(acts_.front());
    acts_.pop_front();
    act();
    return true;
  }
  refresh();
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  return true;
}

InputQueue& inputQueue() {
  static InputQueue queue;
  return queue;
}

}  // namespace kovra::desktop
