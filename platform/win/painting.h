#pragma once

#include <string>
#include <vector>

#include "platform/win/windows_types.h"

/// Painting of owner-drawn controls. There is no screen: a device context is a list of what was
/// painted into it, for whoever shows the windows.
namespace kovra::win {

/// One thing that was painted.
struct PaintStep {
  enum class Kind { frame, icon, text, focus };

  Kind kind;
  RECT place;      ///< in pixels of the control
  UINT state = 0;  ///< of a frame: DFCS_ flags, or the state of a visual style
  HICON icon = nullptr;
  std::wstring text = {};
};

/// A device context that lives as long as this object.
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

}  // namespace kovra::win

// The platform's functions. All of them fail quietly for a handle that is no device context.

inline constexpr UINT DI_NORMAL = 3;
BOOL DrawIconEx(HDC context, int left, int top, HICON icon, int width, int height, UINT step,
                HBRUSH background, UINT flags);

inline constexpr UINT DFC_BUTTON = 4;
inline constexpr UINT DFCS_BUTTONPUSH = 0x0010;
inline constexpr UINT DFCS_INACTIVE = 0x0100;
inline constexpr UINT DFCS_PUSHED = 0x0200;
BOOL DrawFrameControl(HDC context, RECT* place, UINT type, UINT state);
BOOL DrawFocusRect(HDC context, const RECT* place);

inline constexpr UINT DT_CENTER = 0x0001;
inline constexpr UINT DT_SINGLELINE = 0x0020;
inline constexpr UINT DT_CALCRECT = 0x0400;
/// One line. DT_CALCRECT only sets the rectangle's right and bottom to what the text takes; gives
/// the text's height.
int DrawTextW(HDC context, LPCWSTR text, int length, RECT* place, UINT format);

// Visual styles: nothing here draws with them, so no theme opens.
BOOL IsThemeActive();
BOOL IsAppThemed();
HTHEME OpenThemeData(HWND window, LPCWSTR classes);
HRESULT CloseThemeData(HTHEME theme);
HRESULT DrawThemeBackground(HTHEME theme, HDC context, int part, int state, const RECT* place,
                            const RECT* clip);
