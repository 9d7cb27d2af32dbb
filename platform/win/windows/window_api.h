#pragma once

#include "platform/win/base/messages.h"
#include "platform/win/base/windows_types.h"

/// The platform's functions on windows. There is no screen: windows are records in memory, and the
/// controls behave by the table in docs/windows.md. A handle that isn't a window's (any more) makes
/// every function fail quietly: FALSE, null, 0.

// Making and ending.
HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR text, DWORD style, int x, int y,
                     int width, int height, HWND parentOrOwner, HMENU idOrMenu, HINSTANCE instance,
                     LPVOID parameter);
BOOL DestroyWindow(HWND window);
BOOL IsWindow(HWND window);

// Messages.
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT DispatchMessageW(const MSG* message);
/// Carries out what a key or access key means in a dialog, else dispatches the message. False when
/// the message isn't the dialog's.
BOOL IsDialogMessageW(HWND dialog, MSG* message);
LONG_PTR GetWindowLongPtrW(HWND window, int index);
LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value);

// Relations. Of siblings the first is the topmost, and the first in the tab order.
HWND GetParent(HWND window);
HWND GetWindow(HWND window, UINT relation);
HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND window);
BOOL IsChild(HWND parent, HWND window);
HWND GetAncestor(HWND window, UINT which);
inline constexpr UINT GA_PARENT = 1;
inline constexpr UINT GA_ROOT = 2;
HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
int GetClassNameW(HWND window, LPWSTR buffer, int capacity);
HWND GetDesktopWindow();

// Place, in pixels. The place of a child counts from its parent's client area.
BOOL GetWindowRect(HWND window, RECT* rect);
BOOL GetClientRect(HWND window, RECT* rect);
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
BOOL ScreenToClient(HWND window, POINT* point);
BOOL ClientToScreen(HWND window, POINT* point);
int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count);
BOOL MapDialogRect(HWND dialog, RECT* rect);
BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL menu, DWORD exStyle);

// State and text.
BOOL EnableWindow(HWND window, BOOL enable);
BOOL IsWindowEnabled(HWND window);
BOOL ShowWindow(HWND window, int command);
BOOL IsWindowVisible(HWND window);
BOOL IsIconic(HWND window);
BOOL SetWindowTextW(HWND window, LPCWSTR text);
int GetWindowTextW(HWND window, LPWSTR buffer, int capacity);
int GetWindowTextLengthW(HWND window);

// Focus, activation, mouse and keys.
HWND SetFocus(HWND window);
HWND GetFocus();
HWND SetActiveWindow(HWND window);
HWND GetActiveWindow();
HWND GetForegroundWindow();
BOOL SetForegroundWindow(HWND window);
HWND SetCapture(HWND window);
HWND GetCapture();
BOOL ReleaseCapture();
BOOL TrackMouseEvent(TRACKMOUSEEVENT* event);
BOOL GetCursorPos(POINT* point);
/// The high bit is set while the key is held down.
SHORT GetKeyState(int key);
/// The scan code of a virtual key (letters, digits, the keys of typing and the End key), for
/// MAPVK_VK_TO_VSC; 0 for other keys and other mappings.
UINT MapVirtualKeyW(UINT key, UINT mapping);
HWND WindowFromPoint(POINT point);
BOOL PtInRect(const RECT* rect, POINT point);

// Controls of a dialog by their id.
BOOL SetDlgItemTextW(HWND dialog, int id, LPCWSTR text);
UINT GetDlgItemTextW(HWND dialog, int id, LPWSTR buffer, int capacity);
BOOL SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned);
UINT GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned);
LRESULT SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
BOOL CheckDlgButton(HWND dialog, int id, UINT state);
UINT IsDlgButtonChecked(HWND dialog, int id);
BOOL CheckRadioButton(HWND dialog, int first, int last, int checked);

// Repainting: there is nothing to paint, the observers are told.
BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);
BOOL UpdateWindow(HWND window);
BOOL RedrawWindow(HWND window, const RECT* rect, HANDLE region, UINT flags);
inline constexpr UINT RDW_INVALIDATE = 0x0001;
inline constexpr UINT RDW_ERASE = 0x0004;
inline constexpr UINT RDW_ALLCHILDREN = 0x0080;
inline constexpr UINT RDW_UPDATENOW = 0x0100;
