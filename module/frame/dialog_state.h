#pragma once

#include "module/frame/companions/dialog_state_lib.h"
#include "module/frame/seam.h"

namespace kovra {

/// Reads a text of the selected section. False, with `text` as it was, for a missing key.
bool GetStateText(const DialogStateStore& store, const ACHAR* key, CString& text);

/// Reads a number from 0 to `largest`. Anything else in the store leaves `value` alone.
void GetStateChoice(const DialogStateStore& store, const ACHAR* key, int largest, int& value);

/// Reads a real number that was stored as a text; 0 for a text that is none. A missing key leaves
/// `value` alone.
void GetStateReal(const DialogStateStore& store, const ACHAR* key, double& value);

/// Moves a dialog to its stored "X" and "Y" without changing its size, and onto a monitor. Nothing
/// happens unless both are stored.
void RestoreWindowPlace(CWnd& dialog, const DialogStateStore& store);

/// Stores left and top of a dialog as "X" and "Y".
void StoreWindowPlace(const CWnd& dialog, DialogStateStore& store);

}  // namespace kovra
