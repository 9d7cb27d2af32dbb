#pragma once

#include <optional>
#include <string>

#include "host/lines/line_handlers.h"
#include "host/program/line_source.h"
#include "host/program/program_errors.h"
#include "platform/arx/editor/host_api.h"
#include "platform/win/base/pump.h"

namespace kovra::host {

/// The outside input of a run: gives the pump one line at a time. A line is done when the pump asks
/// for the next one; only then is it known whether it was refused.
class LineRunner : public win::PumpSource {
 public:
  /// `context`, `source` and `errors` outlive the runner. Joins the pump, leaves it at the end.
  LineRunner(LineContext& context, LineSource& source, ProgramErrors& errors);
  ~LineRunner() override;
  LineRunner(const LineRunner&) = delete;
  LineRunner& operator=(const LineRunner&) = delete;

  bool dispatchOne() override;

  /// Settles the last line and reports what was laid ready and not used.
  void finish();

 private:
  struct Failure {
    Error error;
    bool file = false;
    bool shown = false;  // the transcript says it already
  };

  void begin(const InputLine& line);
  void carryOut(std::wstring_view text);
  void carryOutAt(std::wstring_view text);
  bool carryOn();
  void settle();
  std::optional<Failure> takeFailure();
  void fail(const Failure& failure);
  void reportWaiting();
  bool cancelWhatWaits();

  LineContext& context_;
  LineSource& source_;
  ProgramErrors& errors_;
  std::string place_;
  std::optional<Failure> failure_;  // of the line in progress
  bool inLine_ = false;
  bool toBeRefused_ = false;
  bool stopped_ = false;  // a line failed and the run doesn't go on
  bool ended_ = false;    // no more lines
  int cancels_ = 0;
};

}  // namespace kovra::host
