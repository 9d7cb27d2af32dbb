#pragma once

namespace kovra {

/// Lets the user pick a text and takes over into the open dialog what the button stands for. Other
/// ids do nothing.
void PickProperty(int buttonId);

/// Lets the user show the distances of an array by two points.
/// @param buttonId 1964 both, 1965 of rows, 1966 of columns
void PickSpacing(int buttonId);

}  // namespace kovra
