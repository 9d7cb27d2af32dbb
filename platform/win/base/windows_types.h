#pragma once

#include <cstddef>
#include <cstdint>

/// The basic types of the windowing platform. Integers have the widths that they have there, so
/// LONG and DWORD are 32 bits wide although `long` isn't. Handles are never dereferenced: they are
/// keys of tables and stay invalid for ever once what they name is gone.

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using SHORT = std::int16_t;
using INT = int;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::size_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using HRESULT = LONG;
using LSTATUS = LONG;
using COLORREF = DWORD;
using ATOM = WORD;

using CHAR = char;
using WCHAR = wchar_t;
using TCHAR = wchar_t;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using LPCTSTR = const wchar_t*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPDWORD = DWORD*;
using LPBYTE = BYTE*;
using PHKEY = struct HKEY__**;

using HANDLE = void*;
using HGLOBAL = void*;
using HTHEME = void*;
using HWND = struct HWND__*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;
using HRSRC = struct HRSRC__*;
using HKEY = struct HKEY__*;
using HDC = struct HDC__*;
using HFONT = struct HFONT__*;
using HICON = struct HICON__*;
using HCURSOR = struct HICON__*;
using HMENU = struct HMENU__*;
using HIMC = struct HIMC__*;
using HMONITOR = struct HMONITOR__*;
using HBRUSH = struct HBRUSH__*;
using HBITMAP = struct HBITMAP__*;

using FARPROC = void (*)();
using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);
using DLGPROC = INT_PTR (*)(HWND, UINT, WPARAM, LPARAM);

struct POINT {
  LONG x;
  LONG y;
};

struct SIZE {
  LONG cx;
  LONG cy;
};

struct RECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};
using LPRECT = RECT*;
using LPCRECT = const RECT*;
using LPPOINT = POINT*;

struct MSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;  ///< cursor in screen pixels
};
using LPMSG = MSG*;

// Calling conventions of the platform; one is enough here.
#define APIENTRY
#define WINAPI
#define CALLBACK

inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;
inline constexpr int MAX_PATH = 260;

template <typename T>
constexpr WORD LOWORD(T value) {
  return static_cast<WORD>(static_cast<std::uintptr_t>(value) & 0xFFFF);
}
template <typename T>
constexpr WORD HIWORD(T value) {
  return static_cast<WORD>((static_cast<std::uintptr_t>(value) >> 16) & 0xFFFF);
}
/// Two words in one number; only the low 16 bits of each part count.
template <typename Low, typename High>
constexpr DWORD MAKELONG(Low low, High high) {
  return (static_cast<DWORD>(low) & 0xFFFFU) | ((static_cast<DWORD>(high) & 0xFFFFU) << 16);
}
template <typename Low, typename High>
constexpr WPARAM MAKEWPARAM(Low low, High high) {
  return MAKELONG(low, high);
}
template <typename Low, typename High>
constexpr LPARAM MAKELPARAM(Low low, High high) {
  return static_cast<LPARAM>(MAKELONG(low, high));
}

/// A number in the place of a resource's name, as the platform passes it.
inline LPCWSTR MAKEINTRESOURCEW(UINT id) {
  return reinterpret_cast<LPCWSTR>(static_cast<std::uintptr_t>(id & 0xFFFF));
}

// Reasons that DllMain is told.
inline constexpr DWORD DLL_PROCESS_DETACH = 0;
inline constexpr DWORD DLL_PROCESS_ATTACH = 1;
inline constexpr DWORD DLL_THREAD_ATTACH = 2;
inline constexpr DWORD DLL_THREAD_DETACH = 3;

// Command ids that every dialog knows; also the results of message boxes.
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDABORT = 3;
inline constexpr int IDRETRY = 4;
inline constexpr int IDIGNORE = 5;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

// Styles of message boxes.
inline constexpr UINT MB_OK = 0x0;
inline constexpr UINT MB_OKCANCEL = 0x1;
inline constexpr UINT MB_ABORTRETRYIGNORE = 0x2;
inline constexpr UINT MB_YESNOCANCEL = 0x3;
inline constexpr UINT MB_YESNO = 0x4;
inline constexpr UINT MB_RETRYCANCEL = 0x5;
inline constexpr UINT MB_TYPEMASK = 0xF;
inline constexpr UINT MB_ICONHAND = 0x10;
inline constexpr UINT MB_ICONSTOP = 0x10;
inline constexpr UINT MB_ICONERROR = 0x10;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONWARNING = 0x30;
inline constexpr UINT MB_ICONASTERISK = 0x40;
inline constexpr UINT MB_ICONINFORMATION = 0x40;
inline constexpr UINT MB_DEFBUTTON1 = 0x0;
inline constexpr UINT MB_DEFBUTTON2 = 0x100;
inline constexpr UINT MB_DEFBUTTON3 = 0x200;
inline constexpr UINT MB_APPLMODAL = 0x0;
inline constexpr UINT MB_SYSTEMMODAL = 0x1000;
inline constexpr UINT MB_TASKMODAL = 0x2000;
inline constexpr UINT MB_TOPMOST = 0x40000;

// Status codes of the operating system that callers look at.
inline constexpr LSTATUS ERROR_SUCCESS = 0;
inline constexpr LSTATUS ERROR_FILE_NOT_FOUND = 2;
inline constexpr LSTATUS ERROR_ACCESS_DENIED = 5;
inline constexpr LSTATUS ERROR_INVALID_HANDLE = 6;
inline constexpr LSTATUS ERROR_INVALID_PARAMETER = 87;
inline constexpr LSTATUS ERROR_MORE_DATA = 234;
