#pragma once

#include "platform/win/base/windows_types.h"

/// Shows the box in the transcript and answers it from the queue (Interaction::answerBox). It takes
/// the focus while it is shown and gives it back. Null texts are empty, a null caption is "Error".
int MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT style);
