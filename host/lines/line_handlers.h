#pragma once

#include <functional>
#include <ostream>
#include <span>
#include <string_view>

#include "host/lines/user_hands.h"
#include "host/program/options.h"
#include "host/program/script_text.h"
#include "platform/dxf/result.h"
#include "platform/win/base/windows_types.h"

namespace kovra::launch {
class TextModule;
}

namespace kovra::host {

class TerminalGuide;

/// What a line goes on with before the next one is read: once more, each time that everything that
/// it caused has come to rest, until it fails.
struct Repetition {
  int times = 0;
  std::function<Result<void>()> once;
};

/// What the handlers of `@` lines work on.
struct LineContext {
  const RunOptions& options;
  launch::TextModule& module;
  UserHands& hands;                ///< by which lines act
  std::ostream& out;               ///< for what is printed also with --quiet
  unsigned usedTemplate = 0;       ///< the dialog that lines mean, by its template; 0: the topmost
  TerminalGuide* guide = nullptr;  ///< of the person at the terminal; null in scripts
  Repetition rest{};               ///< of the line in progress
};

/// An `@` line by its name.
struct LineHandler {
  std::wstring_view name;  ///< without the "@"
  Result<void> (*carryOut)(LineContext& context, Arguments& arguments);
  bool file = false;  ///< a failure is one of reading or writing a file
  /// What stands behind the name: words in capitals for what is asked (completion.cpp knows them),
  /// others as they are typed; in brackets what may be missing.
  std::wstring_view usage{};
  std::wstring_view summary{};  ///< what it does, for a list of lines
};

/// Tables of the handlers, by subject.
std::span<const LineHandler> documentLines();
std::span<const LineHandler> keyLines();
std::span<const LineHandler> answerLines();
std::span<const LineHandler> pointerLines();
std::span<const LineHandler> dialogLines();
std::span<const LineHandler> pictureLines();
std::span<const LineHandler> tableLines();

/// All the tables.
std::span<const std::span<const LineHandler>> lineTables();
/// Null for an unknown name.
const LineHandler* findLineHandler(std::wstring_view name);

/// The dialog that lines mean: the one that @use named if the user could reach it, else the
/// topmost; null if none is open.
HWND meantDialog(const LineContext& context);
/// The control of that dialog whose number the next word is.
Result<HWND> namedControl(LineContext& context, Arguments& arguments);
/// What became of the user's input.
Result<void> done(const win::InputResult& input);

}  // namespace kovra::host
