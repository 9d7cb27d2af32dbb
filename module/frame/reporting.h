#pragma once

#include "module/frame/seam.h"

namespace kovra {

/// Longest text of ShowMessage and ProjectMessage, with the character that ends it.
inline constexpr int kMessageBoxLength = 512;
inline constexpr int kCommandLineLength = 256;

/// String `id` of ResourceModule, cut to `limit` - 1 characters; empty when there is none.
CString ResourceText(UINT id, int limit = kMessageBoxLength);

/// String `id`, a FormatMessage form, with the argument in place of %1. The text has room for one
/// of kCommandLineLength with the character that ends it; a longer argument is cut and ends with
/// "...".
CString FormatResourceText(UINT id, const ACHAR* argument);

/// String `id`, a printf form with one place for the argument.
template <typename Argument>
CString PrintfResourceText(UINT id, Argument argument) {
  CString text;
  text.Format(ResourceText(id).GetString(), argument);
  return text;
}

/// Shows string `id` in a task-modal box with the exclamation icon.
/// @return what the box gave; the box has one button, so nobody needs it.
int ShowMessage(UINT id);

/// Prints string `id` on the command line as it stands.
void ProjectMessage(UINT id);

/// Marks a place where a diagnostic belongs. The texts reach neither the user nor a log.
/// @return always 0
template <typename... Arguments>
int TraceError(const ACHAR* /*format*/, const Arguments&... /*arguments*/) {
  return 0;
}

}  // namespace kovra
