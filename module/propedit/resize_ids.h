#pragma once

/// Controls of template 524, and what its dialog asks of the command.
namespace kovra::resize {

inline constexpr unsigned kTemplate = 524;

inline constexpr int kSpin = 1930;
inline constexpr int kHeight = 1931;
inline constexpr int kStep = 1932;
inline constexpr int kSelect = 1953;
inline constexpr int kMove = 1954;

// Values of ResizeRequest. Any other one shows the dialog.
inline constexpr int kNoRequest = 0;
inline constexpr int kSelectRequest = 1;
inline constexpr int kMoveRequest = 2;
inline constexpr int kApplyRequest = 3;
inline constexpr int kFinishRequest = 4;
inline constexpr int kCancelRequest = 5;

}  // namespace kovra::resize
