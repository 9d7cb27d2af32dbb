#pragma once

#include "platform/win/base/windows_types.h"

/// A box with the program's name as caption and the main window as owner. Without an icon in
/// `style` it shows the exclamation icon.
int AfxMessageBox(LPCWSTR text, UINT style = MB_OK, UINT helpId = 0);
/// The text is a string of the resource chain.
int AfxMessageBox(UINT textId, UINT style = MB_OK, UINT helpId = 0xFFFFFFFFU);
