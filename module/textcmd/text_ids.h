#pragma once

/// Controls of template 523, and what its dialog asks of the command.
namespace kovra::textdlg {

inline constexpr unsigned kTemplate = 523;

inline constexpr int kStyle = 1985;
inline constexpr int kPickStyle = 1986;
inline constexpr int kHeight = 1987;
inline constexpr int kPickHeight = 1988;
inline constexpr int kWidthFactor = 1989;
inline constexpr int kPickWidthFactor = 1990;
inline constexpr int kRotation = 1991;
inline constexpr int kPickRotation = 1992;
inline constexpr int kJustification = 1993;
inline constexpr int kPickJustification = 1994;
inline constexpr int kPickAll = 1995;
inline constexpr int kScale = 1996;
inline constexpr int kLayer = 1998;
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
