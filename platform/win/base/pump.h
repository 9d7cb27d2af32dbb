#pragma once

#include <functional>
#include <string>
#include <vector>

namespace kovra::win {

/// Ranks of the sources, in the order in which the pump asks them.
inline constexpr int kPostedMessages = 0;
inline constexpr int kSentStrings = 1;
inline constexpr int kOutsideInput = 2;

/// Something that input comes from.
class PumpSource {
 public:
  virtual ~PumpSource() = default;

  /// Carries out one piece of input; false when there is none.
  virtual bool dispatchOne() = 0;
};

/// What kind of place waits: decides who gets a key such as Enter or Esc.
enum class WaitKind { idleHost, prompt, modalDialog };

/// A place that waits in runUntil().
struct Wait {
  WaitKind kind = WaitKind::idleHost;
  std::string what;              ///< for the user, UTF-8: a prompt's text, a dialog's title
  std::function<void()> cancel;  ///< what Esc would do; may be empty
};

/// The only waiting mechanism: every place that waits runs it, nested calls are the normal case.
/// Not safe for threads; the program has one.
class Pump {
 public:
  static Pump& instance();

  /// Adds a source, not owned. Of equal ranks the one added last is asked first.
  void addSource(int rank, PumpSource* source);
  void removeSource(PumpSource* source);

  /// Asks the sources by rank, one piece of input at a time, until `done` says so.
  /// False when every source came back empty first: the caller then treats its wait as cancelled.
  bool runUntil(const std::function<bool()>& done, Wait wait = {});

  /// Carries out what is posted and sent, but no outside input, until both are at rest.
  void settle();

  /// The innermost place that waits; null when nothing runs the pump.
  const Wait* topWait() const;
  std::size_t depth() const { return waits_.size(); }

  /// Cancels the innermost wait that can be cancelled, if no other lies above it.
  /// False when the top wait has no cancel (the idle host) or nothing waits.
  bool cancelTopWait();

 private:
  struct Entry {
    int rank;
    PumpSource* source;
  };

  bool dispatchOne(int lastRank);

  std::vector<Entry> sources_;
  std::vector<Wait> waits_;
};

}  // namespace kovra::win
