// The pump's outside input: what the user does with native windows.
#pragma once
#include <deque>
#include <functional>
#include <vector>

#include "platform/win/base/pump.h"

namespace kovra::desktop {

/// Acts of the user, carried out by the pump one after another. Native event handlers only lay an
/// act ready here, so nothing of the editor runs inside an event handler, however deeply prompts
/// and dialogs nest: where the pump waits for outside input, it waits here in Qt's event loop.
class InputQueue : public win::PumpSource {
 public:
  using Act = std::function<void()>;

  /// Joins the pump, leaves it at the end.
  InputQueue();
  ~InputQueue() override;
  InputQueue(const InputQueue&) = delete;
  InputQueue& operator=(const InputQueue&) = delete;

  void add(Act act);
  /// Done each time before native events are waited for, with everything at rest: what shows the
  /// windows in memory brings itself up to date here. In the order in which they were added.
  void beforeWaiting(std::function<void()> refresh);
  /// Does that now.
  void refresh();
  /// From now on there is no more input: every place that waits counts as cancelled and unwinds, as
  /// at the end of a script.
  void end();
  bool ended() const { return ended_; }
  /// Acts that wait to be carried out.
  std::size_t pending() const { return acts_.size(); }

  bool dispatchOne() override;

 private:
  std::deque<Act> acts_;
  std::vector<std::function<void()>> refreshers_;
  bool ended_ = false;
};

/// The one of this run; made at the first call.
InputQueue& inputQueue();

}  // namespace kovra::desktop
