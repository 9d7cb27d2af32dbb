#pragma once

#include "module/countup/step_conversion.h"
#include "module/frame/seam.h"

namespace kovra {

/// The two fields in which a dialog shows one step. Lives as long as the module, one a dialog
/// class.
struct StepFields {
  int decimalField;  ///< the step in decimal
  int radixField;    ///< the step in the numbering system that the radix combo box names
  StepConversionRules rules;
  bool rewriting = false;  ///< keeps the change of the rewritten field from coming back
};

/// Rewrites one of the fields from the other.
/// @param fromRadix from the radix field to the decimal field, else the other way
/// @return whether the other field was rewritten
bool SyncStepFields(CWnd& dialog, StepFields& fields, bool fromRadix);

}  // namespace kovra
