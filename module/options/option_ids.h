#pragma once

/// Controls of the option page.
namespace kovra::optionpage {

inline constexpr int kTableTabs = 1925;
inline constexpr int kRowUp = 1953;
inline constexpr int kRowDown = 1954;
inline constexpr int kDeleteRow = 1955;

}  // namespace kovra::optionpage
