#pragma once

#include <cstdint>

#include "module/textcmd/text_run.h"

/// The Text command is a machine of numbered states: 1 asks for the value, 2 for the point, 3 to 8
/// pick a text whose properties are adopted, 10 places the text; 0 ends the run.
namespace kovra {

inline constexpr std::uint32_t kRunEnds = 0;
inline constexpr std::uint32_t kValueState = 1;
inline constexpr std::uint32_t kPointState = 2;
inline constexpr std::uint32_t kFirstPickState = 3;
inline constexpr std::uint32_t kLastPickState = 8;
inline constexpr std::uint32_t kPlacingState = 10;

/// Runs the states until the run ends.
void RunTextStates(TextRun& run);

/// The state that a request of the dialog leads to; `otherwise` for a number that is none.
std::uint32_t StateOfRequest(int request, std::uint32_t otherwise);

}  // namespace kovra
