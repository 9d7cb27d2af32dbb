#pragma once

namespace kovra {

/// Regenerates the current drawing, whose entities were changed behind the screen's back.
void RegenerateDrawing();

}  // namespace kovra
