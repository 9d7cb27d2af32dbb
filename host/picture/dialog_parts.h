#pragma once

#include "host/picture/dialog_draw.h"
#include "platform/win/desktop/dialog_listing.h"

/// What the parts of dialogs are drawn with.
namespace kovra::host {

inline constexpr Rgb kFace{240, 240, 240};
inline constexpr Rgb kInk{0, 0, 0};
inline constexpr Rgb kGrayInk{131, 131, 131};
inline constexpr Rgb kEdge{122, 122, 122};
inline constexpr Rgb kMarkEdge{51, 51, 51};
inline constexpr Rgb kPaleEdge{204, 204, 204};
inline constexpr Rgb kGroupEdge{220, 220, 220};
inline constexpr Rgb kWhite{255, 255, 255};
inline constexpr Rgb kButton{225, 225, 225};
inline constexpr Rgb kPressed{204, 228, 247};
inline constexpr Rgb kAccent{0, 120, 215};
inline constexpr Rgb kCaption{255, 255, 255};

/// A line of dialog text, and what a half-width character takes of it (see DrawTextW).
inline constexpr double kLineHeight = 13;
inline constexpr double kHalfWidth = 6;
/// Width and height of a check box or radio mark.
inline constexpr double kCheckBox = 13;

inline double measured(std::wstring_view text) {
  double width = 0;
  for (const wchar_t c : text) width += c < 0x1100 ? kHalfWidth : 2 * kHalfWidth;
  return width;
}

struct DialogDraw::Control {
  win::ControlListing listing;
  DWORD style = 0;
  Bounds box;
  bool focused = false;

  Rgb ink() const { return listing.enabled ? kInk : kGrayInk; }
};

}  // namespace kovra::host
