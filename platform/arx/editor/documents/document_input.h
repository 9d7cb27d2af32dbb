#pragma once

#include <deque>
#include <string>
#include <string_view>

namespace kovra::arx {

/// A character that waits for the command line.
struct QueuedCharacter {
  wchar_t character;
  bool echo;  ///< shown in the transcript when it is accepted
};

/// What has been typed for a document or sent to it and isn't accepted yet.
struct DocumentInput {
  std::deque<QueuedCharacter> queue;  ///< not read yet, first to read in front
  std::wstring line;                  ///< read by the prompt in progress
  bool lineShown = true;              ///< all of the line came with echo

  void append(std::wstring_view text, bool echo);
};

}  // namespace kovra::arx
