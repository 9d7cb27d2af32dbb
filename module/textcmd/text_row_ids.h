#pragma once

/// Rows of properties that the text dialogs have in common: a combo box and the button that picks
/// its value from a text in the drawing.
namespace kovra::textrows {

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
inline constexpr int kPickLayer = 1997;
inline constexpr int kLayer = 1998;

}  // namespace kovra::textrows
