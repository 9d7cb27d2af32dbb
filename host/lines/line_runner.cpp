#include "host/lines/line_runner.h"

#include "host/lines/terminal_guide.h"
#include "platform/win/base/interaction.h"
#include "platform/win/base/wide_text.h"

namespace kovra::host {
namespace {

// More cancels than any nesting of waits has; a wait that begins anew each time gets no more.
constexpr int kMostCancels = 1000;

constexpr std::string_view kRefusedName = "refused";

}  // namespace

LineRunner::LineRunner(LineContext& context, LineSource& source, ProgramErrors& errors)
    : context_(context), source_(source), errors_(errors) {
  win::Pump::instance().addSource(win::kOutsideInput, this);
}

LineRunner::~LineRunner() {
  win::Pump::instance().removeSource(this);
}

bool LineRunner::dispatchOne() {
  if (context_.hands.goOn()) return true;
  if (carryOn()) return true;
  settle();
  if (stopped_ || ended_) return cancelWhatWaits();
  if (context_.guide != nullptr) context_.guide->beforeLine();
  if (const std::optional<InputLine> line = source_.next()) {
    begin(*line);
    return true;
  }
  ended_ = true;
  reportWaiting();
  return cancelWhatWaits();
}

void LineRunner::begin(const InputLine& line) {
  place_ = line.place;
  inLine_ = true;
  const std::optional<std::wstring> text = decodeUtf8(line.text);
  if (!text) {
    failure_ = Failure{{ErrorKind::kInvalidInput, "the line isn't UTF-8"}};
    return;
  }
  carryOut(*text);
}

void LineRunner::carryOut(std::wstring_view text) {
  if (text.starts_with(L'#')) return;
  if (text.starts_with(L'@')) return carryOutAt(text.substr(1));
  if (context_.guide != nullptr && context_.guide->takes(text)) return;
  if (text.empty() && arx::host::currentDrawing() == 0) return;
  const Result<void> typed = context_.hands.typeText(std::wstring(text) + L'\n');
  if (typed) return;
  failure_ = Failure{typed.error()};
  const bool helpless = context_.guide != nullptr && arx::host::topWait().modalOnTop;
  if (helpless) failure_->error.message += "; ? says what it takes";
}

void LineRunner::carryOutAt(std::wstring_view text) {
  const size_t nameEnd = std::min(text.find_first_of(L" \t"), text.size());
  const std::wstring_view name = text.substr(0, nameEnd);
  if (win::toUtf8(name) == kRefusedName) {
    text.remove_prefix(std::min(nameEnd + 1, text.size()));
    toBeRefused_ = true;
    return carryOut(text);
  }
  const LineHandler* handler = findLineHandler(name);
  if (handler == nullptr) {
    failure_ = Failure{{ErrorKind::kInvalidInput, "there is no line @" + win::toUtf8(name)}};
    toBeRefused_ = false;  // a slip of the pen is no refusal
    return;
  }
  Arguments arguments(text.substr(nameEnd));
  const Result<void> done = handler->carryOut(context_, arguments);
  if (!done) failure_ = Failure{done.error(), handler->file};
}

/// False when the line in progress has nothing left to do.
bool LineRunner::carryOn() {
  Repetition& rest = context_.rest;
  if (rest.times == 0) return false;
  failure_ = takeFailure();
  if (failure_) {
    rest = {};
    return false;
  }
  --rest.times;
  const Result<void> done = rest.once();
  if (!done) failure_ = Failure{done.error()};
  return true;
}

std::optional<LineRunner::Failure> LineRunner::takeFailure() {
  std::optional<Failure> failure = std::move(failure_);
  failure_.reset();
  // Emptied in any case, so that nothing is left for the next line.
  std::optional<std::string> noted = win::interaction().takeFailure();
  if (!failure && noted) {
    failure = Failure{{ErrorKind::kInvalidInput, std::move(*noted)}, false, true};
  }
  return failure;
}

void LineRunner::settle() {
  const std::optional<Failure> failure = takeFailure();
  if (!inLine_) return;
  inLine_ = false;
  const bool toBeRefused = std::exchange(toBeRefused_, false);
  if (!toBeRefused && failure) fail(*failure);
  if (toBeRefused && !failure) {
    fail({{ErrorKind::kInvalidInput, "the line should have been refused and wasn't"}});
  }
}

void LineRunner::fail(const Failure& failure) {
  if (failure.shown && place_.empty()) return;  // a person at the terminal has read it
  const bool file = failure.file && failure.error.kind != ErrorKind::kInvalidInput;
  errors_.report(file ? kExitFile : kExitRefused, place_, failure.error.message);
  if (!context_.options.keepGoing) stopped_ = true;
}

void LineRunner::reportWaiting() {
  const arx::host::Wait wait = arx::host::topWait();
  const win::Wait* top = win::Pump::instance().topWait();
  std::string what;
  if (top != nullptr && top->kind == win::WaitKind::modalDialog) {
    what = "the dialog '" + top->what + "'";
  } else if (wait.kind != arx::host::WaitKind::kIdle && wait.kind != arx::host::WaitKind::kNone) {
    const std::wstring_view prompt(wait.prompt);
    const size_t begin = std::min(prompt.find_first_not_of(L" \n"), prompt.size());
    what = win::toUtf8(wait.command) + " at '" + win::toUtf8(prompt.substr(begin)) + "'";
  }
  if (!what.empty()) errors_.report(kExitRefused, place_, "the input ended while waiting: " + what);
}

bool LineRunner::cancelWhatWaits() {
  if (++cancels_ > kMostCancels) return false;
  const win::Wait* top = win::Pump::instance().topWait();
  if (top != nullptr && top->kind == win::WaitKind::modalDialog) {
    return win::Pump::instance().cancelTopWait();
  }
  const arx::host::Wait wait = arx::host::topWait();
  if (wait.kind == arx::host::WaitKind::kIdle || wait.kind == arx::host::WaitKind::kNone) {
    return false;
  }
  arx::host::answerCancel();
  return true;
}

void LineRunner::finish() {
  settle();
  if (stopped_) return;
  if (context_.hands.answersLeft() > 0) {
    errors_.report(kExitRefused, {}, "answers to message boxes are left over at the end");
  }
  if (context_.hands.filesLeft() > 0) {
    errors_.report(kExitRefused, {}, "answers to file choices are left over at the end");
  }
}

}  // namespace kovra::host
