#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/win/base/windows_types.h"

/// Painting. There is no screen: a device context is a list of what was painted into it, for
/// whoever shows the windows. The functions fail quietly for a handle that is no device context.
namespace kovra::win {

/// One step of painting a window, for a front end to carry out and for tests to look at.
struct PaintStep {
  enum class Kind { frame, themePart, icon, text, focus, fill };

  Kind kind = Kind::fill;
  RECT place{};        ///< in the painted window's client area
  unsigned part = 0;   ///< DFC_ number or part of the theme
  unsigned state = 0;  ///< DFCS_ flags or state of the part
  int color = -1;      ///< of a fill, COLOR_; -1: none
  HICON icon = nullptr;
  std::wstring text;
  unsigned format = 0;  ///< DT_ flags of a text

  bool operator==(const PaintStep& other) const;
};

/// A device context that collects what is painted into it for as long as it lives.
class PaintList {
 public:
  PaintList();
  ~PaintList();
  PaintList(const PaintList&) = delete;
  PaintList& operator=(const PaintList&) = delete;

  HDC context() const { return context_; }
  const std::vector<PaintStep>& steps() const { return steps_; }
  void add(PaintStep step) { steps_.push_back(std::move(step)); }

 private:
  HDC context_;
  std::vector<PaintStep> steps_;
};

/// Asks the window to paint itself (an owner-drawn button through its parent) and gives what it
/// drew.
std::vector<PaintStep> paintWindow(HWND window);

/// Whether visual styles are on, as they are on a usual desktop; off gives the classic look.
void setThemed(bool themed);

}  // namespace kovra::win

// Parts and states of classic frames.
inline constexpr UINT DFC_SCROLL = 3;
inline constexpr UINT DFC_BUTTON = 4;
inline constexpr UINT DFCS_SCROLLSIZEGRIP = 0x0008;
inline constexpr UINT DFCS_BUTTONPUSH = 0x0010;
inline constexpr UINT DFCS_INACTIVE = 0x0100;
inline constexpr UINT DFCS_PUSHED = 0x0200;
inline constexpr UINT DFCS_CHECKED = 0x0400;
inline constexpr UINT DT_CENTER = 0x0001;
inline constexpr UINT DT_VCENTER = 0x0004;
inline constexpr UINT DT_BOTTOM = 0x0008;
inline constexpr UINT DT_SINGLELINE = 0x0020;
inline constexpr UINT DT_CALCRECT = 0x0400;
inline constexpr UINT DI_NORMAL = 3;

// Parts and states of themed buttons.
inline constexpr int BP_PUSHBUTTON = 1;
inline constexpr int PBS_NORMAL = 1;
inline constexpr int PBS_HOT = 2;
inline constexpr int PBS_PRESSED = 3;
inline constexpr int PBS_DISABLED = 4;
inline constexpr int PBS_DEFAULTED = 5;

struct PAINTSTRUCT {
  HDC hdc;
  BOOL fErase;
  RECT rcPaint;
};

HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);
/// A context whose picture nobody looks at, for measuring.
HDC GetDC(HWND window);
int ReleaseDC(HWND window, HDC context);
BOOL DrawFrameControl(HDC context, RECT* rect, UINT type, UINT state);
BOOL DrawIconEx(HDC context, int x, int y, HICON icon, int width, int height, UINT step,
                HBRUSH background, UINT flags);
/// With DT_CALCRECT only measures: 6 by 13 pixels a half-width character, twice the width a full
/// one.
int DrawTextW(HDC context, LPCWSTR text, int length, RECT* rect, UINT format);
BOOL DrawFocusRect(HDC context, const RECT* rect);
/// The brush of a color that the desktop gives (COLOR_).
HBRUSH GetSysColorBrush(int color);
inline constexpr int COLOR_WINDOW = 5;
inline constexpr int COLOR_WINDOWTEXT = 8;
inline constexpr int COLOR_HIGHLIGHT = 13;
inline constexpr int COLOR_BTNFACE = 15;
inline constexpr int COLOR_BTNSHADOW = 16;
inline constexpr int COLOR_3DLIGHT = 22;
inline constexpr int COLOR_HOTLIGHT = 26;
/// With a null brush nothing is seen.
int FillRect(HDC context, const RECT* rect, HBRUSH brush);
int GetDeviceCaps(HDC context, int index);
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;

BOOL IsThemeActive();
BOOL IsAppThemed();
/// Known class lists: "BUTTON". Null for others, and while visual styles are off.
HTHEME OpenThemeData(HWND window, LPCWSTR classes);
HRESULT CloseThemeData(HTHEME theme);
HRESULT DrawThemeBackground(HTHEME theme, HDC context, int part, int state, const RECT* rect,
                            const RECT* clip);
