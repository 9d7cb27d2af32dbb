#pragma once

#include "module/frame/companions/dialog_state_lib.h"
#include "module/frame/seam.h"

namespace kovra {

/// Reads a text of the selected section. False, with `text` as it was, for a missing key.
bool GetStateText(const DialogStateStore& store, const ACHAR* key, CString& text);

/// Reads a text that may be the entry for the current layer, which is read in the language of this
/// run: the user may have changed it since. False, with `text` as it was, for a missing key.
bool GetStateLayer(const DialogStateStore& store, const ACHAR* key, CString& text);

/// Reads a number from 0 to `largest`. Anything else in the store leaves `value` alone.
void GetStateChoice(const DialogStateStore& store, const ACHAR* key, int largest, int& value);

/// Reads a real number that was stored as a text; 0 for a text that is none. A missing key leaves
/// `value` alone.
void GetStateReal(const DialogStateStore& store, const ACHAR* key, double& value);

/// Keys of a dialog's left and top edge.
struct PlaceKeys {
  const ACHAR* left = L"X";
  const ACHAR* top = L"Y";
};

/// Moves a dialog to its stored place without changing its size, and onto a monitor. Nothing
/// happens unless both edges are stored.
void RestoreWindowPlace(CWnd& dialog, const DialogStateStore& store, const PlaceKeys& keys = {});

/// Stores left and top of a dialog.
void StoreWindowPlace(const CWnd& dialog, DialogStateStore& store, const PlaceKeys& keys = {});

}  // namespace kovra
