// What a program's own window shows of the current project.
#pragma once
#include <filesystem>
#include <vector>

namespace kovra::companions {

struct ListedDrawing {
  std::filesystem::path file;
  bool blocked = false;  ///< the project says that it must not be written
};

}  // namespace kovra::companions

/// The drawings of the current project in their order, appended; found by this name in the library.
extern "C" void kovraListProject(std::vector<kovra::companions::ListedDrawing>& drawings);
