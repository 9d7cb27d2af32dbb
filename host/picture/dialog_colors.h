#pragma once

#include "host/picture/canvas.h"

/// The looks of dialogs that several of their controls share.
namespace kovra::host {

inline constexpr Rgb kFace{240, 240, 240};
inline constexpr Rgb kInk{0, 0, 0};
inline constexpr Rgb kGrayInk{131, 131, 131};
inline constexpr Rgb kEdge{122, 122, 122};
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

}  // namespace kovra::host
