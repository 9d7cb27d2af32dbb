#pragma once

namespace kovra {

/// Whether controls are drawn with visual styles. Found out once a process.
bool VisualStylesActive();

}  // namespace kovra
