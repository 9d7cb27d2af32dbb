#pragma once

#include <ostream>
#include <span>
#include <string_view>

#include "host/program/options.h"
#include "host/program/script_text.h"
#include "platform/dxf/result.h"

namespace kovra::host {

class TextModule;

/// What the handlers of `@` lines work on.
struct LineContext {
  const RunOptions& options;
  TextModule& module;
  std::ostream& out;          ///< for what is printed also with --quiet
  unsigned usedTemplate = 0;  ///< the dialog that lines mean, by its template; 0: the topmost
};

/// An `@` line by its name.
struct LineHandler {
  std::wstring_view name;  ///< without the "@"
  Result<void> (*carryOut)(LineContext& context, Arguments& arguments);
  bool file = false;  ///< a failure is one of reading or writing a file
};

/// Tables of the handlers, by subject.
std::span<const LineHandler> documentLines();
std::span<const LineHandler> keyLines();
std::span<const LineHandler> answerLines();
std::span<const LineHandler> pointerLines();
std::span<const LineHandler> dialogLines();
std::span<const LineHandler> pictureLines();

/// Null for an unknown name.
const LineHandler* findLineHandler(std::wstring_view name);

}  // namespace kovra::host
