#pragma once

#include "platform/win/base/global_memory.h"
#include "platform/win/base/windows_types.h"

/// The clipboard, which holds one text. It is the one of interaction.h, where the user's input puts
/// and reads it.

inline constexpr UINT CF_UNICODETEXT = 13;

/// FALSE while it is open already.
BOOL OpenClipboard(HWND owner);
BOOL CloseClipboard();
BOOL EmptyClipboard();
BOOL IsClipboardFormatAvailable(UINT format);
/// Only while it is open. The clipboard owns the memory from then on.
HANDLE SetClipboardData(UINT format, HANDLE memory);
/// Only while it is open; the memory stays the clipboard's, until it is closed. Null without a
/// text.
HANDLE GetClipboardData(UINT format);
