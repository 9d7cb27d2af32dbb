#pragma once

#include <string>
#include <vector>

#include "module/frame/seam.h"

namespace kovra {

/// The drawings of one run, by their paths and in the order of the work.
struct DrawingLists {
  std::vector<std::wstring> drawings;
  std::vector<std::wstring> skipped;  ///< must not be written
};

/// The drawings that the project has chosen beforehand, or without any those that the user chooses
/// now; each once, however often it was chosen.
DrawingLists ListChosenDrawings(const CStringArray& preset);

/// All drawings of the current project.
DrawingLists ListProjectDrawings();

}  // namespace kovra
