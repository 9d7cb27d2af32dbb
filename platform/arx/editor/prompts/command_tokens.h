#pragma once

#include <string>
#include <vector>

#include "platform/arx/base/ads.h"
#include "platform/arx/editor/prompts/prompt.h"

namespace kovra::arx {

/// The answers that a command was given beforehand. While one is alive, every question takes its
/// answer from the innermost; when it has no more, the question is cancelled.
class TokenFrame {
 public:
  TokenFrame(const resbuf* list, bool shown);
  ~TokenFrame();
  TokenFrame(const TokenFrame&) = delete;
  TokenFrame& operator=(const TokenFrame&) = delete;

  /// Null when the user is asked.
  static TokenFrame* current();

  /// Points are those of the document's UCS at this moment.
  Answer next(const AcApDocument& document, const Question& question);
  bool empty() const { return at_ == answers_.size(); }
  /// A question came when there was no answer left.
  bool ranDry() const { return ranDry_; }
  bool shown() const { return shown_; }

 private:
  std::vector<Answer> answers_;
  size_t at_ = 0;
  bool ranDry_ = false;
  bool shown_;
};

}  // namespace kovra::arx
