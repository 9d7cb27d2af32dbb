#pragma once

/// Controls of template 523, and what its dialog asks of the command.
namespace kovra::textdlg {

inline constexpr unsigned kTemplate = 523;

inline constexpr int kScale = 1996;
inline constexpr int kBack = 2000;

// Requests: numbers of the dialog's request lines.
inline constexpr int kBackRequest = 0;
inline constexpr int kStyleRequest = 1;
inline constexpr int kHeightRequest = 2;
inline constexpr int kWidthFactorRequest = 3;
inline constexpr int kRotationRequest = 4;
inline constexpr int kJustificationRequest = 5;
inline constexpr int kAllRequest = 6;
inline constexpr int kEndRequest = -1;

}  // namespace kovra::textdlg
