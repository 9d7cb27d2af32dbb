#pragma once

#include <span>

#include "platform/arx/editor/documents/sysvars.h"

namespace kovra::arx {

/// One system variable: what it is, where its value comes from, what it refuses.
struct VariableRow {
  VariableInfo info;
  const char* header = nullptr;  ///< its header variable
  double standard = 0;           ///< where neither drawing nor session has a value
  const wchar_t* standardText = L"";
  double low = -1e300;
  double high = 1e300;
  bool above = false;  ///< the lower bound itself is refused
  /// Computes the value of variables that aren't stored as they are.
  VariableValue (*read)(AcApDocument& document) = nullptr;
  /// Checks a new value, and gives it its stored form.
  Result<void> (*accept)(AcApDocument& document, VariableValue& value) = nullptr;
  /// A drawing without the header variable gets one; else a session's value stands in for it.
  bool addToHeader = false;
};

std::span<const VariableRow> variableRows();

}  // namespace kovra::arx
