#pragma once

#include <string>

namespace kovra {

/// Exchanges half-width and full-width forms of ".", digits and letters from A to Z, in both
/// directions at once; other characters stay. Applied twice it restores the text.
/// @return whether a character changed
bool FlipCharWidth(std::wstring& text);

}  // namespace kovra
